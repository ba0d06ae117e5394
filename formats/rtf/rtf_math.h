// Formulas of rich text as one line of text (RTF 1.9.1, "Mathematics"; what is not given is as in
// Office Math Markup Language, ECMA-376 part 1, 22.1).
#pragma once

#include "formats/rtf/rtf_tokenizer.h"
#include "formats/rtf/rtf_words.h"

#include <string>

// What is shown around the content of a formula's part and is not in its text. 0 for nothing.
struct RtfMathSigns {
    std::u16string before;
    char16_t after = 0;
};

// `ahead` stands after the word that begins the part.
RtfMathSigns MathSignsOf(RtfWord part, RtfTokenizer ahead);
