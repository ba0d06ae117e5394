#include "view/page/page_layouter.h"

#include "view/page/formatting_contexts.h"
#include "view/page/side_boxes.h"

#include <algorithm>
#include <cmath>

bool HasVisibleBox(const PageBox& box) {
    if (box.node == noHtmlNode && !box.isFirstLetter) return false;
    const auto& borders = box.style->borderWidth;
    return !box.style->background.IsTransparent() ||
           std::any_of(borders.begin(), borders.end(), [](float width) { return width > 0; });
}

namespace {
// A trick to make room below floats, in pages that were written for old browsers; what can be read
// is shown all the same, as nothing here would open it.
bool HidesItsContent(const CssBoxStyle& style) {
    const CssLength none = CssLength::Pixels(0);
    return style.overflow == CssOverflow::Hidden &&
           (style.height == none || style.maxHeight == none);
}
} // namespace

// Of a block whose lines have this one. The height of a cell is its row's, in which its content is
// placed.
double PageLayouter::ContentHeight(const PageBox& box, const PageFragment& content, double natural,
                                   double containing) const {
    if (box.kind == PageBoxKind::Cell) return natural;
    const double given = measure_.GivenHeight(*box.style);
    // Nothing scrolls but the page as a whole, and nothing covers what follows: a height is the
    // least one for what can be seen. Books make room by more blank lines than the height has.
    const double byShape = measure_.HeightByShape(*box.style, containing, content.width);
    const double height =
        given >= 0 ? given : measure_.LimitHeight(*box.style, std::max(natural, byShape));
    return height < natural ? std::max(height, VisibleBottom(content)) : height;
}

PageFragmentPtr PageLayouter::LayOutBlock(PageBoxId id, double contentWidth, double containing,
                                          std::optional<InlineEdges> positioned) {
    const PageBox& box = boxes_[id];
    const BoxInsets insets = measure_.Insets(*box.style, containing);
    const double left = measure_.InsetLeft(*box.style, containing);
    auto fragment = std::make_shared<PageFragment>();
    fragment->width = contentWidth + measure_.SideInsets(*box.style, containing);
    if (HasVisibleBox(box)) fragment->boxes.push_back({id, 0, 0, fragment->width, 0, false, false});
    auto content = std::make_shared<PageFragment>();
    if (positioned) positioned = {positioned->left - left, positioned->right - left};
    double bottom = LayOutContent(*this, id, contentWidth, positioned, *content);
    const PageBoxId legend = LegendOf(boxes_, id);
    content->width = contentWidth;
    if (HidesItsContent(*box.style) && !HasWords(*content)) {
        *content = {};
        content->width = contentWidth;
        bottom = 0;
    }
    content->height = ContentHeight(box, *content, bottom, containing);
    fragment->height = insets.Top() + content->height + insets.Bottom();
    for (PlacedBox& placed : fragment->boxes)
        placed.height = fragment->height;
    const double above = legend != noPageBox ? AddLegend(legend, left, contentWidth, *fragment) : 0;
    fragment->parts.push_back({left, insets.Top() + above, std::move(content)});
    return fragment;
}

// Half above the line of the fieldset's border and half below, with a gap in that; by how much its
// content is farther down.
double PageLayouter::AddLegend(PageBoxId legend, double left, double contentWidth,
                               PageFragment& fieldset) {
    const CssBoxStyle& style = *boxes_[legend].style;
    const PageBox& around = boxes_[boxes_[legend].parent];
    PageFragmentPtr block = LayOutShrunk(legend, contentWidth);
    const BoxEdges edges =
        measure_.OfWidth(style, *around.text, {left, left + contentWidth},
                         block->width - measure_.SideInsets(style, contentWidth));
    const double border = around.style->borderWidth[cssTop] * measure_.Scale();
    const double height = block->height;
    const double lower = std::max(0.0, (height - border) / 2); // than the top of the legend
    const double above =
        std::max(0.0, height + measure_.Margin(style, cssBottom, contentWidth) - border);
    fieldset.height += above;
    for (PlacedBox& placed : fieldset.boxes) {
        placed.top = lower;
        placed.height = fieldset.height - lower;
        placed.gapLeft = edges.border.left;
        placed.gapRight = edges.border.left + block->width;
    }
    fieldset.parts.push_back(
        {edges.border.left, std::max(0.0, (border - height) / 2), std::move(block)});
    return above;
}

