// The headings of a book: where its chapters begin.
#pragma once

#include "common/geometry.h"

#include <string>
#include <string_view>
#include <vector>

struct Heading {
    TextPos position = 0; // of its first character
    int level = 1;        // 1 is the highest, 9 the lowest
    std::u16string text;  // one line
    bool operator==(const Heading&) const = default;
};

constexpr std::size_t maxHeadings = 20'000;   // of a book
constexpr std::size_t maxHeadingLength = 120; // units of its text; the rest is left out

// The index of the last heading that begins at or before the position; -1 when there is none.
// `headings` are in the text's order.
int HeadingAbove(const std::vector<Heading>& headings, TextPos position);

// The indices of those that have what was typed in their texts, without regard to case; all when
// nothing was typed.
std::vector<int> MatchingHeadings(const std::vector<Heading>& headings, std::u16string_view typed);

// As a list shows it: lower ones further to the right.
std::u16string IndentedHeading(const Heading& heading);

// On one line: runs of blanks become one, and what is beyond the limit is left out.
std::u16string HeadingText(std::u16string_view text);
