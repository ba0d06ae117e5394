#include "reading/place_gap.h"

#include "common/unicode.h"
#include "reading/text_letters.h"

#include <algorithm>

namespace {
constexpr TextPos maxGap = 512; // units looked at

bool IsLetter(char16_t unit) {
    return LettersOfUnits()[unit] != 0;
}

// The units after the last letter, and those before the first one.
std::u16string_view WithoutLettersAtEnd(std::u16string_view units) {
    std::size_t start = units.size();
    while (start > 0 && !IsLetter(units[start - 1]))
        --start;
    return units.substr(start);
}
std::u16string_view WithoutLettersAtStart(std::u16string_view units) {
    const auto letter = std::ranges::find_if(units, IsLetter);
    return units.substr(0, static_cast<std::size_t>(letter - units.begin()));
}

std::size_t CountSigns(std::u16string_view units) { // all but white space
    return static_cast<std::size_t>(
        std::ranges::count_if(units, [](char16_t unit) { return !IsSpaceCharacter(unit); }));
}

// After as many signs as stood before the place. A place at a sign is after the white space that
// follows them, one in white space after as many line ends as it was, so that an empty line is
// found; where there are fewer, at the start of the line that they lead to.
std::size_t AfterSigns(std::u16string_view gap, std::u16string_view head, char16_t unit) {
    std::size_t at = 0;
    for (std::size_t signs = CountSigns(head); at < gap.size() && signs > 0; ++at)
        if (!IsSpaceCharacter(gap[at])) --signs;
    if (!IsSpaceCharacter(unit)) {
        while (at < gap.size() && IsSpaceCharacter(gap[at]))
            ++at;
        return at;
    }
    auto ends = std::count(head.begin(), head.end(), u'\n');
    for (std::size_t i = at; i < gap.size() && IsSpaceCharacter(gap[i]); ++i) {
        if (ends == 0 && (gap[i] == u'\n') == (unit == u'\n')) return i;
        if (gap[i] != u'\n') continue;
        if (--ends < 0) break;
        at = i + 1;
    }
    return at;
}

// Before the signs that stand right before the letter after the place.
std::size_t BeforeSigns(std::u16string_view gap, std::size_t signs) {
    std::size_t at = gap.size();
    while (at > 0 && signs > 0 && !IsSpaceCharacter(gap[at - 1])) {
        --at;
        --signs;
    }
    return at;
}
} // namespace

TextPos PlaceInGap(const TextSource& text, TextPos from, TextPos to, const PlaceWords& words) {
    const std::u16string_view head = WithoutLettersAtEnd(words.before);
    const std::u16string_view tail = WithoutLettersAtStart(words.after);
    if (tail.empty()) return to;
    const std::u16string gap = text.Range(from, std::min(to, from + maxGap));
    if (gap == std::u16string(head) + std::u16string(tail))
        return from + static_cast<TextPos>(head.size());
    const bool joinsWord = std::ranges::none_of(tail, IsSpaceCharacter);
    if (joinsWord && to - from <= maxGap)
        return from + static_cast<TextPos>(BeforeSigns(gap, tail.size()));
    return from + static_cast<TextPos>(AfterSigns(gap, head, tail.front()));
}
