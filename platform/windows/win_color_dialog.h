// The system's dialog that chooses a colour.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/win32.h"

// Opened in full; its sixteen colours of the user's own are white each time.
ColorAnswer AskColor(HWND owner, const std::u16string& title, Color start);
