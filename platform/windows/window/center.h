// Where a dialog appears.
#pragma once

#include "platform/windows/base/win32.h"

// Over the middle of its owner, wholly on the owner's screen; in the middle of the screen for an
// owner that is null, hidden or minimised.
void CenterOver(HWND window, HWND owner);
