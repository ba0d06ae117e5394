#include "view/page/side_boxes.h"

#include "view/page/flow_leaf.h"

#include <algorithm>
#include <utility>

namespace {
constexpr std::size_t maxSideBoxes = 32;
// Lines that stand beside the text; a longer list stands where it is written.
constexpr int maxHeight = 1024;
// Of a container, beside the long one: each is measured whenever a part of that is laid out.
constexpr std::size_t maxItems = 16;

bool IsSet(const CssBoxStyle& style, CssSide side) {
    return !style.inset[side].IsAuto();
}

bool IsPlacedFromTop(const CssBoxStyle& style) {
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

class SideBoxFinder {
  public:
    explicit SideBoxFinder(const PageBoxes& boxes) : boxes_(boxes) {}

    std::vector<SideBox> Find() {
        for (PageBoxId box = rootPageBox; box < boxes_.End() && sides_.size() < maxSideBoxes;) {
            if (boxes_[box].kind == PageBoxKind::Lines && boxes_[box].hasFloats)
                AddPositioned(box);
            else if (IsLongItem(boxes_, box))
                AddItemsBeside(box);
            else if (boxes_[box].isTooLong && boxes_[box].style->floats != CssFloat::None)
                AddFloatAfter(box);
            box = IsFlowLeaf(boxes_, box) ? boxes_[box].end : box + 1;
        }
        return std::move(sides_);
    }

  private:
    void Add(SideBox side, int above) {
        side.height = above + LinesIn(boxes_, side.box);
        if (sides_.size() < maxSideBoxes && side.height <= maxHeight) sides_.push_back(side);
    }

    void AddPositioned(PageBoxId lines) {
        using enum SideBox::Kind;
        for (PageBoxId id = boxes_.FirstChild(lines); id != noPageBox; id = boxes_[id].nextSibling)
            if (IsPlacedFromTop(*boxes_[id].style))
                Add({Positioned, id, lines, ContainerOf(boxes_, id, lines)},
                    LinesAbove(*boxes_[id].style));
    }

    void AddItemsBeside(PageBoxId item) {
        const PageBoxId first = boxes_.FirstChild(boxes_[item].parent);
        std::size_t others = 0;
        for (PageBoxId id = first; id != noPageBox; id = boxes_[id].nextSibling)
            if (id != item && (boxes_[id].isTooLong || ++others > maxItems)) return;
        for (PageBoxId id = first; id != noPageBox; id = boxes_[id].nextSibling)
            if (id != item && StandsAlone(boxes_[id])) Add({SideBox::Kind::Item, id, id, item}, 0);
    }

    void AddFloatAfter(PageBoxId block) {
        const PageBoxId lines = boxes_[block].nextSibling;
        if (lines == noPageBox || boxes_[lines].kind != PageBoxKind::Lines || boxes_[lines].hasText)
            return;
        const PageBoxId side = boxes_.FirstChild(lines);
        const bool isAlone = side != noPageBox && boxes_[side].nextSibling == noPageBox;
        if (isAlone && boxes_[side].style->floats != CssFloat::None &&
            !IsOutOfFlow(*boxes_[side].style))
            Add({SideBox::Kind::Float, side, lines, block}, 0);
    }

    const PageBoxes& boxes_;
    std::vector<SideBox> sides_;
};
} // namespace

bool IsLongItem(const PageBoxes& boxes, PageBoxId id) {
    const PageBoxId container = boxes[id].parent;
    if (!boxes[id].isTooLong || boxes[id].kind != PageBoxKind::Block) return false;
    return container != noPageBox && boxes[container].isTooLong &&
           (IsFlexContainer(boxes[container]) || IsGridContainer(boxes[container]));
}

std::vector<SideBox> SideBoxesOf(const PageBoxes& boxes) {
    return SideBoxFinder(boxes).Find();
}
