// Which keys the HTML view handles by itself.
#pragma once

#include "platform/windows/base/win32.h"

enum class PageKey {
    Other,   // default processing: typing, Alt, unknown keys
    Scrolls, // scrolls, selects or moves the focus: the engine's accelerator
    Zooms,   // Ctrl with "+", "-" or "0"
    Blocked, // an accelerator of the engine that must not run besides the program's
};

// `keyCode` is a virtual-key code, `shift` a ShiftMask; of WM_KEYDOWN.
PageKey ClassifyPageKey(int keyCode, int shift);

// The key of the main block for "+", "-" and "0" of the numeric keypad; any other as it is.
int MainBlockKey(int keyCode);
