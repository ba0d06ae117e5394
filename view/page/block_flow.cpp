#include "view/page/block_flow.h"

#include "view/page/flow_leaf.h"
#include "view/page/table_layout.h"

#include <algorithm>
#include <utility>

BlockFlow::BlockFlow(PageLayouter& layouter, PageBoxId container, InlineEdges room,
                     PageFragment& result, std::optional<InlineEdges> positioned)
    : layouter_(layouter), container_(container), result_(result), positioned_(positioned),
      dropsQuirky_(layouter.Box(container).dropsQuirkyMargins) {
    OpenBlock block;
    block.box = container;
    block.room = room;
    block.hasInsetAbove = true; // no margin goes through it
    open_.push_back(block);
}

void BlockFlow::StartAfter(PageBoxId leaf) {
    beginsAbove_ = true;
    std::vector<PageBoxId> around;
    for (PageBoxId box = layouter_.Box(leaf).parent; box != container_;
         box = layouter_.Box(box).parent)
        around.push_back(box);
    for (auto box = around.rbegin(); box != around.rend(); ++box) {
        const BoxEdges edges = EdgesOf(*box);
        const BoxInsets insets =
            layouter_.Measure().Insets(*layouter_.Box(*box).style, open_.back().room.Width());
        OpenBlock block = OpenedBlock(*box, edges.content, EndOf(result_));
        block.placed = Place(*box, edges.border);
        block.insetBelow = insets.Bottom();
        block.beginsAbove = true;
        if (block.placed >= 0) result_.boxes[std::size_t(block.placed)].beginsAbove = true;
        open_.push_back(block);
    }
    topless_.clear();
    settled_ = open_.size();
    const double containing = open_.back().room.Width();
    const PageBox& box = layouter_.Box(leaf);
    if (!box.isContinued) AddMarginBelow(*box.style, containing);
}

void BlockFlow::LayOutContent() {
    if (layouter_.Box(container_).kind == PageBoxKind::Lines) return LayOutLines(container_);
    LayOut(container_ + 1, layouter_.Box(container_).end);
}

void BlockFlow::LayOut(PageBoxId from, PageBoxId end) {
    for (PageBoxId box = from; box < end;) {
        while (open_.size() > 1 && open_.back().box != layouter_.Box(box).parent)
            Close();
        if (IsFlowLeaf(layouter_.Boxes(), box)) {
            LayOutLeaf(box);
            box = layouter_.Box(box).end;
        } else {
            Open(box++);
        }
    }
}

void BlockFlow::Finish() {
    while (open_.size() > 1)
        Close();
    if (layouter_.Box(container_).dropsQuirkyMargins) margin_.DropQuirky();
    EndMargin();
    top_ = floats_.ClearedTop(true, true, top_);
}

void BlockFlow::Break(bool belowFloats) {
    PlaceFloats(top_ + margin_.Length());
    if (belowFloats) {
        EndMargin();
        top_ = floats_.ClearedTop(true, true, top_);
    }
    top_ = std::max(top_, positionedBottom_);
    for (const OpenBlock& block : open_) {
        if (block.placed < 0) continue;
        PlacedBox& placed = result_.boxes[std::size_t(block.placed)];
        placed.endsBelow = true;
        placed.height = top_ - placed.top;
    }
    for (const OpenBlock& block : open_)
        MoveRelative(block);
}

BlockFlow::OpenBlock BlockFlow::OpenedBlock(PageBoxId id, const InlineEdges& content,
                                            FragmentMark from) const {
    OpenBlock block;
    block.box = id;
    block.room = content;
    block.from = from;
    const OpenBlock& around = open_.back();
    block.shift = layouter_.Measure().RelativeShift(
        *layouter_.Box(id).style, *layouter_.Box(around.box).text, around.room.Width());
    return block;
}

void BlockFlow::MoveRelative(const OpenBlock& block) {
    if (!block.shift.IsNone()) MoveSince(block.from, block.shift.x, block.shift.y, result_);
}

BoxEdges BlockFlow::EdgesOf(PageBoxId box) const {
    const OpenBlock& around = open_.back();
    return layouter_.EdgesInFlow(box, around.box, around.room);
}

// The box's index in the result, or -1 if nothing of it is seen.
int BlockFlow::Place(PageBoxId box, const InlineEdges& border) {
    if (!HasVisibleBox(layouter_.Box(box))) return -1;
    const int index = int(result_.boxes.size());
    result_.boxes.push_back({box, border.left, top_, border.Width(), 0, false, false});
    topless_.push_back(index);
    return index;
}

