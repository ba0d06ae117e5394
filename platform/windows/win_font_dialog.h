// The system's dialog that chooses the text's font and colour.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/win32.h"

// What was not touched is exactly as it was given, also a face that is not installed, and a size, a
// character set or a colour that the dialog does not offer.
FontAnswer AskFont(HWND owner, const std::u16string& title, const ViewFont&, Color);
