#include "platform/qt/window/key_codes.h"

#include "platform/window.h"

#include <doctest/doctest.h>

TEST_CASE("key codes: a key has its Windows code in every layout") {
    struct Row {
        const char* what;
        int key;
        Qt::KeyboardModifiers modifiers;
        std::uint32_t scanCode;
        int code;
    };
    const Row rows[] = {
        {"letter", Qt::Key_C, Qt::ControlModifier, 54, 'C'},
        {"letter of AZERTY, where Q stands on A's place", Qt::Key_A, {}, 24, 'A'},
        {"Cyrillic letter on F's place", 0x0410, Qt::ControlModifier, 41, 'F'},
        {"Hebrew letter without a scan code", 0x05D0, {}, 0, 0},
        {"digit", Qt::Key_0, Qt::ControlModifier, 19, '0'},
        {"digit with Shift held types a sign", Qt::Key_ParenLeft, Qt::ShiftModifier, 18, '9'},
        {"digit row of AZERTY without Shift", Qt::Key_Ampersand, {}, 10, '1'},
        {"minus in the digit row of AZERTY", Qt::Key_Minus, Qt::ControlModifier, 15, MinusKey},
        {"German = is Shift+0", Qt::Key_Equal, Qt::ShiftModifier, 19, '0'},
        {"= of the main block", Qt::Key_Equal, Qt::ControlModifier, 21, PlusKey},
        {"+ of the main block, typed with Shift", Qt::Key_Plus, Qt::ShiftModifier, 21, PlusKey},
        {"German +", Qt::Key_Plus, Qt::ControlModifier, 35, PlusKey},
        {"- of the main block", Qt::Key_Minus, Qt::ControlModifier, 20, MinusKey},
        {"keypad +", Qt::Key_Plus, Qt::KeypadModifier | Qt::ControlModifier, 86, 107},
        {"keypad -", Qt::Key_Minus, Qt::KeypadModifier, 82, 109},
        {"keypad 0", Qt::Key_0, Qt::KeypadModifier, 90, 96},
        {"keypad End", Qt::Key_End, Qt::KeypadModifier, 87, 35},
        {"F1", Qt::Key_F1, {}, 67, 112},
        {"F2 with Alt", Qt::Key_F2, Qt::AltModifier, 68, 113},
        {"F12", Qt::Key_F12, {}, 96, 123},
        {"Ctrl itself", Qt::Key_Control, Qt::ControlModifier, 37, 17},
        {"Page Down", Qt::Key_PageDown, {}, 117, 34},
        {"Shift+Tab", Qt::Key_Backtab, Qt::ShiftModifier, 23, 9},
        {"media key", Qt::Key_MediaPlay, {}, 172, 0},
    };
    for (const Row& row : rows) {
        CAPTURE(row.what);
        CHECK(VirtualKeyCode(row.key, row.modifiers, row.scanCode) == row.code);
    }
}

TEST_CASE("key codes: the shift mask") {
    CHECK(ShiftMaskOf({}) == 0);
    CHECK(ShiftMaskOf(Qt::ShiftModifier | Qt::KeypadModifier) == ShiftKey);
    CHECK(ShiftMaskOf(Qt::ControlModifier | Qt::AltModifier) == (CtrlKey | AltKey));
}
