#include "platform/qt/window/key_codes.h"

#include "common/keys.h"

#include <algorithm>
#include <array>

namespace {

struct KeyCode {
    int key, code;
};

constexpr std::array namedKeys = {
    KeyCode{Qt::Key_Cancel, 3},       KeyCode{Qt::Key_Backspace, 8}, KeyCode{Qt::Key_Tab, 9},
    KeyCode{Qt::Key_Backtab, 9},      KeyCode{Qt::Key_Clear, 12},    KeyCode{Qt::Key_Return, 13},
    KeyCode{Qt::Key_Enter, 13},       KeyCode{Qt::Key_Shift, 16},    KeyCode{Qt::Key_Control, 17},
    KeyCode{Qt::Key_Alt, 18},         KeyCode{Qt::Key_AltGr, 18},    KeyCode{Qt::Key_Pause, 19},
    KeyCode{Qt::Key_CapsLock, 20},    KeyCode{Qt::Key_Escape, 27},   KeyCode{Qt::Key_Space, 32},
    KeyCode{Qt::Key_PageUp, 33},      KeyCode{Qt::Key_PageDown, 34}, KeyCode{Qt::Key_End, 35},
    KeyCode{Qt::Key_Home, 36},        KeyCode{Qt::Key_Left, 37},     KeyCode{Qt::Key_Up, 38},
    KeyCode{Qt::Key_Right, 39},       KeyCode{Qt::Key_Down, 40},     KeyCode{Qt::Key_Select, 41},
    KeyCode{Qt::Key_Printer, 42},     KeyCode{Qt::Key_Execute, 43},  KeyCode{Qt::Key_Print, 44},
    KeyCode{Qt::Key_SysReq, 44},      KeyCode{Qt::Key_Insert, 45},   KeyCode{Qt::Key_Delete, 46},
    KeyCode{Qt::Key_Help, 47},        KeyCode{Qt::Key_Super_L, 91},  KeyCode{Qt::Key_Meta, 91},
    KeyCode{Qt::Key_Super_R, 92},     KeyCode{Qt::Key_Menu, 93},     KeyCode{Qt::Key_NumLock, 144},
    KeyCode{Qt::Key_ScrollLock, 145},
};

constexpr std::array keypadKeys = {
    KeyCode{Qt::Key_Asterisk, 106}, KeyCode{Qt::Key_Plus, 107},  KeyCode{Qt::Key_Minus, 109},
    KeyCode{Qt::Key_Period, 110},   KeyCode{Qt::Key_Comma, 110}, KeyCode{Qt::Key_Slash, 111},
};

// Characters whose key code does not depend on where the layout puts them.
constexpr std::array characterKeys = {
    KeyCode{Qt::Key_Equal, PlusKey},  KeyCode{Qt::Key_Plus, PlusKey},
    KeyCode{Qt::Key_Minus, MinusKey}, KeyCode{Qt::Key_Underscore, MinusKey},
    KeyCode{Qt::Key_Semicolon, 186},  KeyCode{Qt::Key_Comma, 188},
    KeyCode{Qt::Key_Period, 190},     KeyCode{Qt::Key_Slash, 191},
    KeyCode{Qt::Key_QuoteLeft, 192},  KeyCode{Qt::Key_BracketLeft, 219},
    KeyCode{Qt::Key_Backslash, 220},  KeyCode{Qt::Key_BracketRight, 221},
    KeyCode{Qt::Key_Apostrophe, 222},
};

// The main block by scan code, with the codes of the US layout.
struct KeyRow {
    std::uint32_t firstScanCode;
    std::array<std::uint8_t, 12> codes; // padded with 0
};

constexpr std::array keyRows = {
    KeyRow{10, {'1', '2', '3', '4', '5', '6', '7', '8', '9', '0', MinusKey, PlusKey}},
    KeyRow{24, {'Q', 'W', 'E', 'R', 'T', 'Y', 'U', 'I', 'O', 'P', 219, 221}},
    KeyRow{38, {'A', 'S', 'D', 'F', 'G', 'H', 'J', 'K', 'L', 186, 222, 192}},
    KeyRow{51, {220, 'Z', 'X', 'C', 'V', 'B', 'N', 'M', 188, 190, 191, 0}},
};

template <typename Table>
int FindCode(const Table& table, int key) {
    const auto found = std::ranges::find(table, key, &KeyCode::key);
    return found == table.end() ? 0 : found->code;
}

int CodeByScanCode(std::uint32_t scanCode) {
    for (const KeyRow& row : keyRows)
        if (scanCode >= row.firstScanCode && scanCode < row.firstScanCode + row.codes.size())
            return row.codes[scanCode - row.firstScanCode];
    return 0;
}

bool IsDigit(int code) {
    return code >= '0' && code <= '9';
}

int KeypadCode(int key) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + (key - Qt::Key_0);
    return FindCode(keypadKeys, key);
}

int CharacterCode(int key, bool shifted, std::uint32_t scanCode) {
    const int byScanCode = CodeByScanCode(scanCode);
    // Digit keys keep their codes with Shift and in layouts where digits need Shift, but an
    // unshifted "-" or "=" on them (French layout) is the sign.
    if (IsDigit(byScanCode)) {
        const int sign = shifted ? 0 : FindCode(characterKeys, key);
        return sign == PlusKey || sign == MinusKey ? sign : byScanCode;
    }
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return key; // same values as the virtual-key codes
    if (const int code = FindCode(characterKeys, key)) return code;
    return byScanCode;
}

} // namespace

int VirtualKeyCode(int key, Qt::KeyboardModifiers modifiers, std::uint32_t scanCode) {
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + (key - Qt::Key_F1);
    if (const int code = FindCode(namedKeys, key)) return code;
    if (modifiers & Qt::KeypadModifier) return KeypadCode(key);
    return CharacterCode(key, modifiers & Qt::ShiftModifier, scanCode);
}

int MainBlockZoomKey(int code) {
    switch (code) {
    case 96: return '0';
    case 107: return PlusKey;
    case 109: return MinusKey;
    default: return code;
    }
}

int ShiftMaskOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? ShiftKey : 0) |
           (modifiers & Qt::ControlModifier ? CtrlKey : 0) |
           (modifiers & Qt::AltModifier ? AltKey : 0);
}
