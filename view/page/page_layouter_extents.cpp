#include "view/page/page_layouter.h"

#include "view/page/formatting_contexts.h"

#include <algorithm>
#include <cmath>

namespace {
// Many more than the boxes of what is laid out in one go.
constexpr std::size_t maxExtents = 32 * 1024;
} // namespace

WidthExtent PageLayouter::ExtentOfBox(PageBoxId id) {
    const CssBoxStyle& style = *boxes_[id].style;
    WidthExtent extent;
    const double given = measure_.GivenWidth(style, 0);
    if (boxes_[id].kind == PageBoxKind::Picture)
        extent = PictureExtent(id);
    else if (style.width.kind == CssLength::Kind::Pixels && given >= 0 &&
             boxes_[id].kind != PageBoxKind::Cell) // whose table may be too narrow for it
        extent.min = extent.max = given;
    else
        extent = ContentExtent(id);
    const double sides = measure_.SideInsets(style, 0) + measure_.SideMargins(style, 0);
    return {extent.min + sides, extent.max + sides};
}

// Some words beside each other, and as much as there is.
WidthExtent PageLayouter::LongItemExtent(PageBoxId id) const {
    constexpr double minLetters = 12, max = 1e6;
    return {minLetters * boxes_[id].text->fontSize * measure_.Scale(), max};
}

// A percentage is of a width that is not known yet: such a picture asks for its own width, and may
// become as narrow as needed. The text that stands for a picture may be broken between its words.
WidthExtent PageLayouter::PictureExtent(PageBoxId id) {
    CssBoxStyle style = *boxes_[id].style;
    const auto isShare = [](const CssLength& length) {
        return length.kind == CssLength::Kind::Percent || length.kind == CssLength::Kind::Sum;
    };
    const bool isElastic = isShare(style.width) || isShare(style.maxWidth);
    for (CssLength* length : {&style.width, &style.minWidth, &style.maxWidth})
        if (isShare(*length)) *length = {};
    if (measure_.GivenWidth(style, 0) < 0 && content_.PictureSize(id).IsEmpty())
        if (const auto alternative = content_.AlternativeOf(id)) {
            const WidthExtent words = ExtentOf(lines_, *alternative);
            return {isElastic ? 0 : measure_.LimitWidth(style, 0, words.min),
                    measure_.LimitWidth(style, 0, words.max)};
        }
    const double width = PictureContentSize(id, style, 0).width;
    return {isElastic ? 0 : width, width};
}

WidthExtent PageLayouter::ContentExtent(PageBoxId id) {
    const auto known = extents_.find(id);
    if (known != extents_.end()) return known->second;
    const WidthExtent extent = ExtentOfContent(*this, id);
    if (extents_.size() >= maxExtents) extents_.clear();
    return extents_[id] = extent;
}

// With the boxes in the lines as narrow as they can be, and as wide as they ask for.
WidthExtent PageLayouter::LinesExtent(PageBoxId lines) {
    const LinesText text = content_.TextOf(lines);
    text.content->textIndent = IndentOf(lines, 0);
    if (text.boxes.empty()) return ExtentOf(lines_, *text.content);
    const std::vector<InlineBox> gaps = text.content->text.boxes;
    const auto measure = [&](double WidthExtent::*width) {
        text.content->text.boxes = gaps;
        text.content->floats.clear();
        for (const LinesText::Place& place : text.boxes) {
            if (IsOutOfFlow(*boxes_[place.box].style)) continue;
            const double box = ExtentOfBox(place.box).*width;
            if (place.hasUnit)
                text.content->text.boxes.push_back({place.at, int(std::ceil(box))});
            else
                text.content->floats.push_back({place.at, FloatSide::Left, box, 0, false, false});
        }
        SortBoxes(text.content->text.boxes);
        return ExtentOf(lines_, *text.content).*width;
    };
    return {measure(&WidthExtent::min), measure(&WidthExtent::max)};
}
