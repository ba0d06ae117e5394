// Alignment of the letters around a place with a stretch of text, by their edit distance.
#pragma once

#include <cstddef>
#include <string_view>

struct LetterAlignment {
    std::size_t split = 0;             // the place: index in the stretch
    int costBefore = 0, costAfter = 0; // letters changed, added or missing on each side
    // Letters that stand right at the place on each side as they were.
    std::size_t sameBefore = 0, sameAfter = 0;

    int Cost() const { return costBefore + costAfter; }
};

// `letters` with the place at `split`, in a stretch in which they are expected to begin at `start`,
// give or take `maxShift`. The stretch may go on at both ends.
LetterAlignment AlignLetters(std::u16string_view letters, std::size_t split,
                             std::u16string_view stretch, std::size_t start, std::size_t maxShift);
