// The words around a place: what it is found again by when its book has changed.
#pragma once

#include "common/text_source.h"

#include <optional>
#include <string>
#include <string_view>

// On each side up to `maxWordsLength` units, white space as one blank each but for what stands
// right at the place, which is as in the text.
struct PlaceWords {
    std::u16string before, after;

    bool IsEmpty() const { return before.empty() && after.empty(); }
    bool operator==(const PlaceWords&) const = default;
};

struct KnownPlace {
    TextPos position = 0; // in the text that the words are from
    PlaceWords words;     // empty: nothing is known
};

constexpr std::size_t maxWordsLength = 64;

PlaceWords WordsAround(const TextSource&, TextPos place);

// As the data file keeps them, in one line, with "|" at the place; and back, nothing for a line
// that has no "|" or more than that.
std::u16string StoredWords(const PlaceWords&);
std::optional<PlaceWords> ParseWords(std::u16string_view stored);
