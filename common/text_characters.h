// The characters of a text in UTF-16.
#pragma once

#include "common/geometry.h"
#include "common/utf.h"

#include <string_view>

constexpr TextPos UnitsOf(char32_t character) {
    return character > 0xFFFF ? 2 : 1;
}

// C0, C1 and delete: among them tab and line breaks.
constexpr bool IsControlCode(char32_t character) {
    return character < U' ' || (character >= 0x7F && character < 0xA0);
}

// Calls `take` with each character and its position; a lone surrogate is itself.
template <class Take>
void ForEachCharacter(std::u16string_view text, Take take) {
    for (TextPos at = 0; at < TextPos(text.size());) {
        const char32_t character = FirstCharacter(text.substr(std::size_t(at), 2));
        take(at, character);
        at += UnitsOf(character);
    }
}
