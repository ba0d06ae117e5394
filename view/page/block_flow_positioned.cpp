// Boxes that are out of the flow: where their style puts them, as far as nothing covers anything.
#include "view/page/block_flow.h"

#include "view/page/covered_area.h"

#include <algorithm>

namespace {
// Others that one goes below.
constexpr int maxSteps = 256;

FloatRect BelowWhatItCovers(FloatRect box, const PageFragment& fragment) {
    for (int step = 0; step < maxSteps; ++step) {
        const double bottom = CoveredBottom(fragment, box);
        if (bottom <= box.top) break;
        box.top = bottom;
    }
    return box;
}
} // namespace

bool IsFixedBeside(const CssBoxStyle& style) {
    const auto isSet = [&](CssSide side) {
        const CssLength& inset = style.inset[side];
        return inset.kind == CssLength::Kind::Sum || (!inset.IsAuto() && inset.value >= 0);
    };
    return style.position == CssPosition::Fixed && !style.width.IsAuto() &&
           !style.width.IsOfContent() && isSet(cssLeft) != isSet(cssRight) &&
           HasVerticalInset(style);
}

BlockFlow::PositionedRoom BlockFlow::RoomIn(std::size_t open) const {
    const OpenBlock& block = open_[open];
    const CssBoxStyle& style = *layouter_.Box(block.box).style;
    const double containing = open_[open > 0 ? open - 1 : 0].room.Width();
    const BoxMeasure& measure = layouter_.Measure();
    const auto padding = [&](CssSide side) {
        return measure.Length(style.padding[side], containing);
    };
    PositionedRoom room;
    room.sides = {block.room.left - padding(cssLeft), block.room.right + padding(cssRight)};
    if (block.beginsAbove) return room;
    const bool isPlaced = open == 0 || block.hasInsetAbove || open < settled_;
    room.top = (isPlaced ? block.contentTop : top_ + margin_.Length()) - padding(cssTop);
    const double height = measure.GivenHeight(style);
    if (height >= 0) room.height = padding(cssTop) + height + padding(cssBottom);
    return room;
}

// In the nearest positioned box around what stands here, or in the page.
BlockFlow::PositionedRoom BlockFlow::RoomOfPositioned(const CssBoxStyle& style) const {
    const bool isInPage = container_ == noPageBox && !positioned_;
    const bool isFixed = style.position == CssPosition::Fixed && isInPage;
    for (std::size_t i = isFixed ? 0 : open_.size(); i-- > 0;)
        if (open_[i].box != noPageBox &&
            layouter_.Box(open_[i].box).style->position != CssPosition::Static)
            return RoomIn(i);
    PositionedRoom room;
    room.sides = positioned_.value_or(open_.front().room);
    if (isInPage && !beginsAbove_) room.top = 0;
    return room;
}

// As high as its style says where it covers nothing there, and where the text has it otherwise.
FloatRect BlockFlow::PlaceOf(const CssBoxStyle& style, const PositionedRoom& room,
                             const FloatRect& inText, const InlineLayout& layout) const {
    const BoxMeasure& measure = layouter_.Measure();
    const CssLength &top = style.inset[cssTop], &bottom = style.inset[cssBottom];
    const bool byTop = !top.IsAuto();
    const bool needsHeight = !byTop || top.kind != CssLength::Kind::Pixels;
    if (!room.top || (needsHeight && !room.height)) return inText;
    const double height = room.height.value_or(0);
    const double containing = room.sides.Width();
    const double offset =
        byTop ? measure.Length(top, height) + measure.Margin(style, cssTop, containing)
              : height - measure.Length(bottom, height) - inText.height -
                    measure.Margin(style, cssBottom, containing);
    FloatRect box = inText;
    box.top = std::max(0.0, *room.top + offset);
    return CoveredBottom(result_, box) > box.top || CoveredBottom(layout, box) > box.top ? inText
                                                                                         : box;
}

// At the top of the line that it stands in, where its style says no other place. Between blocks a
// wide one is above what follows, which it would cover; a page's number is not.
double BlockFlow::AddPositioned(const LinesContent& content, const InlineLayout& layout,
                                InlineEdges room) {
    double below = layout.bottom;
    for (const LinesText::Place& positioned : content.positioned) {
        double top = below, left = room.left;
        for (const InlineLine& line : layout.lines) {
            if (line.end <= positioned.at && line.end < layout.lines.back().end) continue;
            top = line.top;
            const InlinePiece& piece = layout.pieces[line.piece];
            left = line.left + piece.lines->CaretX(line.line, positioned.at - piece.start);
            break;
        }
        const CssBoxStyle& style = *layouter_.Box(positioned.box).style;
        const PositionedRoom around = RoomOfPositioned(style);
        const InlineEdges& page = around.sides;
        const BoxMeasure& measure = layouter_.Measure();
        const auto inset = [&](CssSide side) {
            return measure.Length(style.inset[side], page.Width());
        };
        const double available = page.Width() - inset(cssLeft) - inset(cssRight);
        PageFragmentPtr fragment = layouter_.LayOutPositioned(
            positioned.box, page.Width(), available > 0 ? available : page.Width());
        if (!style.inset[cssLeft].IsAuto())
            left = page.left + inset(cssLeft);
        else if (!style.inset[cssRight].IsAuto())
            left = page.right - inset(cssRight) - fragment->width;
        left += measure.Margin(style, cssLeft, page.Width());
        top += measure.Margin(style, cssTop, page.Width());
        FloatRect box{left, top, fragment->width, fragment->height};
        if (HasVerticalInset(style)) {
            box = PlaceOf(style, around, box, layout);
            if (layout.lines.empty()) box = BelowWhatItCovers(box, result_);
            if (box.Right() > room.left && box.left < room.right) {
                floats_.Reserve(box, room);
                positionedBottom_ = std::max(positionedBottom_, box.Bottom());
            }
        }
        const double covered = std::min(box.Right(), room.right) - std::max(box.left, room.left);
        if (layout.lines.empty() && box.top == top && covered > room.Width() / 2)
            below = std::max(below, box.Bottom());
        result_.parts.push_back({box.left, box.top, std::move(fragment)});
    }
    return below;
}

// Of boxes beside it. One that the page makes room for by padding may stand there.
bool BlockFlow::IsClear(const InlineEdges& content, double height) const {
    return positionedBottom_ > top_ && floats_.RoomAt(top_, top_ + height, content) == content;
}
