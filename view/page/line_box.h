// How high a line is, and where in it its baseline (CSS 2.1, 10.8).
#pragma once

#include "view/page/inline_content.h"

struct LineBox {
    double above = 0, below = 0; // of the baseline
    double Height() const { return above + below; }
};

// Of the units of a line. A line is at least as high as the block's own font asks for.
LineBox LineBoxOf(LineLayout& system, const InlineContent& content, TextPos start, TextPos end);
LineBox StrutBox(LineLayout& system, const InlineContent& content);
// Of an atom in a line of that box, from the line's top.
double AtomTop(const InlineContent& content, const InlineAtom& atom, const LineBox& line);
