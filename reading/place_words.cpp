#include "reading/place_words.h"

#include "common/char_refs.h"
#include "common/text.h"
#include "common/unicode.h"
#include "common/utf.h"
#include "reading/stored_text.h"

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

std::u16string StoredWords(const PlaceWords& words) {
    // "|" is the place.
    return StoredText(words.before, StoredBlanks::InnerAsTheyAre) + u'|' +
           StoredText(words.after, StoredBlanks::InnerAsTheyAre);
}

std::optional<PlaceWords> ParseWords(std::u16string_view stored) {
    const auto parts = Split(stored, u"|");
    if (parts.size() != 2) return std::nullopt;
    return PlaceWords{DecodeCharRefs(parts[0]), DecodeCharRefs(parts[1])};
}
