// Where a laid-out zone of a page can be cut for paper.
#pragma once

#include "view/page/page_fragment.h"

#include <vector>

// What is not to be cut; device pixels from the zone's top.
struct SolidSpan {
    enum class Kind { Line, Picture, Part, Kept };
    int top = 0, bottom = 0;
    Kind kind = Kind::Line;
};

// Kept are the first two lines of a paragraph, and its last two. Lines, pictures, and parts that
// stand by themselves, as cells and floats do, in no order. A part with other parts in it, as a
// table has rows, is one when it is small.
std::vector<SolidSpan> SolidSpans(const PageFragment& fragment, int pageHeight);

// Of a table that reaches over sheets.
struct TableHead {
    int top = 0, bottom = 0, tableBottom = 0;
};

// The outer tables first. One that takes too much of a sheet is none.
std::vector<TableHead> TableHeads(const PageFragment& fragment, int pageHeight);

// The lowest place at or above `limit` that is within none of the spans; `from` for none.
int CutBetween(const std::vector<SolidSpan>& spans, SolidSpan::Kind upTo, int from, int limit);
