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
    if (!placed_ && Top() > LastTop()) ShowHeight(LastTop());
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
    ShowHeight(std::min(Moved(top, pixels), std::max(top, last)));
}

void TextScroller::ScrollLines(int lines, int lineHeight) {
    const TextHeight from = Top();
    ScrollBy(lines * lineHeight);
    const TextHeight to = Top();
    const Line line = LineAt(to);
    // A high picture is passed by pixels. At the text's end its last line is what matters.
    if (to == from || to >= LastTop() || 2 * line.height > viewHeight_) return;
    const bool nearTop = 2 * (to.y - line.top.y) <= line.height;
    const bool useTop = lines < 0 ? nearTop || line.bottom >= from : nearTop && line.top > from;
    ShowHeight(useTop ? line.top : std::min(line.bottom, LastTop()));
}

void TextScroller::ScrollPage(bool down, int lineHeight) {
    const TextHeight from = Top();
    const int page = std::max(lineHeight, viewHeight_ - lineHeight);
    ScrollBy(down ? page : -page);
    const TextHeight to = Top();
    if (to == from || to >= LastTop()) return;
    const Line line = LineAt(to);
    if (down) {
        const bool seenWhole = line.bottom <= Moved(from, viewHeight_);
        ShowHeight(line.top > from ? line.top : seenWhole ? std::min(line.bottom, LastTop()) : to);
    } else if (line.top < to) {
        const bool willBeSeenWhole = line.top >= Moved(from, -viewHeight_);
        ShowHeight(line.bottom < from ? line.bottom : willBeSeenWhole ? line.top : to);
    }
}

void TextScroller::Reveal(TextPos position) {
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    TextHeight from{layout->block.start, LineTop(*layout, line)};
    TextHeight to{layout->block.start, LineBottom(*layout, line)};
    if (to.y - from.y > viewHeight_) {
        const QRect caret = CaretBox(*layout, position); // it may be higher than its line
        from.y = std::max(from.y, caret.top());
        to.y = std::min(to.y, caret.top() + caret.height());
    }
    if (from < Top())
        ShowHeight(from);
    else if (to > Moved(Top(), viewHeight_))
        ShowHeight(Moved(to, -viewHeight_));
}

bool TextScroller::IsHighAndSeen(TextPos position) {
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    const TextHeight top = Top();
    const TextPos block = layout->block.start;
    return LineHeight(*layout, line) > viewHeight_ &&
           TextHeight{block, LineBottom(*layout, line)} > top &&
           TextHeight{block, LineTop(*layout, line)} < Moved(top, viewHeight_);
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

TextScroller::Line TextScroller::LineAt(TextHeight height) {
    const auto layout = layouts_.At(height.block);
    const LineRef line = LineAtHeight(*layout, height.y);
    const int top = LineTop(*layout, line), bottom = LineBottom(*layout, line);
    const TextPos block = layout->block.start;
    return {{block, top}, Moved({block, bottom}, 0), std::max(1, bottom - top)};
}

TextHeight TextScroller::InWholeLine(int below) {
    const TextHeight top = Top(), at = Moved(top, below);
    const Line line = LineAt(at);
    if (line.bottom > Moved(top, viewHeight_) && line.top > top) return Moved(line.top, -1);
    return line.top < top && line.height < viewHeight_ ? line.bottom : at;
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

void TextScroller::ShowHeight(TextHeight top) {
    const auto layout = layouts_.At(top.block);
    const LineRef line = LineAtHeight(*layout, top.y);
    position_ = LineStart(*layout, line);
    hidden_ = std::clamp(top.y - LineTop(*layout, line), 0, LineHeight(*layout, line) - 1);
    placed_ = false;
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
        ShowHeight(LastTop());
        return;
    }
    const auto layout = layouts_.At(position);
    const LineRef line = LineOf(*layout, position);
    const TextPos start = LineStart(*layout, line), length = LineEnd(*layout, line) - start;
    const int part =
        length > 0 ? int(std::int64_t(position - start) * LineHeight(*layout, line) / length) : 0;
    ShowHeight(Moved({layout->block.start, LineTop(*layout, line)}, part));
}
