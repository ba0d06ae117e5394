// Lays out the items of a flex container beside each other, or one below the other (CSS Flexible
// Box Layout 1). Nothing is cut or covered: items that do not fit beside each other even as narrow
// as they can be stand one below the other.
#pragma once

#include "view/page/flex_sizes.h"
#include "view/page/page_layouter.h"

// With a content of this width; the items are added to `result`. Returns the content's height.
double LayOutFlex(PageLayouter& layouter, PageBoxId container, double width,
                  std::optional<InlineEdges> positioned, PageFragment& result);
// The places of the items that stand in a row with this one, itself among them.
std::vector<ItemPlace> FlexRowOf(PageLayouter& layouter, PageBoxId container, double width,
                                 PageBoxId item);
// Of its content.
WidthExtent FlexExtentOf(PageLayouter& layouter, PageBoxId container);
