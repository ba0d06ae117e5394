// Symbol fonts: their glyphs stand at the code points of letters.
#pragma once

#include <cstdint>
#include <string_view>

enum class SymbolSet : std::uint8_t { None, Symbol, Wingdings, Webdings };

// The set of a font with the symbol charset; None for an unknown font.
SymbolSet SymbolSetOfFont(std::u16string_view name);

// A byte of a text in such a font as a character that other fonts have, too. Where there is none:
// U+F000 and the byte, as such fonts number their characters.
char32_t SymbolOfByte(SymbolSet set, unsigned char byte);

// Whether a unit is in that private use range; its low byte is what `SymbolOfByte` expects.
constexpr bool IsSymbolFontUnit(char16_t unit) {
    return unit >= 0xF020 && unit <= 0xF0FF;
}
