// The system's common dialogs.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/base/win32.h"

OpenFileAnswer AskFile(HWND owner, const OpenFileRequest&);

// Opened in full; its sixteen custom colours are white each time.
ColorAnswer AskColor(HWND owner, const std::u16string& title, Color start);

// What was not touched is exactly as it was given, also a face that is not installed, and a size, a
// character set or a colour that the dialog does not offer.
FontAnswer AskFont(HWND owner, const std::u16string& title, const ViewFont&, Color);
