// Initial position of dialogs.
#pragma once

#include "platform/windows/base/win32.h"

// Centres over the owner, within its work area; on the screen when the owner is null, hidden or
// minimised.
void CenterOver(HWND window, HWND owner);
