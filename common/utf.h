// UTF-8 and UTF-16.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

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

// The length in bytes of the longest valid beginning: no surrogates, no overlong forms, at most
// U+10FFFF.
std::size_t ValidUtf8Length(std::string_view bytes);
bool IsValidUtf8(std::string_view bytes);

// The number of UTF-16 units of valid UTF-8.
std::size_t Utf16Length(std::string_view bytes);
// The next place from `place` on, which is not behind the bytes, that is in no valid sequence.
std::size_t Utf8CharacterEnd(std::string_view bytes, std::size_t place);

// Each byte that is no part of a valid sequence becomes `replacement`.
std::u16string Utf8ToUtf16(std::string_view bytes, char16_t replacement = u'\uFFFD');

// The character at the start of a text that is not empty; a lone surrogate is itself.
char32_t FirstCharacter(std::u16string_view text);

// A lone surrogate becomes U+FFFD.
std::string Utf16ToUtf8(std::u16string_view text);
