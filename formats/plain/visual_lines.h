// Lines that are kept in visual order, from left to right as they are seen, as Hebrew was before
// systems ordered it themselves; and the logical order in which they are read, searched and copied.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Of a longer line each stretch of this length is reordered by itself, so that no text has to be
// looked at as a whole. Lines in visual order have a line end for each line of a page.
constexpr std::size_t maxVisualStretch = 8192; // units

// Where the stretch that begins at `start` ends, with the line end if it has one.
std::size_t VisualStretchEnd(std::string_view bytes, std::size_t start);

// The stretches of a text in logical order, in place: length and line ends stay, brackets are
// mirrored.
void ReorderVisualLines(std::u16string& text);

// A word or phrase as it stands in a text in visual order.
std::u16string InVisualOrder(std::u16string_view logical);

// Places of a text in visual order and of the same text reordered.
std::size_t VisualPlaceOf(std::u16string_view visualText, std::size_t logicalPlace);
std::size_t LogicalPlaceOf(std::u16string_view visualText, std::size_t visualPlace);
