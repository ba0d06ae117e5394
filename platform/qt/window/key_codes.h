// Windows virtual-key codes for Qt key events.
#pragma once

#include <Qt>

#include <cstdint>

// 0 for a key that has none. If the layout gives a character key no Latin letter, its position
// decides, so that shortcuts work in every layout. `scanCode` is the native one of X11 and Wayland
// (evdev code plus 8), or 0 if unknown.
int VirtualKeyCode(int key, Qt::KeyboardModifiers modifiers, std::uint32_t scanCode);

// Maps the keypad's "+", "-" and "0" to the main block's; other codes are unchanged.
int MainBlockZoomKey(int code);

int ShiftMaskOf(Qt::KeyboardModifiers modifiers); // a sum of ShiftMask values
