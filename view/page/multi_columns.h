// Text in several columns beside each other (CSS Multi-column Layout 1), as high as each other.
//
// A page is one long scroll. So there are columns only where they are no higher than a window: of
// higher ones a reader would scroll down the first and up again to the second. Such text stands in
// one column, and what is longer than any window holds is not even laid out to find that out.
#pragma once

#include "view/page/page_layouter.h"

// In CSS pixels: what most windows show. A number of its own, and not the height of this window,
// because heights decide about nothing in the layout: a window made higher keeps its lines.
constexpr double maxColumnHeight = 900;
// Units of a text that may be in columns; a window full of small letters has fewer.
constexpr std::uint32_t maxUnitsInColumns = 16 * 1024;

bool HasColumns(const PageBox& box);

// With a content of this width, added to `result`. Returns the content's height.
double LayOutInColumns(PageLayouter& layouter, PageBoxId container, double width,
                       std::optional<InlineEdges> positioned, PageFragment& result);
// Of its content, where that of one column is known.
WidthExtent ExtentInColumns(const PageLayouter& layouter, PageBoxId container, WidthExtent column);
