#include "view/page/page_layouter.h"

#include "view/page/block_flow.h"
#include "view/page/table_layout.h"

#include <algorithm>
#include <cmath>

bool HasVisibleBox(const PageBox& box) {
    if (box.node == noHtmlNode && !box.isFirstLetter) return false;
    const auto& borders = box.style->borderWidth;
    return !box.style->background.IsTransparent() ||
           std::any_of(borders.begin(), borders.end(), [](float width) { return width > 0; });
}

bool StandsAlone(const PageBox& box) {
    if (box.kind == PageBoxKind::Picture || box.kind == PageBoxKind::Table) return true;
    if (box.parent == noPageBox || box.isTooLong) return false; // the page, or as much of it
    const CssBoxStyle& style = *box.style;
    const auto isSet = [](const CssLength& length) {
        return length.kind == CssLength::Kind::Pixels;
    };
    return style.flowRoot || isSet(style.height) || isSet(style.minHeight) ||
           isSet(style.maxHeight);
}

bool IsFlowLeaf(const PageBoxes& boxes, PageBoxId id) {
    return boxes.IsEmpty(id) || boxes[id].kind == PageBoxKind::Lines || StandsAlone(boxes[id]);
}

// Of a block whose lines have this one. The height of a cell is its row's, in which its content is
// placed.
double PageLayouter::ContentHeight(const PageBox& box, const PageFragment& content,
                                   double natural) const {
    if (box.kind == PageBoxKind::Cell) return natural;
    const double given = measure_.GivenHeight(*box.style);
    // Nothing scrolls but the page as a whole, and nothing covers what follows: a height is the
    // least one for what can be seen. Books make room by more blank lines than the height has.
    const double height = given >= 0 ? given : measure_.LimitHeight(*box.style, natural);
    const bool isWhole = given >= 0 || box.style->overflow != CssOverflow::Visible;
    return isWhole && height < natural ? std::max(height, VisibleBottom(content)) : height;
}

PageFragmentPtr PageLayouter::LayOutBlock(PageBoxId id, double contentWidth, double containing) {
    const PageBox& box = boxes_[id];
    const BoxInsets insets = measure_.Insets(*box.style, containing);
    const double left = measure_.InsetLeft(*box.style, containing);
    auto fragment = std::make_shared<PageFragment>();
    fragment->width = contentWidth + measure_.SideInsets(*box.style, containing);
    if (HasVisibleBox(box)) fragment->boxes.push_back({id, 0, 0, fragment->width, 0, false, false});
    auto content = std::make_shared<PageFragment>();
    BlockFlow flow(*this, id, {0, contentWidth}, *content);
    flow.LayOutContent();
    flow.Finish();
    content->width = contentWidth;
    content->height = ContentHeight(box, *content, flow.Bottom());
    fragment->height = insets.Top() + content->height + insets.Bottom();
    for (PlacedBox& placed : fragment->boxes)
        placed.height = fragment->height;
    fragment->parts.push_back({left, insets.Top(), std::move(content)});
    return fragment;
}

PageFragmentPtr PageLayouter::LayOutShrunk(PageBoxId id, double containing) {
    const PageBox& box = boxes_[id];
    if (box.kind == PageBoxKind::Picture) return LayOutPicture(id, containing);
    const double margins = measure_.SideMargins(*box.style, containing);
    if (box.kind == PageBoxKind::Table) return LayOutTable(*this, id, containing - margins);
    double width = measure_.GivenWidth(*box.style, containing);
    if (width < 0) {
        const WidthExtent extent = ContentExtent(id);
        const double room = containing - margins - measure_.SideInsets(*box.style, containing);
        width = std::ceil(std::min(extent.max, std::max(extent.min, room)));
        width = measure_.LimitWidth(*box.style, containing, width);
    }
    return LayOutBlock(id, width, containing);
}

std::vector<double>& PageLayouter::SharedColumns(HtmlNodeId table, double available) {
    if (columns_.table != table || columns_.available != available)
        columns_ = {table, available, {}};
    return columns_.widths;
}
