// Boxes that are out of the flow: where their style puts them, as far as nothing covers anything.
#include "view/page/block_flow.h"

#include "view/page/covered_area.h"
#include "view/page/formatting_contexts.h"
#include "view/page/item_layout.h"
#include "view/page/page_background.h"

#include <algorithm>

namespace {
// Others that one goes below one by one.
constexpr int maxSteps = 3;
// Letter sizes that a box beside earlier text may stand lower than its style says.
constexpr double maxLower = 12;

double TopBelowWhatItCovers(FloatRect area, const PageFragment& fragment) {
    for (int step = 0; step < maxSteps; ++step) {
        const double bottom = CoveredBottom(fragment, area);
        if (bottom <= area.top) return area.top;
        area.top = bottom;
    }
    return FreeTop(fragment, area);
}

// What insets on both sides leave is beside the text if they take as much of the window.
constexpr float minInsets = 40; // per cent
} // namespace

bool IsFixedBeside(const CssBoxStyle& style) {
    const auto isSet = [&](CssSide side) {
        const CssLength& inset = style.inset[side];
        return inset.kind == CssLength::Kind::Sum || (!inset.IsAuto() && inset.value >= 0);
    };
    const auto share = [&](CssSide side) {
        const CssLength& inset = style.inset[side];
        return inset.kind == CssLength::Kind::Percent ? inset.value : 0;
    };
    const bool left = isSet(cssLeft), right = isSet(cssRight);
    const bool isNarrow = style.width.IsAuto()
                              ? left && right && share(cssLeft) + share(cssRight) >= minInsets
                              : left != right && !style.width.IsOfContent();
    return style.position == CssPosition::Fixed && isNarrow && HasVerticalInset(style);
}

// Without its padding, through which what is behind it is seen if it has no background.
FloatRect BlockFlow::SeenPart(const CssBoxStyle& style, FloatRect box, double containing) const {
    const bool hasBorder =
        std::ranges::any_of(style.borderWidth, [](float width) { return width > 0; });
    if (hasBorder || IsDrawn(style.background)) return box;
    const BoxMeasure& measure = layouter_.Measure();
    const double top = measure.Length(style.padding[cssTop], containing);
    box.top += top;
    box.height =
        std::max(0.0, box.height - top - measure.Length(style.padding[cssBottom], containing));
    return box;
}

FloatRect BlockFlow::BelowWhatItCovers(const CssBoxStyle& style, FloatRect box,
                                       double containing) const {
    const FloatRect seen = SeenPart(style, box, containing);
    if (CoveredBottom(result_, seen) > seen.top) box.top = TopBelowWhatItCovers(box, result_);
    return box;
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
    room.isPage = isInPage;
    return room;
}

// Of its border box, where its style says one that is known.
std::optional<double> BlockFlow::TopOf(const CssBoxStyle& style, const PositionedRoom& room,
                                       double boxHeight) const {
    const BoxMeasure& measure = layouter_.Measure();
    const CssLength &top = style.inset[cssTop], &bottom = style.inset[cssBottom];
    const bool byTop = !top.IsAuto();
    const bool needsHeight = !byTop || top.kind != CssLength::Kind::Pixels;
    if (!room.top || (needsHeight && !room.height)) return std::nullopt;
    const double height = room.height.value_or(0);
    const double containing = room.sides.Width();
    const double offset =
        byTop ? measure.Length(top, height) + measure.Margin(style, cssTop, containing)
              : height - measure.Length(bottom, height) - boxHeight -
                    measure.Margin(style, cssBottom, containing);
    return *room.top + offset;
}

// Wholly above the page, which has nothing there, as links are that only the Tab key brings. Some
// are above any height that the page may be shown in.
bool BlockFlow::IsAbovePage(const CssBoxStyle& style, const PositionedRoom& room,
                            double boxHeight) const {
    const CssLength& top = style.inset[cssTop];
    if (top.kind == CssLength::Kind::Percent && top.value <= -100 && room.isPage) return true;
    const bool isAtTopOfPage = container_ == noPageBox && !positioned_ && !beginsAbove_;
    return isAtTopOfPage && TopOf(style, room, boxHeight).value_or(0) + boxHeight <= 0;
}

// As high as its style says where it covers nothing there, and where the text has it otherwise.
FloatRect BlockFlow::PlaceOf(const CssBoxStyle& style, const PositionedRoom& room,
                             const FloatRect& inText, const InlineLayout& layout) const {
    FloatRect box = inText;
    const double highest = std::min(0.0, room.top.value_or(0)); // in its box's padding
    box.top = std::max(highest, TopOf(style, room, inText.height).value_or(inText.top));
    const FloatRect seen = SeenPart(style, box, room.sides.Width());
    const double bottom = std::max(CoveredBottom(result_, seen), CoveredBottom(layout, seen));
    return bottom > seen.top ? inText : box;
}

PageFragmentPtr BlockFlow::LayOutPositioned(PageBoxId id, const InlineEdges& page) {
    const CssBoxStyle& style = *layouter_.Box(id).style;
    const double available = page.Width() -
                             layouter_.Measure().Length(style.inset[cssLeft], page.Width()) -
                             layouter_.Measure().Length(style.inset[cssRight], page.Width());
    return layouter_.LayOutPositioned(id, page.Width(), available > 0 ? available : page.Width());
}

// Of the border box.
double BlockFlow::LeftOf(const CssBoxStyle& style, const InlineEdges& page, double width,
                         double inText) const {
    const BoxMeasure& measure = layouter_.Measure();
    const auto inset = [&](CssSide side) {
        return measure.Length(style.inset[side], page.Width());
    };
    const double marginLeft = measure.Margin(style, cssLeft, page.Width());
    if (!style.inset[cssLeft].IsAuto()) return page.left + inset(cssLeft) + marginLeft;
    if (style.inset[cssRight].IsAuto()) return inText + marginLeft;
    return page.right - inset(cssRight) - measure.Margin(style, cssRight, page.Width()) - width;
}

