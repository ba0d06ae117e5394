// Fields whose result follows from their instruction (RTF 1.9.1): symbols, quotations and simple
// equations.
#pragma once

#include <string>
#include <string_view>

// The result of a field that has none in the file: the character of SYMBOL, the text of QUOTE, the
// elements of EQ in one line, of an overstrike (ruby) the base only. "" for other fields.
std::u16string TextOfField(std::u16string_view instruction);

// The file that INCLUDEPICTURE names; "" for other fields.
std::u16string PictureFileOfField(std::u16string_view instruction);
