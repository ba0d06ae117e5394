// Names of keys and of shortcuts as menus show them.
#pragma once

#include <string>
#include <string_view>

// The name of a Windows virtual-key code, for example "F1" or "Num +"; "" for a code without one.
std::u16string KeyName(int keyCode);

// The display text of "keycode.shift": 70.2 gives "Ctrl+F". The shift mask adds 1 for Shift, 2 for
// Ctrl, 4 for Alt.
std::u16string GetShortcutText(std::u16string_view keyAndShift);
