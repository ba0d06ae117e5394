// Items that are as high as their row, and flex containers among them.
#include "view/page/item_layout.h"

#include <algorithm>

namespace {
// Of a flex container or its content, which have no lines and pictures of their own.
std::shared_ptr<PageFragment> CopyOf(const PageFragment& fragment) {
    auto copy = std::make_shared<PageFragment>();
    copy->width = fragment.width;
    copy->height = fragment.height;
    copy->boxes = fragment.boxes;
    copy->parts = fragment.parts;
    return copy;
}
} // namespace

PageFragmentPtr ItemLayout::StretchedTo(PageBoxId item, PageFragmentPtr fragment,
                                        double height) const {
    const PageBoxKind kind = layouter_.Box(item).kind;
    const CssBoxStyle& style = StyleOf(item);
    const bool isBlock = kind == PageBoxKind::Block || kind == PageBoxKind::Lines;
    if (!isBlock || !style.height.IsAuto() || !style.maxHeight.IsAuto()) return fragment;
    if (style.margin[cssTop].IsAuto() || style.margin[cssBottom].IsAuto()) return fragment;
    const double free = height - Height(item, *fragment);
    PageFragmentPtr stretched = Stretched(fragment, fragment->height + free);
    if (stretched == fragment || !IsFlexContainer(layouter_.Box(item))) return stretched;
    auto shared = CopyOf(*stretched);
    PlacedPart& content = shared->parts.back();
    const ItemLayout inner(layouter_, item, content.fragment->width, {});
    content.fragment = inner.Shared(*content.fragment, free);
    return shared;
}

// The content of the container with so much more height, as its style shares it among the items.
PageFragmentPtr ItemLayout::Shared(const PageFragment& content, double free) const {
    auto shared = CopyOf(content);
    shared->height += free;
    std::vector<PageBoxId> items = Items();
    if (shared->parts.size() != items.size()) return shared;
    const CssRareStyle& style = *StyleOf(container_).rare;
    if (style.flexDirection == CssFlexDirection::ColumnReverse) std::ranges::reverse(items);
    if (style.flexDirection >= CssFlexDirection::Column)
        ShareInColumn(items, free, shared->parts);
    else if (style.flexWrap == CssFlexWrap::NoWrap)
        ShareInRow(items, free, shared->parts);
    return shared;
}

void ItemLayout::ShareInRow(const std::vector<PageBoxId>& items, double free,
                            std::vector<PlacedPart>& parts) const {
    for (std::size_t i = 0; i < items.size(); ++i) {
        PlacedPart& part = parts[i];
        switch (Alignment(items[i])) {
        case CssAlignItems::Center: part.top += free / 2; break;
        case CssAlignItems::End: part.top += free; break;
        case CssAlignItems::Stretch:
            part.fragment =
                StretchedTo(items[i], part.fragment, Height(items[i], *part.fragment) + free);
            break;
        default: break;
        }
    }
}

// Margins that are `auto` take it, else items that grow, else it is between the edges and all.
void ItemLayout::ShareInColumn(const std::vector<PageBoxId>& items, double free,
                               std::vector<PlacedPart>& parts) const {
    const auto margins = [&](PageBoxId item, CssSide side) {
        return StyleOf(item).margin[side].IsAuto() ? 1.0 : 0.0;
    };
    double autoMargins = 0, growing = 0;
    for (const PageBoxId item : items) {
        autoMargins += margins(item, cssTop) + margins(item, cssBottom);
        growing += std::max(0.0, double(StyleOf(item).rare->flexGrow));
    }
    const CssRareStyle& style = *StyleOf(container_).rare;
    const bool isUpwards = style.flexDirection == CssFlexDirection::ColumnReverse;
    const bool isTaken = autoMargins > 0 || growing > 0;
    const bool isAtEnd = !isTaken && style.justifyContent == CssJustifyContent::End;
    double lower = !isTaken && style.justifyContent == CssJustifyContent::Center ? free / 2
                   : isAtEnd != isUpwards && !isTaken                            ? free
                                                                                 : 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        PlacedPart& part = parts[i];
        if (autoMargins > 0) lower += free * margins(items[i], cssTop) / autoMargins;
        part.top += lower;
        if (autoMargins > 0) {
            lower += free * margins(items[i], cssBottom) / autoMargins;
        } else if (growing > 0) {
            const double extra = free * StyleOf(items[i]).rare->flexGrow / std::max(1.0, growing);
            part.fragment =
                StretchedTo(items[i], part.fragment, Height(items[i], *part.fragment) + extra);
            lower += extra;
        }
    }
}
