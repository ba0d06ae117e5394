#include "common/unicode.h"

#include "common/unicode_table.h"

namespace {
using namespace unicode_table;

const Properties& PropertiesOf(char32_t character) {
    if (character > 0x10FFFF) character = 0xFFFD;
    return kinds[kindOf[blockOf[character / blockSize]][character % blockSize]];
}

bool Has(char32_t character, std::uint8_t flag) {
    return (PropertiesOf(character).flags & flag) != 0;
}
} // namespace

bool IsMarkOrFormat(char32_t character) {
    return Has(character, markOrFormat);
}

bool IsUnassignedOrPrivate(char32_t character) {
    return Has(character, unassignedOrPrivate);
}

bool IsVirama(char32_t character) {
    return Has(character, virama);
}

bool IsWide(char32_t character) {
    return Has(character, wide);
}

bool IsOpening(char32_t character) {
    return Has(character, opening);
}

bool IsClosing(char32_t character) {
    return Has(character, closing);
}

bool IsSpaceCharacter(char16_t unit) {
    if (unit < 0x80) return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
    return unit == 0x85 || unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) ||
           unit == 0x2028 || unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

Direction StrongDirection(char32_t character) {
    switch (BidiClassOf(character)) {
    case BidiClass::L: return Direction::LeftToRight;
    case BidiClass::R:
    case BidiClass::AL: return Direction::RightToLeft;
    default: return Direction::Neutral;
    }
}

BidiClass BidiClassOf(char32_t character) {
    return PropertiesOf(character).bidi;
}

ClusterJoin ClusterJoinOf(char32_t character) {
    return PropertiesOf(character).join;
}

WordPart WordPartOf(char32_t character) {
    return PropertiesOf(character).wordPart;
}
