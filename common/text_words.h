// Words of a text, and where lines may break between them. A small part of Unicode's annexes 29 and
// 14: scripts without spaces (Thai, Khmer) have no words here but what is between spaces.
#pragma once

#include "common/geometry.h"

#include <string_view>
#include <vector>

// What a double click selects starts there: words, stretches of spaces, other characters one by
// one. With the text's length at the end.
std::vector<TextPos> WordBoundaries(std::u16string_view text);
// Where Ctrl and an arrow stop: at words, and at punctuation after a space or a word.
std::vector<TextPos> WordStarts(std::u16string_view text);

// Spaces that lines break after, and that have no width at a line's end.
bool IsBreakingSpace(char16_t);
// For each unit whether a line may start with it; not within a character.
std::vector<bool> LineBreaks(std::u16string_view text);
