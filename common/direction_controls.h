// Characters that turn the direction of the text around them.
#pragma once

#include <string>
#include <string_view>

// Text from outside, to stand in a line of ours: without embeddings, overrides and isolates, which
// would reorder what stands beside it and show a name backwards. Letters and marks of direction
// (U+200E, U+200F) stay: they order nothing but their own text.
std::u16string WithoutDirectionControls(std::u16string);

// Whether a text has letters that are written from right to left; and whether its first letter is.
bool HasRightToLeft(std::u16string_view);
bool IsRightToLeft(std::u16string_view);

// A path, to stand in a line from left to right with its folders in their order, whatever they are
// called; and a text of its own direction. Without the controls for isolates, which older fonts
// show as boxes.
std::u16string DirectedPath(std::u16string_view path);
std::u16string DirectedText(std::u16string_view text);
// Words and numbers in a line from left to right, each word in its own direction: the date
// "2026 Jul 21" with a Hebrew month.
std::u16string DirectedWords(std::u16string_view words);
