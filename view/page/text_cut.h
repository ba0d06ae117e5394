// Where a text that is too long for one block of lines is divided.
#pragma once

#include "formats/css/css_style_values.h"

#include <cstddef>
#include <string_view>

bool KeepsSpaces(CssWhiteSpace whiteSpace);
bool KeepsBreaks(CssWhiteSpace whiteSpace);

// A place after `from` and not after `limit`, which is within the text. Best after a line break,
// which makes no difference to be seen; else after a space, else between two characters.
std::size_t TextCut(std::u16string_view text, std::size_t from, std::size_t limit,
                    CssWhiteSpace whiteSpace);
