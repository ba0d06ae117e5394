#include "reading/place_words.h"

#include "common/char_refs.h"
#include "common/text.h"
#include "common/unicode.h"
#include "common/utf.h"

#include <algorithm>

namespace {
constexpr TextPos lookedAt = 512;     // units on each side: enough for words among white space
constexpr std::size_t maxAsItIs = 16; // white space right at the place

// From the place onwards; `units` is what follows it.
std::u16string FoldedFromPlace(std::u16string_view units) {
    std::size_t at = 0;
    while (at < std::min(units.size(), maxAsItIs) && IsSpaceCharacter(units[at]))
        ++at;
    std::u16string folded(units.substr(0, at));
    for (; at < units.size() && folded.size() < maxWordsLength; ++at) {
        const bool space = IsSpaceCharacter(units[at]);
        if (!space)
            folded += units[at];
        else if (!folded.empty() && !IsSpaceCharacter(folded.back()))
            folded += u' ';
    }
    return folded;
}
} // namespace

PlaceWords WordsAround(const TextSource& text, TextPos place) {
    place = std::clamp(place, 0, text.Length());
    std::u16string before = text.Range(place - lookedAt, place);
    std::ranges::reverse(before);
    PlaceWords words{FoldedFromPlace(before), FoldedFromPlace(text.Range(place, place + lookedAt))};
    std::ranges::reverse(words.before);
    // A pair is kept whole or not at all: half of one is no text.
    if (!words.before.empty() && IsLowSurrogate(words.before.front())) words.before.erase(0, 1);
    if (!words.after.empty() && IsHighSurrogate(words.after.back())) words.after.pop_back();
    return words;
}

namespace {
// "|" is the place, a reference stands for what a line cannot hold, and blanks at the ends and
// quotes around a value would not be part of it.
std::u16string Stored(std::u16string_view words) {
    constexpr std::u16string_view special = u"|&\"'";
    std::u16string stored;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const char16_t unit = words[i];
        const bool inside = i > 0 && i + 1 < words.size();
        const bool plain = unit > u' ' && special.find(unit) == special.npos;
        if (plain || (unit == u' ' && inside))
            stored += unit;
        else
            stored += u"&#" + NumberText(unit) + u";";
    }
    return stored;
}
} // namespace

std::u16string StoredWords(const PlaceWords& words) {
    return Stored(words.before) + u'|' + Stored(words.after);
}

std::optional<PlaceWords> ParseWords(std::u16string_view stored) {
    const auto parts = Split(stored, u"|");
    if (parts.size() != 2) return std::nullopt;
    return PlaceWords{DecodeCharRefs(parts[0]), DecodeCharRefs(parts[1])};
}
