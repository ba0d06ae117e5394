// Choosing another script for an 8-bit book: its bytes are decoded again, and places move to the
// same bytes.
#pragma once

#include "platform/geometry.h"

#include <string_view>
#include <vector>

struct MainForm;

// Reads the shown book again in the charset of the view's font, when it is plain text in a code
// page. Top line, caret and bookmarks stay on the same text. Nothing happens to a book in Unicode
// or rich text.
void ReadInCharset(MainForm&);

// Moves positions in a text decoded with `fromPage` to the same bytes decoded with `toPage`. A line
// end of two bytes counts one; positions behind the end go to the end.
std::vector<TextPos> PositionsInCodePage(std::string_view bytes, int fromPage, int toPage,
                                         const std::vector<TextPos>& positions);
