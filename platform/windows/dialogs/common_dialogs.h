// The system's common dialogs.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/base/win32.h"

OpenFileAnswer AskFile(HWND owner, const OpenFileRequest&);

// Opened in full; its sixteen custom colours are white each time.
ColorAnswer AskColor(HWND owner, const std::u16string& title, Color start);

// Whatever the user did not change is returned as it was given, even a face that is not installed
// or a size, a character set or a colour that the dialog does not offer.
FontAnswer AskFont(HWND owner, const FontRequest&);
