// Which keys the HTML view acts on by itself.
#pragma once

#include "platform/windows/base/win32.h"

enum class PageKey {
    Other,   // goes its usual way: typing, Alt, and keys that nobody here knows
    Scrolls, // scrolls, selects or moves the focus: the engine's accelerator
    Zooms,   // Ctrl with "+", "-" or "0"
    Blocked, // a command of the engine's that must not come beside the window's
};

// `keyCode` is a virtual-key code, `shift` a ShiftMask; of a key that goes down.
PageKey ClassifyPageKey(int keyCode, int shift);

// The key of the main block for "+", "-" and "0" of the numeric keypad; any other as it is.
int MainBlockKey(int keyCode);
