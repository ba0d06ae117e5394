// The title bar in the desktop's dark or light scheme.
#pragma once

#include "platform/windows/base/win32.h"

bool PrefersDarkPrograms(); // the user's setting; false while a contrast theme is on

// Call it for a new window and with each WM_SETTINGCHANGE. Where the system has no dark title bars
// nothing happens.
void FollowColorScheme(HWND window);
