// Hexadecimal digits, in both cases.
#pragma once

// The value, -1 for any other unit or byte.
constexpr int HexDigitOf(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    const auto lower = static_cast<char16_t>(unit | 0x20);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}
