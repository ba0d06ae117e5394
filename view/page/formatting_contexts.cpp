#include "view/page/formatting_contexts.h"

#include "view/page/block_flow.h"
#include "view/page/flex_layout.h"
#include "view/page/flow_leaf.h"
#include "view/page/grid_layout.h"
#include "view/page/multi_columns.h"
#include "view/page/ruby_layout.h"
#include "view/page/table_layout.h"

#include <algorithm>

PageBoxId LegendOf(const PageBoxes& boxes, PageBoxId fieldset) {
    const PageBox& box = boxes[fieldset];
    if (!box.isFieldset) return noPageBox;
    const bool isFlow = !IsFlexContainer(box) && !IsGridContainer(box) && !HasColumns(box);
    const PageBoxId first = boxes.FirstChild(fieldset);
    return isFlow && boxes[first].isLegend && StandsAlone(boxes[first]) ? first : noPageBox;
}

double LayOutContent(PageLayouter& layouter, PageBoxId container, double width,
                     std::optional<InlineEdges> positioned, PageFragment& result) {
    const PageBox& box = layouter.Box(container);
    if (IsFlexContainer(box)) return LayOutFlex(layouter, container, width, positioned, result);
    if (IsGridContainer(box)) return LayOutGrid(layouter, container, width, positioned, result);
    if (HasColumns(box)) return LayOutInColumns(layouter, container, width, positioned, result);
    BlockFlow flow(layouter, container, {0, width}, result, positioned);
    const PageBoxId legend = LegendOf(layouter.Boxes(), container);
    if (legend != noPageBox) flow.LeaveOut({legend});
    flow.LayOutContent();
    flow.Finish();
    return flow.Bottom();
}

PageFragmentPtr LayOutAtomic(PageLayouter& layouter, PageBoxId box, double containing) {
    return layouter.Box(box).kind == PageBoxKind::Ruby ? LayOutRuby(layouter, box, containing)
                                                       : LayOutTable(layouter, box, containing);
}

namespace {
WidthExtent ExtentOfChildren(PageLayouter& layouter, PageBoxId container) {
    const PageBoxes& boxes = layouter.Boxes();
    WidthExtent widest;
    for (PageBoxId child = boxes.FirstChild(container); child != noPageBox;
         child = boxes[child].nextSibling) {
        const WidthExtent extent = layouter.ExtentOfBox(child);
        widest = {std::max(widest.min, extent.min), std::max(widest.max, extent.max)};
    }
    return widest;
}
} // namespace

WidthExtent ExtentOfContent(PageLayouter& layouter, PageBoxId container) {
    const PageBox& box = layouter.Box(container);
    if (box.kind == PageBoxKind::Table) return TableExtentOf(layouter, container);
    if (box.kind == PageBoxKind::Ruby) return RubyExtentOf(layouter, container);
    if (IsFlexContainer(box)) return FlexExtentOf(layouter, container);
    if (IsGridContainer(box)) return GridExtentOf(layouter, container);
    const WidthExtent extent = box.kind == PageBoxKind::Lines
                                   ? layouter.LinesExtent(container)
                                   : ExtentOfChildren(layouter, container);
    return HasColumns(box) ? ExtentInColumns(layouter, container, extent) : extent;
}

std::vector<ItemPlace> RowOfLongItem(PageLayouter& layouter, PageBoxId item, double width) {
    const PageBoxId container = layouter.Box(item).parent;
    return IsFlexContainer(layouter.Box(container)) ? FlexRowOf(layouter, container, width, item)
                                                    : GridRowOf(layouter, container, width, item);
}
