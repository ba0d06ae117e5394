// The first letter of a block, with the punctuation around it (CSS 2.1, 5.12.2).
#pragma once

#include <cstddef>
#include <string_view>

// Units of a text.
struct LetterSpan {
    std::size_t start = 0, end = 0;
    bool IsEmpty() const { return start >= end; }
};

// After white space; empty in a text of nothing else.
LetterSpan FindFirstLetter(std::u16string_view text);