// Where its style has it, if that is known.
std::optional<BlockFlow::SidePlace> BlockFlow::PlaceOfPositioned(PageBoxId id, std::size_t open) {
    const CssBoxStyle& style = *layouter_.Box(id).style;
    PositionedRoom room = RoomIn(open);
    if (open == 0) room.top = 0;
    SidePlace place;
    place.fragment = LayOutPositioned(id, room.sides);
    const auto top = TopOf(style, room, place.fragment->height);
    if (!top) return std::nullopt;
    place.left = LeftOf(style, room.sides, place.fragment->width, room.sides.left);
    place.top = *top;
    return place;
}

// Beside a long box that is open, in the room that both stand in.
std::optional<BlockFlow::SidePlace> BlockFlow::PlaceOfSibling(const SideBox& side,
                                                              std::size_t open) {
    const InlineEdges room = open_[open - 1].room;
    const double width = room.Width();
    const BoxMeasure& measure = layouter_.Measure();
    const CssBoxStyle& style = *layouter_.Box(side.box).style;
    const CssBoxStyle& longStyle = *layouter_.Box(side.container).style;
    SidePlace place;
    if (side.kind == SideBox::Kind::Item) {
        const std::vector<ItemPlace> row = RowOfLongItem(layouter_, side.container, width);
        const auto own = std::ranges::find(row, side.box, &ItemPlace::item);
        if (own == row.end()) return std::nullopt;
        place.fragment = ItemLayout(layouter_, open_[open - 1].box, width, {})
                             .LayOut(side.box, own->place.left, own->place.width);
        place.left = room.left + own->place.left + measure.Margin(style, cssLeft, width);
    } else {
        place.fragment = layouter_.LayOutShrunk(side.box, width);
        const BoxEdges edges = layouter_.EdgesInFlow(side.container, open_[open - 1].box, room);
        place.left =
            style.floats == CssFloat::Left
                ? edges.border.right + edges.marginRight + measure.Margin(style, cssLeft, width)
                : room.right - place.fragment->width - measure.Margin(style, cssRight, width);
    }
    constexpr double rounded = 1;
    if (place.left + place.fragment->width > room.right + rounded) return std::nullopt;
    const double above =
        measure.Insets(longStyle, width).Top() + measure.Margin(longStyle, cssTop, width);
    place.top = open_[open].contentTop - above + measure.Margin(style, cssTop, width);
    return place;
}

// All that the box may cover is there: what follows the result stands below it.
bool BlockFlow::PlaceBeside(const SideBox& side) {
    PlaceFloats(top_ + margin_.Length());
    const auto found = std::ranges::find(open_, side.container, &OpenBlock::box);
    if (found == open_.end()) return false;
    const std::size_t open = std::size_t(found - open_.begin());
    const bool isPositioned = side.kind == SideBox::Kind::Positioned;
    auto place = isPositioned ? PlaceOfPositioned(side.box, open) : PlaceOfSibling(side, open);
    if (!place || place->left < 0 || place->top < 0 || place->top >= top_) return false;
    const FloatRect wanted{place->left, place->top, place->fragment->width,
                           place->fragment->height};
    const FloatRect box =
        BelowWhatItCovers(*layouter_.Box(side.box).style, wanted, open_[open].room.Width());
    // Below a heading that takes more room than the page reckoned with, but not below its text.
    const double em = layouter_.Box(side.box).text->fontSize * layouter_.Measure().Scale();
    if (box.top - wanted.top > maxLower * em) return false;
    positionedBottom_ = std::max(positionedBottom_, box.Bottom());
    result_.parts.push_back({box.left, box.top, std::move(place->fragment), true});
    return true;
}

// At the top of the line that it stands in, where its style says no other place. Between blocks a
// wide one is above what follows, which it would cover; a page's number is not.
double BlockFlow::AddPositioned(const LinesContent& content, const InlineLayout& layout,
                                InlineEdges room) {
    double below = layout.bottom;
    for (const LinesText::Place& positioned : content.positioned) {
        if (std::ranges::find(leftOut_, positioned.box) != leftOut_.end()) continue;
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
        PageFragmentPtr fragment = LayOutPositioned(positioned.box, page);
        left = LeftOf(style, page, fragment->width, left);
        top += layouter_.Measure().Margin(style, cssTop, page.Width());
        FloatRect box{left, top, fragment->width, fragment->height};
        if (HasVerticalInset(style) && IsAbovePage(style, around, box.height)) {
            box.left = std::min(0.0, room.left) - box.width;
        } else if (HasVerticalInset(style)) {
            box = PlaceOf(style, around, box, layout);
            if (layout.lines.empty()) box = BelowWhatItCovers(style, box, page.Width());
            if (box.Right() > room.left && box.left < room.right) {
                floats_.Reserve(box, room);
                positionedBottom_ = std::max(positionedBottom_, box.Bottom());
            }
        }
        const double covered = std::min(box.Right(), room.right) - std::max(box.left, room.left);
        if (layout.lines.empty() && box.top == top && covered > room.Width() / 2)
            below = std::max(below, box.Bottom());
        result_.parts.push_back({box.left, box.top, std::move(fragment), true});
    }
    return below;
}

// Of boxes beside it. One that the page makes room for by padding may stand there.
bool BlockFlow::IsClear(const InlineEdges& content, double height) const {
    return positionedBottom_ > top_ && floats_.RoomAt(top_, top_ + height, content) == content;
}
