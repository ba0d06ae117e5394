#include "view/text_scroller.h"

#include <algorithm>

namespace {
int LineHeight(const BlockLayout& layout, LineRef line) {
    return std::max(1, LineBottom(layout, line) - LineTop(layout, line));
}
} // namespace

TextScroller::TextScroller(TextLayouts& layouts) : layouts_(layouts) {}

void TextScroller::ScrollLineToTop(TextPos position) {
    position_ = std::clamp(position, 0, layouts_.Text().Length());
    hiddenPixels_ = 0;
    pinned_ = true;
}

void TextScroller::KeepEndAtBottom() {
    if (!pinned_ && Top() > MaxTop()) ScrollTo(MaxTop());
}

TextPos TextScroller::FirstVisibleChar() {
    const VerticalPos top = Top();
    const auto layout = layouts_.At(top.block);
    const LineRef line = LineOf(*layout, position_);
    const int visible = LineBottom(*layout, line) - top.y;
    if (2 * visible >= std::min(LineHeight(*layout, line), viewHeight_))
        return LineStart(*layout, line);
    return LineStartAt(Moved(top, visible));
}

void TextScroller::ScrollBy(int pixels) {
    const VerticalPos top = Top(), last = MaxTop();
    if (pixels > 0 && top >= last) return;
    ScrollTo(std::min(Moved(top, pixels), std::max(top, last)));
}

void TextScroller::ScrollLines(int lines, int lineHeight) {
    const VerticalPos from = Top();
    ScrollBy(lines * lineHeight);
    const VerticalPos to = Top();
    const Line line = LineAt(to);
    // A tall picture scrolls by pixels. At the end of the text the last line is aligned to the
    // bottom.
    if (to == from || to >= MaxTop() || 2 * line.height > viewHeight_) return;
    const bool nearTop = 2 * (to.y - line.top.y) <= line.height;
    const bool useTop = lines < 0 ? nearTop || line.bottom >= from : nearTop && line.top > from;
    ScrollTo(useTop ? line.top : std::min(line.bottom, MaxTop()));
}

void TextScroller::ScrollPage(bool down, int lineHeight) {
    const VerticalPos from = Top();
    const int page = std::max(lineHeight, viewHeight_ - lineHeight);
    ScrollBy(down ? page : -page);
    const VerticalPos to = Top();
    if (to == from || to >= MaxTop()) return;
    const Line line = LineAt(to);
    if (down) {
        const bool wasWholeVisible = line.bottom <= Moved(from, viewHeight_);
        ScrollTo(line.top > from   ? line.top
                 : wasWholeVisible ? std::min(line.bottom, MaxTop())
                                   : to);
    } else if (line.top < to) {
        const bool willBeWholeVisible = line.top >= Moved(from, -viewHeight_);
        ScrollTo(line.bottom < from ? line.bottom : willBeWholeVisible ? line.top : to);
    }
}

void TextScroller::Reveal(TextPos position) {
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    VerticalPos from{layout->block.start, LineTop(*layout, line)};
    VerticalPos to{layout->block.start, LineBottom(*layout, line)};
    if (to.y - from.y > viewHeight_) {
        const Rect caret = CaretBox(*layout, position); // it may be higher than its line
        from.y = std::max(from.y, caret.top);
        to.y = std::min(to.y, Bottom(caret));
    }
    if (from < Top())
        ScrollTo(from);
    else if (to > Moved(Top(), viewHeight_))
        ScrollTo(Moved(to, -viewHeight_));
}

bool TextScroller::IsTallAndVisible(TextPos position) {
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    const VerticalPos top = Top();
    const TextPos block = layout->block.start;
    return LineHeight(*layout, line) > viewHeight_ &&
           VerticalPos{block, LineBottom(*layout, line)} > top &&
           VerticalPos{block, LineTop(*layout, line)} < Moved(top, viewHeight_);
}

VerticalPos TextScroller::Top() {
    const auto layout = layouts_.At(position_);
    const LineRef line = LineOf(*layout, position_);
    const int hidden = std::min(hiddenPixels_, LineHeight(*layout, line) - 1);
    return {layout->block.start, LineTop(*layout, line) + hidden};
}

