// The keys of the text control.
#pragma once

#include "platform/windows/base/win32.h"

// Whether the key is used up here, or must not reach the control: keys that would format, beep or
// zoom. The control itself moves the caret and selects all. A key that the view has no use
// for is dropped: the window sees keys in its message loop, before the control does.
bool HandleTextKeyDown(HWND control, int key);
bool HandleTextKeyUp(HWND control, int key);
