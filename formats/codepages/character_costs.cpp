#include "formats/codepages/character_costs.h"

#include "formats/codepages/letter_costs.h"

#include <algorithm>

namespace {
struct RangeCost {
    char16_t first, last;
    int bits;
};

// Of characters that are not among the common ones of the language.
constexpr RangeCost rangeCosts[] = {
    {0x80, 0x9F, 26},     {0xA0, 0x2FF, 15},    {0x300, 0x36F, 18},   {0x370, 0x4FF, 14},
    {0x500, 0x1FFF, 24},  {0x2000, 0x24FF, 13}, {0x2500, 0x2E7F, 13}, {0x3000, 0x303F, 10},
    {0x3040, 0x30FF, 12}, {0x3100, 0x33FF, 16}, {0x3400, 0x4DBF, 22}, {0x4E00, 0x9FFF, 17},
    {0xAC00, 0xD7A3, 17}, {0xD800, 0xDFFF, 11}, {0xE000, 0xF8FF, 26}, {0xF900, 0xFEFF, 22},
    {0xFF00, 0xFF60, 12}, {0xFF61, 0xFF9F, 10}, {0xFFA0, 0xFFFC, 22},
};
constexpr int besideAsciiCost = 5 * costsPerBit;
constexpr int errorCost = 28 * costsPerBit;

// Half-width kana in a row are a text of some sixty signs; the two marks change the sound of some.
constexpr int kanaInRowCost = 7 * costsPerBit, soundMarkCost = 3 * costsPerBit,
              straySoundMarkCost = 20 * costsPerBit;

bool IsHalfWidthKana(char16_t unit) {
    return unit >= 0xFF66 && unit <= 0xFF9F;
}

int KanaCost(char16_t before, char16_t kana) {
    constexpr char16_t voiced = 0xFF9E;
    const bool takesVoicedMark = before == 0xFF73 || (before >= 0xFF76 && before <= 0xFF84);
    const bool takesBoth = before >= 0xFF8A && before <= 0xFF8E;
    if (kana < voiced) return kanaInRowCost;
    return takesBoth || (takesVoicedMark && kana == voiced) ? soundMarkCost : straySoundMarkCost;
}

bool IsAsciiLetter(char16_t unit) {
    return (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z';
}
} // namespace

CharacterCosts::CharacterCosts(CharacterLanguage language)
    : costs_(std::make_unique<unsigned char[]>(0x10000)) {
    std::fill_n(costs_.get(), 0x10000, static_cast<unsigned char>(errorCost));
    std::fill_n(costs_.get(), 0x80, static_cast<unsigned char>(0));
    for (const RangeCost& range : rangeCosts)
        std::fill(costs_.get() + range.first, costs_.get() + range.last + 1,
                  static_cast<unsigned char>(range.bits * costsPerBit));
    for (const CharacterModel::Band& band : characterModels[language].bands)
        for (const char16_t* unit = band.characters; *unit != 0; ++unit)
            costs_[*unit] = static_cast<unsigned char>(band.cost);
}

int CharacterCosts::Cost(std::u16string_view text, int limit) const {
    int cost = 0;
    char16_t before = u'\n';
    for (const char16_t unit : text) {
        // The same cost as in charsets of single bytes.
        if (IsAsciiLetter(unit))
            cost += before < 0x80 ? AsciiShare(asciiLetterCost) : asciiLetterCost + besideAsciiCost;
        else if (unit >= 0x80 && IsAsciiLetter(before))
            cost += besideAsciiCost;
        const bool isKanaInRow = IsHalfWidthKana(unit) && IsHalfWidthKana(before);
        cost += isKanaInRow ? KanaCost(before, unit) : costs_[unit];
        if (cost >= limit) return cost;
        before = unit;
    }
    return cost;
}
