// Characters of a text in UTF-16.
#pragma once

#include "common/utf.h"

#include <string_view>

// The character that starts at `at`, of one unit or two; a surrogate alone is itself.
inline char32_t CharacterFrom(std::u16string_view text, std::size_t at) {
    const bool pair =
        IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
    return pair ? 0x10000 + (char32_t(text[at] & 0x3FF) << 10 | (text[at + 1] & 0x3FF)) : text[at];
}

inline std::size_t UnitsOf(char32_t character) {
    return character > 0xFFFF ? 2 : 1;
}
