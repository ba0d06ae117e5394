// Lays out the items of a grid container in columns and rows (CSS Grid 1). Where not even the
// narrowest columns fit beside each other the items stand one below the other.
#pragma once

#include "view/page/flex_sizes.h"
#include "view/page/page_layouter.h"

// With a content of this width; the items are added to `result`. Returns the content's height.
double LayOutGrid(PageLayouter& layouter, PageBoxId container, double width,
                  std::optional<InlineEdges> positioned, PageFragment& result);
// The places of the items that stand beside this one, itself among them.
std::vector<ItemPlace> GridRowOf(PageLayouter& layouter, PageBoxId container, double width,
                                 PageBoxId item);
// Of its content.
WidthExtent GridExtentOf(PageLayouter& layouter, PageBoxId container);
