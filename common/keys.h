// Keys as the program knows them.
#pragma once

// Key codes are Windows virtual-key codes on every system; letters and digits are their own.
enum VirtualKey {
    EnterKey = 13,
    EscapeKey = 27,
    LeftKey = 37,
    InsertKey = 45,
    NumPlusKey = 107,
    NumMinusKey = 109,
    F1Key = 112,
    F2Key = 113,
    F3Key = 114,
    F4Key = 115,
    F5Key = 116,
    F11Key = 122,
    PlusKey = 187, // of the main block
    MinusKey = 189,
};
enum ShiftMask { ShiftKey = 1, CtrlKey = 2, AltKey = 4 };