PageFragmentPtr PageLayouter::LayOutShrunk(PageBoxId id, double containing) {
    const PageBox& box = boxes_[id];
    if (box.kind == PageBoxKind::Picture) return LayOutPicture(id, containing);
    if (box.kind == PageBoxKind::Table || box.kind == PageBoxKind::Ruby)
        return LayOutAtomic(*this, id, containing);
    return LayOutPositioned(id, containing, containing);
}

PageFragmentPtr PageLayouter::LayOutPositioned(PageBoxId id, double containing, double available) {
    const PageBox& box = boxes_[id];
    const CssBoxStyle& style = *box.style;
    if (box.kind == PageBoxKind::Picture || box.kind == PageBoxKind::Table)
        return LayOutShrunk(id, style.width.IsAuto() ? available : containing);
    double width = measure_.GivenWidth(style, containing);
    if (width < 0) {
        const double room = available - measure_.SideMargins(style, containing) -
                            measure_.SideInsets(style, containing);
        const bool fills = IsOutOfFlow(style) && style.width.IsAuto() &&
                           !style.inset[cssLeft].IsAuto() && !style.inset[cssRight].IsAuto();
        width = fills ? std::max(0.0, room) : WidthByContent(style.width, id, room);
        width = measure_.LimitWidth(style, containing, width);
    }
    return LayOutBlock(id, width, containing);
}

// As wide as the content within the room, unless the style asks for all or for the least.
double PageLayouter::WidthByContent(const CssLength& length, PageBoxId id, double room) {
    const WidthExtent extent = ContentExtent(id);
    if (length.kind == CssLength::Kind::MinContent) return std::ceil(extent.min);
    if (length.kind == CssLength::Kind::MaxContent) return std::ceil(extent.max);
    return std::ceil(std::min(extent.max, std::max(extent.min, room)));
}

BoxEdges PageLayouter::EdgesInFlow(PageBoxId id, PageBoxId around, InlineEdges room) {
    const PageBox& box = boxes_[id];
    const CssBoxStyle& style = *box.style;
    const CssInheritedStyle& text = *boxes_[around].text;
    if (box.isTooLong) return EdgesOfLong(id, text, room);
    const bool byWidth = style.width.IsOfContent(), byLimit = style.maxWidth.IsOfContent();
    if (!byWidth && !byLimit) return measure_.InFlow(style, text, room);
    const double free = room.Width() - measure_.SideMargins(style, room.Width()) -
                        measure_.SideInsets(style, room.Width());
    const double given = measure_.GivenWidth(style, room.Width());
    double width = byWidth ? WidthByContent(style.width, id, free) : given >= 0 ? given : free;
    if (byLimit) width = std::min(width, WidthByContent(style.maxWidth, id, free));
    return measure_.OfWidth(style, text, room, measure_.LimitWidth(style, room.Width(), width));
}

// It stands in the flow, where it would stand if it were laid out as one.
BoxEdges PageLayouter::EdgesOfLong(PageBoxId id, const CssInheritedStyle& around,
                                   InlineEdges room) {
    const CssBoxStyle& style = *boxes_[id].style;
    if (IsLongItem(boxes_, id)) {
        const std::vector<ItemPlace> row = RowOfLongItem(*this, id, room.Width());
        const auto own = std::ranges::find(row, id, &ItemPlace::item);
        if (row.size() > 1 && own != row.end()) {
            room = {room.left + own->place.left, room.left + own->place.left + own->place.width};
            const double sides = measure_.SideMargins(style, room.Width()) +
                                 measure_.SideInsets(style, room.Width());
            return measure_.OfWidth(style, around, room, std::max(0.0, room.Width() - sides));
        }
    }
    BoxEdges edges = measure_.InFlow(style, around, room);
    const double right = edges.border.right + edges.marginRight;
    if (style.floats == CssFloat::Right && right < room.right) {
        for (InlineEdges* each : {&edges.border, &edges.content}) {
            each->left += room.right - right;
            each->right += room.right - right;
        }
    }
    return edges;
}

std::vector<double>& PageLayouter::SharedColumns(HtmlNodeId table, double available) {
    if (columns_.table != table || columns_.available != available)
        columns_ = {table, available, {}};
    return columns_.widths;
}