void BlockFlow::AddMarginAbove(const CssBoxStyle& style, double containing) {
    if (dropsQuirky_ && style.quirkyTop) return;
    margin_.Add(layouter_.Measure().Margin(style, cssTop, containing));
}

void BlockFlow::AddMarginBelow(const CssBoxStyle& style, double containing) {
    margin_.Add(layouter_.Measure().Margin(style, cssBottom, containing), style.quirkyBottom);
}

// What follows stands below the margin, and so do the boxes that began with it.
void BlockFlow::EndMargin() {
    top_ += margin_.Length();
    margin_ = {};
    dropsQuirky_ = false;
    for (std::size_t i = settled_; i < open_.size(); ++i)
        if (!open_[i].hasInsetAbove) open_[i].contentTop = top_;
    settled_ = open_.size();
    for (const int index : topless_)
        result_.boxes[std::size_t(index)].top = top_;
    topless_.clear();
    PlaceFloats(top_);
}

void BlockFlow::PlaceFloats(double top) {
    double below = top;
    for (const WaitingFloats& each : std::exchange(waiting_, {})) {
        LinesContent content = layouter_.ContentOf(each.lines, each.room.Width());
        InlineLayout layout =
            LayOutInline(layouter_.Lines(), *content.content, each.room, below, floats_);
        below = AddLines(each.lines, each.room, std::move(content), std::move(layout));
    }
    if (below <= top) return;
    EndMargin();
    top_ = std::max(top_, below);
}

// What goes below floats has them stand without its own margin.
void BlockFlow::BeforeClear(const CssBoxStyle& style) {
    if (style.clear != CssClear::None) PlaceFloats(top_ + margin_.Length());
}

void BlockFlow::ClearFloats(const CssBoxStyle& style) {
    if (style.clear == CssClear::None) return;
    const double top = top_ + margin_.Length();
    const double cleared =
        floats_.ClearedTop(style.clear != CssClear::Right, style.clear != CssClear::Left, top);
    if (cleared <= top) return;
    margin_ = {};
    top_ = cleared;
}

void BlockFlow::Open(PageBoxId box) {
    const CssBoxStyle& style = *layouter_.Box(box).style;
    const double containing = open_.back().room.Width();
    const BoxEdges edges = EdgesOf(box);
    const BoxInsets insets = layouter_.Measure().Insets(style, containing);
    BeforeClear(style);
    AddMarginAbove(style, containing);
    ClearFloats(style);
    OpenBlock block = OpenedBlock(box, edges.content, EndOf(result_));
    block.placed = Place(box, edges.border);
    block.insetBelow = insets.Bottom();
    const bool keepsMargins = layouter_.Box(box).isTooLong && style.flowRoot;
    if (insets.Top() > 0 || keepsMargins) {
        EndMargin();
        top_ += insets.Top();
        block.hasInsetAbove = true;
        block.contentTop = top_;
    }
    open_.push_back(block);
    dropsQuirky_ = dropsQuirky_ || layouter_.Box(box).dropsQuirkyMargins;
    if (style.display == CssDisplay::ListItem) markerAt_ = open_.size() - 1;
}

void BlockFlow::Close() {
    // Those that are waiting are placed relative to this block.
    if (layouter_.Box(open_.back().box).style->position != CssPosition::Static)
        PlaceFloats(top_ + margin_.Length());
    const OpenBlock block = open_.back();
    open_.pop_back();
    settled_ = std::min(settled_, open_.size());
    if (markerAt_ == open_.size()) markerAt_ = 0;
    if (block.insetBelow > 0) {
        EndMargin();
        top_ += block.insetBelow;
    }
    if (IsSettled()) PlaceFloats(top_ + margin_.Length());
    if (block.placed >= 0) {
        // One without a height of its own goes through the margin.
        PlacedBox& placed = result_.boxes[std::size_t(block.placed)];
        placed.height = std::max(0.0, top_ - placed.top);
        std::erase(topless_, block.placed);
    }
    MoveRelative(block);
    AddMarginBelow(*layouter_.Box(block.box).style, open_.back().room.Width());
}

void BlockFlow::LayOutLeaf(PageBoxId id) {
    const PageBox& box = layouter_.Box(id);
    if (std::ranges::find(leftOut_, id) != leftOut_.end()) return;
    if (StandsAlone(box)) return AddByItself(id);
    if (box.node == noHtmlNode) return LayOutLines(id);
    Open(id);
    if (box.kind == PageBoxKind::Lines) LayOutLines(id);
    Close();
}

