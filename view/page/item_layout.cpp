#include "view/page/item_layout.h"

#include "view/page/table_layout.h"

#include <algorithm>
#include <utility>

std::vector<PageBoxId> ItemLayout::Items() const {
    std::vector<PageBoxId> items;
    for (PageBoxId id = layouter_.Boxes().FirstChild(container_); id != noPageBox;
         id = layouter_.Box(id).nextSibling)
        items.push_back(id);
    return items;
}

CssAlignItems ItemLayout::Alignment(PageBoxId item) const {
    const CssAlignItems own = StyleOf(item).rare->alignSelf;
    return own == CssAlignItems::Auto ? StyleOf(container_).rare->alignItems : own;
}

double ItemLayout::Sides(PageBoxId item) const {
    return layouter_.Measure().SideMargins(StyleOf(item), width_) +
           layouter_.Measure().SideInsets(StyleOf(item), width_);
}

bool ItemLayout::MayBeNarrow(PageBoxId item) const {
    const CssBoxStyle& style = StyleOf(item);
    return !style.minWidth.IsAuto() || style.overflow != CssOverflow::Visible;
}

PageFragmentPtr ItemLayout::LayOut(PageBoxId item, double left, double width) {
    const PageBox& box = layouter_.Box(item);
    if (box.kind == PageBoxKind::Picture) return layouter_.LayOutPicture(item, width_);
    if (box.kind == PageBoxKind::Table) return LayOutTable(layouter_, item, width);
    return layouter_.LayOutBlock(item, std::max(0.0, width - Sides(item)), width_,
                                 PositionedFrom(box, left));
}

std::optional<InlineEdges> ItemLayout::PositionedFrom(const PageBox& box, double left) const {
    const BoxMeasure& measure = layouter_.Measure();
    left += measure.Margin(*box.style, cssLeft, width_);
    const CssBoxStyle& around = StyleOf(container_);
    if (around.position != CssPosition::Static)
        return InlineEdges{-left - measure.Length(around.padding[cssLeft], width_),
                           width_ - left + measure.Length(around.padding[cssRight], width_)};
    if (!positioned_) return {};
    return InlineEdges{positioned_->left - left, positioned_->right - left};
}

double ItemLayout::Width(PageBoxId item, const PageFragment& fragment) const {
    return layouter_.Measure().SideMargins(StyleOf(item), width_) + fragment.width;
}

double ItemLayout::Height(PageBoxId item, const PageFragment& fragment) const {
    const BoxMeasure& measure = layouter_.Measure();
    return measure.Margin(StyleOf(item), cssTop, width_) + fragment.height +
           measure.Margin(StyleOf(item), cssBottom, width_);
}

void ItemLayout::Place(PageBoxId item, PageFragmentPtr fragment, double left, double top,
                       PageFragment& result) const {
    const CssBoxStyle& style = StyleOf(item);
    const BoxMeasure& measure = layouter_.Measure();
    const auto shift = measure.RelativeShift(style, *layouter_.Box(container_).text, width_);
    result.parts.push_back({left + measure.Margin(style, cssLeft, width_) + shift.x,
                            top + measure.Margin(style, cssTop, width_) + shift.y,
                            std::move(fragment)});
}
