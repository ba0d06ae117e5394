// Names of keys and of shortcuts as menus show them.
#pragma once

#include <string>
#include <string_view>

// The name of a Windows virtual-key code, for example "F1" or "Num +"; "" for a code without one.
std::u16string KeyName(int keyCode);

struct KeyCombination {
    int key = 0, shift = 0; // a virtual-key code; ShiftKey, CtrlKey and AltKey together
    bool operator==(const KeyCombination&) const = default;
};

// The display text of a combination, for example "Ctrl+F".
std::u16string ShortcutText(const KeyCombination&);
// The display text of a combination stored as "keycode.shift": "70.2" gives "Ctrl+F".
std::u16string GetShortcutText(std::u16string_view keyAndShift);
