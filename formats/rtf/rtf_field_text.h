// Fields of rich text that say themselves what they show (RTF 1.9.1): signs, quotations and simple
// equations.
#pragma once

#include <string>
#include <string_view>

// What the field shows when the file has no result for it: the sign of SYMBOL, the text of QUOTE,
// the parts of EQ in one line, of what is set over each other the base alone. "" for other fields.
std::u16string TextOfField(std::u16string_view instruction);
