// Where laid-out text is divided into columns that are as high as each other.
#pragma once

#include "view/page/page_fragment.h"

#include <vector>

// What stays together, of heights in the text.
struct ColumnChunk {
    double top = 0, bottom = 0;
};

struct ColumnBreaks {
    std::vector<ColumnChunk> columns; // in which heights of the text each is
    double height = 0;                // of the highest
};

// From above to below; none overlap. In columns of the box `container`.
std::vector<ColumnChunk> ColumnChunksOf(const PageFragment& text, const PageBoxes& boxes,
                                        PageBoxId container);
// `textHeight` is that of the text with all its margins.
ColumnBreaks Balanced(const std::vector<ColumnChunk>& chunks, std::size_t columns,
                      double textHeight);
