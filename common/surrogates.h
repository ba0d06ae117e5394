// Units of UTF-16 that make a character in pairs.
#pragma once

// A character above U+FFFF is a pair of units, a high and a low one.
constexpr bool IsHighSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}
constexpr char16_t HighSurrogateOf(char32_t character) {
    return static_cast<char16_t>(0xD7C0 + (character >> 10));
}
constexpr char16_t LowSurrogateOf(char32_t character) {
    return static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

constexpr bool IsSurrogate(char32_t character) {
    return character >= 0xD800 && character < 0xE000;
}
