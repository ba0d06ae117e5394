// Characters of a text that layout treats alike in every script.
#pragma once

#include "common/utf.h"

#include <string_view>

// Of a unit that is no half of a pair, the unit itself.
inline char32_t CharacterAt(std::wstring_view text, std::size_t at) {
    const char16_t units[] = {static_cast<char16_t>(text[at]),
                              at + 1 < text.size() ? static_cast<char16_t>(text[at + 1]) : u'\0'};
    return FirstCharacter({units, 2});
}

// Neither seen nor shaped. Most fonts lack them, and some show a box.
inline bool IsHiddenControl(wchar_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F) || unit == 0x061C || unit == 0x200B ||
           unit == 0x200E || unit == 0x200F || (unit >= 0x2029 && unit <= 0x202E) ||
           (unit >= 0x2060 && unit <= 0x206F) || unit == 0xFEFF;
}

// Shaped with what is around them, and not seen where a font lacks them: joiners, selectors of a
// variation, tags.
inline bool IsIgnorable(char32_t character) {
    return character == 0x200C || character == 0x200D || character == 0x034F ||
           (character >= 0x180B && character <= 0x180E) ||
           (character >= 0xFE00 && character <= 0xFE0F) ||
           (character >= 0xE0000 && character <= 0xE0FFF);
}
