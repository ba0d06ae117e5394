// UTF-8 and UTF-16.
#pragma once

#include "common/surrogates.h"

#include <cstddef>
#include <string>
#include <string_view>

// Of the sequence that this byte leads, 1 for ASCII; 0 when it leads none (Unicode, table 3-7).
constexpr int Utf8SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    return lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}
constexpr bool IsUtf8Continuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The length in bytes of the longest valid beginning: no surrogates, no overlong forms, at most
// U+10FFFF.
std::size_t ValidUtf8Length(std::string_view bytes);
bool IsValidUtf8(std::string_view bytes);

// The number of UTF-16 units of valid UTF-8.
std::size_t Utf16Length(std::string_view bytes);
// The next place from `place` on, which is not after the bytes, that is in no valid sequence.
std::size_t Utf8CharacterEnd(std::string_view bytes, std::size_t place);

// The character at `at`, which moves after it, of valid UTF-8.
char32_t NextUtf8Character(std::string_view bytes, std::size_t& at);

// Each byte that is no part of a valid sequence becomes `replacement`.
std::u16string Utf8ToUtf16(std::string_view bytes, char16_t replacement = u'\uFFFD');

// The character at the start of a text that is not empty; a lone surrogate is itself.
char32_t FirstCharacter(std::u16string_view text);

// A lone surrogate becomes U+FFFD.
std::string Utf16ToUtf8(std::u16string_view text);