void BlockFlow::LayOutLines(PageBoxId box) {
    const InlineEdges room = open_.back().room;
    if (!layouter_.Box(box).hasText) {
        waiting_.push_back({box, room});
        if (IsSettled() || !layouter_.Box(box).hasFloats) PlaceFloats(top_ + margin_.Length());
        return;
    }
    EndMargin();
    LinesContent content = layouter_.ContentOf(box, room.Width());
    InlineLayout layout = LayOutInline(layouter_.Lines(), *content.content, room, top_, floats_);
    top_ = layout.bottom;
    AddLines(box, room, std::move(content), std::move(layout));
}

PageFragmentPtr BlockFlow::LayOutAlone(PageBoxId id, const BoxEdges& edges) {
    const InlineEdges positioned = RoomOfPositioned(*layouter_.Box(id).style).sides;
    return layouter_.LayOutBlock(
        id, edges.content.Width(), open_.back().room.Width(),
        InlineEdges{positioned.left - edges.border.left, positioned.right - edges.border.left});
}

// Where a table or a block that keeps floats out fills what they leave of a line: beside all of
// them, so that it is laid out once. Nothing where its words do not fit there, where it has a
// width, or where a positioned box stands, for which pages make room by padding.
std::optional<InlineEdges> BlockFlow::RoomBesideFloats(PageBoxId id) {
    const PageBox& box = layouter_.Box(id);
    const CssBoxStyle& style = *box.style;
    const bool isBlock = box.kind != PageBoxKind::Picture && (style.flowRoot || box.isFieldset);
    if ((!isBlock && box.kind != PageBoxKind::Table) || !style.width.IsAuto()) return {};
    const InlineEdges room = open_.back().room;
    const double bottom = floats_.ClearedTop(true, true, top_);
    const InlineEdges free = floats_.RoomAt(top_, bottom, room);
    if (bottom <= top_ || positionedBottom_ > top_ || free == room) return {};
    if (free.Width() < layouter_.ExtentOfBox(id).min) return {};
    // Its margins may lie behind the floats, its border may not.
    const BoxMeasure& measure = layouter_.Measure();
    return InlineEdges{
        std::max(room.left, free.left - measure.Margin(style, cssLeft, room.Width())),
        std::min(room.right, free.right + measure.Margin(style, cssRight, room.Width()))};
}

// A table, a picture, or a block that keeps floats out: it stands where floats leave room.
void BlockFlow::AddByItself(PageBoxId id) {
    const PageBox& box = layouter_.Box(id);
    const InlineEdges room = open_.back().room;
    const double containing = room.Width();
    const BoxMeasure& measure = layouter_.Measure();
    if (!box.continues) {
        BeforeClear(*box.style);
        AddMarginAbove(*box.style, containing);
        ClearFloats(*box.style);
    }
    EndMargin();
    PageFragmentPtr fragment;
    const double sides = measure.SideMargins(*box.style, containing);
    const std::optional<InlineEdges> beside = RoomBesideFloats(id);
    if (box.kind == PageBoxKind::Table)
        fragment = LayOutTable(layouter_, id, beside ? beside->Width() : containing);
    else if (box.kind == PageBoxKind::Picture)
        fragment = layouter_.LayOutPicture(id, containing);
    else
        fragment =
            LayOutAlone(id, layouter_.EdgesInFlow(id, open_.back().box, beside.value_or(room)));
    const double insets = measure.SideInsets(*box.style, containing);
    const CssInheritedStyle& around = *layouter_.Box(open_.back().box).text;
    BoxEdges edges =
        measure.OfWidth(*box.style, around, beside.value_or(room), fragment->width - insets);
    if (!beside && !IsClear(edges.content, fragment->height)) {
        top_ = floats_.FittingTop(top_, fragment->height, fragment->width + sides, room);
        const InlineEdges free = floats_.RoomAt(top_, top_ + fragment->height, room);
        edges = measure.OfWidth(*box.style, around, free, fragment->width - insets);
    }
    const double height = fragment->height;
    const auto shift =
        measure.RelativeShift(*box.style, *layouter_.Box(open_.back().box).text, containing);
    result_.parts.push_back({edges.border.left + shift.x, top_ + shift.y, std::move(fragment)});
    top_ += height;
    if (!box.isContinued) AddMarginBelow(*box.style, containing);
}