VerticalPos TextScroller::Moved(VerticalPos from, int pixels) {
    auto layout = layouts_.At(from.block);
    int y = from.y + pixels;
    while (y < 0) {
        const auto before = layouts_.Before(layout);
        if (!before) return {layout->block.start, 0};
        layout = before;
        y += layout->height;
    }
    while (y >= layout->height) {
        const auto after = layouts_.After(layout);
        if (!after) return {layout->block.start, layout->height};
        y -= layout->height;
        layout = after;
    }
    return {layout->block.start, y};
}

TextPos TextScroller::LineStartAt(VerticalPos height) {
    const auto layout = layouts_.At(height.block);
    return LineStart(*layout, LineAtHeight(*layout, height.y));
}

TextScroller::Line TextScroller::LineAt(VerticalPos height) {
    const auto layout = layouts_.At(height.block);
    const LineRef line = LineAtHeight(*layout, height.y);
    const int top = LineTop(*layout, line), bottom = LineBottom(*layout, line);
    const TextPos block = layout->block.start;
    return {{block, top}, Moved({block, bottom}, 0), std::max(1, bottom - top)};
}

VerticalPos TextScroller::NearestWholeLine(int below) {
    const VerticalPos top = Top(), at = Moved(top, below);
    const Line line = LineAt(at);
    if (line.bottom > Moved(top, viewHeight_) && line.top > top) return Moved(line.top, -1);
    return line.top < top && line.height < viewHeight_ ? line.bottom : at;
}

std::optional<int> TextScroller::BlockTopInView(TextPos position) {
    const VerticalPos top = Top();
    auto layout = layouts_.At(top.block);
    for (int y = -top.y; layout && y < viewHeight_; layout = layouts_.After(layout)) {
        const TextBlock& block = layout->block;
        if (position < block.start) return std::nullopt;
        if (position < block.end || IsLastBlock(layouts_.Text(), block)) return y;
        y += layout->height;
    }
    return std::nullopt;
}

VerticalPos TextScroller::MaxTop() {
    if (!maxTopValid_) {
        const auto last = layouts_.At(layouts_.Text().Length());
        maxTop_ = Moved({last->block.start, last->height}, -viewHeight_);
        maxTopValid_ = true;
    }
    return maxTop_;
}

void TextScroller::ScrollTo(VerticalPos top) {
    const auto layout = layouts_.At(top.block);
    const LineRef line = LineAtHeight(*layout, top.y);
    position_ = LineStart(*layout, line);
    hiddenPixels_ = std::clamp(top.y - LineTop(*layout, line), 0, LineHeight(*layout, line) - 1);
    pinned_ = false;
}

TextPos TextScroller::AsPosition(VerticalPos height) {
    const auto layout = layouts_.At(height.block);
    const LineRef line = LineAtHeight(*layout, height.y);
    const TextPos start = LineStart(*layout, line), length = LineEnd(*layout, line) - start;
    const int above = std::clamp(height.y - LineTop(*layout, line), 0, LineHeight(*layout, line));
    return start + TextPos(std::int64_t(length) * above / LineHeight(*layout, line));
}

TextPos TextScroller::TopAsPosition() {
    return AsPosition(Top());
}

TextPos TextScroller::BottomAsPosition() {
    return AsPosition(Moved(Top(), viewHeight_));
}

TextPos TextScroller::MaxTopAsPosition() {
    return AsPosition(MaxTop());
}

void TextScroller::ScrollToPosition(TextPos position) {
    if (position >= MaxTopAsPosition()) {
        ScrollTo(MaxTop());
        return;
    }
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    const TextPos start = LineStart(*layout, line), length = LineEnd(*layout, line) - start;
    const int part =
        length > 0 ? int(std::int64_t(position - start) * LineHeight(*layout, line) / length) : 0;
    ScrollTo(Moved({layout->block.start, LineTop(*layout, line)}, part));
}
