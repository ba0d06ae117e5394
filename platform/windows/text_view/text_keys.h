// Keyboard handling of the text control.
#pragma once

#include "platform/windows/base/win32.h"

// True when the key was handled or must not reach the control, which would format, beep or zoom.
// The control itself moves the caret and selects all. Other keys are dropped: accelerators are
// handled in the message loop, before the control gets them.
bool HandleTextKeyDown(HWND control, int key);
bool HandleTextKeyUp(HWND control, int key);
