// Windows virtual-key codes of Qt's key events.
#pragma once

#include <Qt>

#include <cstdint>

// The code of a key, 0 when it has none. Keys that type a character are told apart by their place
// on the keyboard where the layout gives them no Latin letter, so a shortcut works in every layout.
// `scanCode` is the native one of X11 and Wayland (evdev's plus 8), or 0 where there is none.
int VirtualKeyCode(int key, Qt::KeyboardModifiers modifiers, std::uint32_t scanCode);

// Of the keypad's "+", "-" and "0" that of the main block's; any other code as it is.
int MainBlockZoomKey(int code);

int ShiftMaskOf(Qt::KeyboardModifiers modifiers); // a sum of ShiftMask values
