#include "view/page/side_boxes.h"

#include "view/page/page_layouter.h"

#include <algorithm>

namespace {
constexpr std::size_t maxSideBoxes = 32;
// Lines that stand beside the text; a longer list stands where it is written.
constexpr int maxHeight = 1024;

bool IsSet(const CssBoxStyle& style, CssSide side) {
    return !style.inset[side].IsAuto();
}

bool IsToldFromTop(const CssBoxStyle& style) {
    return IsOutOfFlow(style) && style.inset[cssTop].kind == CssLength::Kind::Pixels &&
           (IsSet(style, cssLeft) || IsSet(style, cssRight));
}

// A line of a bar has some words.
int LinesIn(const PageBoxes& boxes, PageBoxId id) {
    constexpr std::uint32_t unitsOfLine = 32;
    std::uint32_t lines = 0;
    for (PageBoxId box = id; box < boxes[id].end && lines <= maxHeight; ++box)
        if (boxes[box].kind == PageBoxKind::Lines)
            lines += std::max<std::uint32_t>(1, boxes[box].units / unitsOfLine);
    return int(lines);
}

// Of the container's top and of a heading that it goes below.
int LinesAbove(const CssBoxStyle& style) {
    constexpr float lineHeight = 16; // CSS pixels
    constexpr int heading = 12;
    return heading +
           int(std::clamp(style.inset[cssTop].value / lineHeight, 0.0F, 1.0F * maxHeight));
}

PageBoxId ContainerOf(const PageBoxes& boxes, PageBoxId id, PageBoxId lines) {
    if (boxes[id].style->position == CssPosition::Fixed) return noPageBox;
    PageBoxId around = boxes[lines].parent;
    while (around != noPageBox && boxes[around].style->position == CssPosition::Static)
        around = boxes[around].parent;
    return around;
}
} // namespace

std::vector<SideBox> SideBoxesOf(const PageBoxes& boxes) {
    std::vector<SideBox> sides;
    const auto add = [&](PageBoxId lines) {
        for (PageBoxId id = boxes.FirstChild(lines); id != noPageBox; id = boxes[id].nextSibling) {
            if (sides.size() >= maxSideBoxes) return;
            if (!IsToldFromTop(*boxes[id].style)) continue;
            const int height = LinesAbove(*boxes[id].style) + LinesIn(boxes, id);
            if (height <= maxHeight)
                sides.push_back({id, lines, ContainerOf(boxes, id, lines), height});
        }
    };
    for (PageBoxId box = rootPageBox; box < boxes.End() && sides.size() < maxSideBoxes;) {
        if (boxes[box].kind == PageBoxKind::Lines && boxes[box].hasFloats) add(box);
        box = IsFlowLeaf(boxes, box) ? boxes[box].end : box + 1;
    }
    return sides;
}
