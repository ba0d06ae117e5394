// The letters of a text, by which places are found again: digits and letters alone, without case.
// White space, punctuation and marks are left out, since they are what a new edition, another line
// width or another format changes.
#pragma once

#include "common/text_source.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

// What a unit counts as; 0 for one that is left out.
using LetterTable = std::array<char16_t, 0x10000>;
const LetterTable& LettersOfUnits(); // made when it is first asked for

std::u16string LettersOf(std::u16string_view units);

// Letters and where each of them stands.
struct PlacedLetters {
    std::u16string letters;
    std::vector<TextPos> positions; // as many
};

// Those before and from `position` on, as many as are asked for where the text has them within
// some thousand units. `split` is the index of the first one that stands at `position` or later.
PlacedLetters LettersAround(const TextSource&, TextPos position, std::size_t before,
                            std::size_t after, std::size_t& split);
