#include "formats/codepages/character_properties.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {
struct Fold {
    char16_t first, last;
    int step; // 1: uppercase at even code points, lowercase at the next; -1: uppercase at odd ones
    int distance;
};

// Uppercase letters of the charsets' scripts.
constexpr Fold folds[] = {
    {u'A', u'Z', 0, 32},     {0xC0, 0xD6, 0, 32},     {0xD8, 0xDE, 0, 32},
    {0x100, 0x137, 1, 1},    {0x139, 0x148, -1, 1},   {0x14A, 0x177, 1, 1},
    {0x179, 0x17E, -1, 1},   {0x1A0, 0x1A0, 1, 1},    {0x1AF, 0x1AF, -1, 1},
    {0x218, 0x21B, 1, 1},    {0x386, 0x386, 0, 0x26}, {0x388, 0x38A, 0, 0x25},
    {0x38C, 0x38C, 0, 0x40}, {0x38E, 0x38F, 0, 0x3F}, {0x391, 0x3AB, 0, 32},
    {0x400, 0x40F, 0, 0x50}, {0x410, 0x42F, 0, 32},   {0x460, 0x481, 1, 1},
    {0x48A, 0x4BF, 1, 1},    {0x4D0, 0x4FF, 1, 1},    {0x1E00, 0x1E95, 1, 1},
    {0x1EA0, 0x1EFF, 1, 1},
};

char16_t ToLowercase(char16_t unit) {
    if (unit == 0x130) return u'i';
    if (unit == 0x178) return 0xFF;
    const auto* const fold = std::ranges::find_if(
        folds, [=](const Fold& each) { return unit >= each.first && unit <= each.last; });
    if (fold == std::end(folds)) return unit;
    if (fold->step != 0 && (unit % 2 == 0) != (fold->step > 0)) return unit;
    return static_cast<char16_t>(unit + fold->distance);
}

struct Range {
    char16_t first, last;
    LetterScript script;
};

constexpr Range letterRanges[] = {
    {u'A', u'Z', LetterScript::Latin},      {u'a', u'z', LetterScript::Latin},
    {0xC0, 0xD6, LetterScript::Latin},      {0xD8, 0xF6, LetterScript::Latin},
    {0xF8, 0x24F, LetterScript::Latin},     {0x300, 0x301, LetterScript::Latin},
    {0x303, 0x303, LetterScript::Latin},    {0x309, 0x309, LetterScript::Latin},
    {0x323, 0x323, LetterScript::Latin},    {0x386, 0x386, LetterScript::Greek},
    {0x388, 0x3CE, LetterScript::Greek},    {0x400, 0x481, LetterScript::Cyrillic},
    {0x48A, 0x4FF, LetterScript::Cyrillic}, {0x5B0, 0x5BD, LetterScript::Hebrew},
    {0x5BF, 0x5C2, LetterScript::Hebrew},   {0x5D0, 0x5F2, LetterScript::Hebrew},
    {0x621, 0x652, LetterScript::Arabic},   {0x670, 0x6D3, LetterScript::Arabic},
    {0xE01, 0xE3A, LetterScript::Thai},     {0xE40, 0xE4E, LetterScript::Thai},
    {0x1E00, 0x1EFF, LetterScript::Latin},
};

bool IsMark(char16_t unit) {
    const bool hebrew = unit >= 0x5B0 && unit <= 0x5C2;
    return hebrew || (unit >= 0x64B && unit <= 0x652) || unit == 0x670;
}

struct PunctuationGroup {
    std::u16string_view characters;
    PunctuationKind kind;
    int bits;
};

constexpr PunctuationGroup punctuation[] = {
    {u"\u00A0\u2013\u2014\u2026", PunctuationKind::Free, 7}, // as what opens a line elsewhere
    {u"\u2019", PunctuationKind::Joining, 7},
    {u"\u00AB\u201C\u201E\u2018\u060C\u061B\u061F", PunctuationKind::Opening, 7},
    {u"\u00BB\u201D\u00B7\u0387\u05BE", PunctuationKind::Closing, 7},
    {u"\u00A1\u00BF\u201A\u2039\u2116\u00A3\u00A7\u00A9", PunctuationKind::Opening, 9},
    {u"\u203A\u20AC\u00AE\u2122\u00B0\u00AA\u00BA\u00B2\u00B3\u00BD\u2030",
     PunctuationKind::Closing, 10},
    {u"\u00AD\u2022\u200C\u200D\u2015\u2017\u20AA\u0E3F", PunctuationKind::Free, 10},
    {u"\u200E\u200F", PunctuationKind::Odd, 10},
    {u"\u00D7\u00F7", PunctuationKind::Odd, 12},
    {u"\u02BC\u0384\u0385\u00B4\u00A8\u00A4\u00A2\u00A5\u00A6\u00AC\u00B1\u00B5\u00B6\u00B8\u00B9"
     u"\u00BC"
     u"\u00BE\u00AF\u2020\u2021",
     PunctuationKind::Odd, 15},
};

constexpr std::u16string_view besideNumbers =
    u"\u00A2\u00A3\u00A5\u00A7\u00B0\u00B1\u00B2\u00B3\u00B5\u00B9\u00BA\u00BC\u00BD\u00BE\u00D7"
    u"\u00F7\u2030\u20AC";

CharacterProperties PunctuationProperties(char16_t unit) {
    CharacterProperties properties;
    if (unit < 0x80) return properties;
    for (const PunctuationGroup& group : punctuation) {
        if (group.characters.find(unit) == std::u16string_view::npos) continue;
        properties.kind = group.kind;
        properties.cost = group.bits * costsPerBit;
        properties.withNumbers = besideNumbers.find(unit) != std::u16string_view::npos;
        return properties;
    }
    const bool boxDrawing = unit >= 0x2500 && unit < 0x25A0;
    const bool isPrivate = unit >= 0xE000 && unit < 0xF900;
    properties.impossible = unit < 0xA0 || unit == 0xFFFD || isPrivate;
    properties.kind = boxDrawing ? PunctuationKind::BoxDrawing : PunctuationKind::Odd;
    properties.cost = (boxDrawing ? 17 : properties.impossible ? 30 : 17) * costsPerBit;
    if (unit >= 0x660 && unit < 0x66A)
        properties.kind = PunctuationKind::Free, properties.cost = 12 * costsPerBit;
    if (unit >= 0xE50 && unit < 0xE5C)
        properties.kind = PunctuationKind::Free, properties.cost = 8 * costsPerBit;
    return properties;
}
} // namespace

CharacterProperties PropertiesOf(char16_t unit) {
    if (unit >= firstArabicForm && unit <= lastArabicForm)
        unit = arabicForms[unit - firstArabicForm];
    const auto* const range = std::ranges::find_if(
        letterRanges, [=](const Range& each) { return unit >= each.first && unit <= each.last; });
    if (range == std::end(letterRanges)) return PunctuationProperties(unit);
    CharacterProperties properties;
    properties.script = range->script;
    properties.letter = ToLowercase(unit);
    properties.uppercase = properties.letter != unit;
    properties.mark = IsMark(unit);
    // Romanian has a comma below, and in most charsets only the cedilla.
    if (properties.letter == 0x219) properties.letter = 0x15F;
    if (properties.letter == 0x21B) properties.letter = 0x163;
    return properties;
}
