#include "reading/text_letters.h"

#include "common/find_text.h"
#include "common/text.h"
#include "common/unicode.h"
#include "common/utf.h"

#include <algorithm>
#include <memory>

namespace {
char16_t LetterOf(char16_t unit) {
    constexpr char16_t object = 0xFFFC, replacement = 0xFFFD; // a picture; bytes without a meaning
    if (IsSurrogate(unit)) return unit;
    const bool counts = IsWordUnit(unit) && unit != u'_' && unit != object && unit != replacement &&
                        !IsMarkOrFormat(unit);
    return counts ? FoldCase(unit) : u'\0';
}
} // namespace

const LetterTable& LettersOfUnits() {
    static const auto table = [] {
        auto letters = std::make_unique<LetterTable>();
        for (std::size_t unit = 0; unit < letters->size(); ++unit)
            (*letters)[unit] = LetterOf(static_cast<char16_t>(unit));
        return letters;
    }();
    return *table;
}

std::u16string LettersOf(std::u16string_view units) {
    const LetterTable& table = LettersOfUnits();
    std::u16string letters;
    for (const char16_t unit : units)
        if (table[unit] != 0) letters += table[unit];
    return letters;
}

namespace {
constexpr TextPos maxLookedAt = 8 << 10; // units on one side

// In the order of the text, at most `count`: the last ones before `position`.
void AddBefore(const TextSource& text, TextPos position, std::size_t count, PlacedLetters& placed) {
    const LetterTable& table = LettersOfUnits();
    TextPos looked = static_cast<TextPos>(count) * 3 / 2 + 16;
    for (;; looked *= 4) {
        looked = std::min({looked, maxLookedAt, position});
        const std::u16string units = text.Range(position - looked, position);
        placed = {};
        for (std::size_t i = units.size(); i-- > 0 && placed.letters.size() < count;)
            if (const char16_t letter = table[units[i]]) {
                placed.letters += letter;
                placed.positions.push_back(position - looked + static_cast<TextPos>(i));
            }
        if (placed.letters.size() == count || looked == position || looked == maxLookedAt) break;
    }
    std::ranges::reverse(placed.letters);
    std::ranges::reverse(placed.positions);
}

void AddAfter(const TextSource& text, TextPos position, std::size_t count, PlacedLetters& placed) {
    const LetterTable& table = LettersOfUnits();
    const std::size_t wanted = placed.letters.size() + count;
    const TextPos end = std::min(text.Length(), position + maxLookedAt);
    while (position < end && placed.letters.size() < wanted) {
        const TextPos missing = static_cast<TextPos>(wanted - placed.letters.size());
        const TextPos to = std::min(end, position + missing * 3 / 2 + 16);
        const std::u16string units = text.Range(position, to);
        for (std::size_t i = 0; i < units.size() && placed.letters.size() < wanted; ++i)
            if (const char16_t letter = table[units[i]]) {
                placed.letters += letter;
                placed.positions.push_back(position + static_cast<TextPos>(i));
            }
        position = to;
    }
}
} // namespace

PlacedLetters LettersAround(const TextSource& text, TextPos position, std::size_t before,
                            std::size_t after, std::size_t& split) {
    PlacedLetters placed;
    position = std::clamp(position, 0, text.Length());
    AddBefore(text, position, before, placed);
    split = placed.letters.size();
    AddAfter(text, position, after, placed);
    return placed;
}
