// The context menu of a page.
#pragma once

#include "platform/windows/win32.h"

// The PageCommand that the user chose at `place` on the screen, 0 for none.
int AskPageCommand(HWND owner, POINT place, bool hasText, bool hasSelection);
