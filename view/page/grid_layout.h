// Lays out the items of a grid container in columns and rows (CSS Grid 1). Where not even the
// narrowest columns fit beside each other the items stand one below the other.
#pragma once

#include "view/page/page_layouter.h"

bool IsGridContainer(const PageBox& box);

// With a content of this width; the items are added to `result`. Answers the content's height.
double LayOutGrid(PageLayouter& layouter, PageBoxId container, double width,
                  std::optional<InlineEdges> positioned, PageFragment& result);
// Of its content.
WidthExtent GridExtentOf(PageLayouter& layouter, PageBoxId container);
