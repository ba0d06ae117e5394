// Menus and the foreground: what comes from outside, a drop or a later start, ends an open menu,
// whose items are those of before.
#pragma once

#include "platform/windows/base/win32.h"

bool IsMenuOpen(); // of this thread

// Ends an open menu, restores the window from an icon and gives the keyboard to it, or to the
// dialog that it waits for.
void BringToForeground(HWND);
