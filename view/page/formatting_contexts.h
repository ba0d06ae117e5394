// How what is in a box is laid out, by the display of the box: in a flow of blocks, as flex items,
// in a grid, in columns, as a table, above a word.
//
// The layouter of boxes knows this alone, and the layouts know the layouter: boxes are in boxes.
#pragma once

#include "view/page/flex_sizes.h"
#include "view/page/page_fragment.h"

#include <optional>
#include <vector>

class PageLayouter;

// With a content of this width, added to `result`. Returns the content's height.
double LayOutContent(PageLayouter& layouter, PageBoxId container, double width,
                     std::optional<InlineEdges> positioned, PageFragment& result);
// Of a fieldset, which is laid out apart, as its border has it; noPageBox without one.
PageBoxId LegendOf(const PageBoxes& boxes, PageBoxId fieldset);
// A table or a ruby.
PageFragmentPtr LayOutAtomic(PageLayouter& layouter, PageBoxId box, double containing);
// Of the content.
WidthExtent ExtentOfContent(PageLayouter& layouter, PageBoxId container);

// The places of items that stand beside one that is too long, itself among them, in a container
// with a content of this width.
std::vector<ItemPlace> RowOfLongItem(PageLayouter& layouter, PageBoxId item, double width);
