#include "platform/qt/text_view/text_scroller.h"

#include <algorithm>
#include <cstdlib>

namespace {
int LineHeight(const BlockLayout& layout, LineRef line) {
    return std::max(1, LineBottom(layout, line) - LineTop(layout, line));
}
} // namespace

TextScroller::TextScroller(TextLayouts& layouts) : layouts_(layouts) {}

void TextScroller::ShowLine(TextPos position) {
    position_ = std::clamp(position, 0, layouts_.Text().Length());
    hidden_ = 0;
    placed_ = true;
}

void TextScroller::SettleAtEnd() {
    if (!placed_ && Top() > LastTop()) SetTop(LastTop());
}

TextPos TextScroller::FirstVisibleChar() {
    const TextHeight top = Top();
    const auto layout = layouts_.At(top.block);
    const LineRef line = LineOf(*layout, position_);
    const int seen = LineBottom(*layout, line) - top.y;
    if (2 * seen >= std::min(LineHeight(*layout, line), viewHeight_))
        return LineStart(*layout, line);
    return LineStartAt(Moved(top, seen));
}

void TextScroller::ScrollBy(int pixels) {
    const TextHeight top = Top(), last = LastTop();
    if (pixels > 0 && top >= last) return;
    SetTop(std::min(Moved(top, pixels), std::max(top, last)));
}

void TextScroller::ScrollLines(int lines, int lineHeight) {
    ScrollBy(lines * lineHeight);
    SnapToLine(lineHeight / 2);
}

void TextScroller::ScrollPages(int pages, int lineHeight) {
    ScrollBy(pages * std::max(lineHeight, viewHeight_ - lineHeight));
    SnapToLine(lineHeight / 2);
}

void TextScroller::Reveal(TextPos position) {
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    TextHeight from{layout->block.start, LineTop(*layout, line)};
    TextHeight to{layout->block.start, LineBottom(*layout, line)};
    if (to.y - from.y > viewHeight_) {
        const QRect caret = CaretBox(*layout, position);
        from.y = caret.top();
        to.y = caret.top() + caret.height();
    }
    if (from < Top())
        SetTop(from);
    else if (to > Moved(Top(), viewHeight_))
        SetTop(Moved(to, -viewHeight_));
}

TextHeight TextScroller::Top() {
    const auto layout = layouts_.At(position_);
    const LineRef line = LineOf(*layout, position_);
    const int hidden = std::min(hidden_, LineHeight(*layout, line) - 1);
    return {layout->block.start, LineTop(*layout, line) + hidden};
}

TextHeight TextScroller::Moved(TextHeight from, int pixels) {
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

TextPos TextScroller::LineStartAt(TextHeight height) {
    const auto layout = layouts_.At(height.block);
    return LineStart(*layout, LineAtHeight(*layout, height.y));
}

std::optional<int> TextScroller::ViewTopOf(TextPos position) {
    const TextHeight top = Top();
    auto layout = layouts_.At(top.block);
    for (int y = -top.y; layout && y < viewHeight_; layout = layouts_.After(layout)) {
        const TextBlock& block = layout->block;
        if (position < block.start) return std::nullopt;
        if (position < block.end || IsLastBlock(layouts_.Text(), block)) return y;
        y += layout->height;
    }
    return std::nullopt;
}

TextHeight TextScroller::LastTop() {
    if (!bottomKnown_) {
        const auto last = layouts_.At(layouts_.Text().Length());
        lastTop_ = Moved({last->block.start, last->height}, -viewHeight_);
        bottomKnown_ = true;
    }
    return lastTop_;
}

void TextScroller::SetTop(TextHeight top) {
    const auto layout = layouts_.At(top.block);
    const LineRef line = LineAtHeight(*layout, top.y);
    position_ = LineStart(*layout, line);
    hidden_ = std::clamp(top.y - LineTop(*layout, line), 0, LineHeight(*layout, line) - 1);
    placed_ = false;
}

// A top line cut by at most so many pixels, above or below, is shown whole. Not at the end of the
// text, where the last line is what matters.
void TextScroller::SnapToLine(int within) {
    const TextHeight top = Top();
    if (top >= LastTop()) return;
    const auto layout = layouts_.At(top.block);
    const LineRef line = LineOf(*layout, position_);
    const int above = top.y - LineTop(*layout, line), below = LineHeight(*layout, line) - above;
    if (above <= within)
        hidden_ = 0;
    else if (below <= within)
        SetTop(std::min(Moved(top, below), LastTop()));
}

TextPos TextScroller::AsChar(TextHeight height) {
    const auto layout = layouts_.At(height.block);
    const LineRef line = LineAtHeight(*layout, height.y);
    const TextPos start = LineStart(*layout, line), length = LineEnd(*layout, line) - start;
    const int above = std::clamp(height.y - LineTop(*layout, line), 0, LineHeight(*layout, line));
    return start + TextPos(std::int64_t(length) * above / LineHeight(*layout, line));
}

TextPos TextScroller::TopAsChar() {
    return AsChar(Top());
}

TextPos TextScroller::BottomAsChar() {
    return AsChar(Moved(Top(), viewHeight_));
}

TextPos TextScroller::LastTopAsChar() {
    return AsChar(LastTop());
}

void TextScroller::ScrollToChar(TextPos position) {
    if (position >= LastTopAsChar()) {
        SetTop(LastTop());
        return;
    }
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    const TextPos start = LineStart(*layout, line), length = LineEnd(*layout, line) - start;
    const int part =
        length > 0 ? int(std::int64_t(position - start) * LineHeight(*layout, line) / length) : 0;
    SetTop({layout->block.start, LineTop(*layout, line) + part});
}
