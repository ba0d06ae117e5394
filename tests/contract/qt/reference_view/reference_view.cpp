#include "tests/contract/qt/reference_view/reference_view.h"

#include <algorithm>
#include <cmath>

void WholeView::Load() {
    anchor = caret = 0;
    wantedX.reset();
    Relayout();
    ShowLine(0);
}

void WholeView::Relayout() {
    whole_ = LayOutWhole(setting);
}

int WholeView::Top() const {
    const WholeLine& line = whole_.LineOf(topChar_);
    return line.top + std::min(hidden_, line.Height() - 1);
}

void WholeView::SetTop(int y) {
    const WholeLine& line = whole_.LineAt(y);
    topChar_ = line.start;
    hidden_ = std::clamp(y - line.top, 0, line.Height() - 1);
    placed_ = false;
}

TextPos WholeView::FirstVisible() const {
    const WholeLine& line = whole_.LineOf(topChar_);
    const int seen = line.bottom - Top();
    if (2 * seen >= std::min(line.Height(), viewHeight)) return line.start;
    return whole_.LineAt(Moved(line.bottom)).start;
}

QRect WholeView::CaretBox(TextPos position) const {
    const WholeLine& line = whole_.LineOf(position);
    const QTextLine text = line.Text(whole_);
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    return {int(std::floor(whole_.X(line, position))),
            int(std::floor(paragraph.origin.y() + text.y())), 1, int(std::ceil(text.height()))};
}

void WholeView::ShowLine(TextPos position) {
    topChar_ = std::clamp(position, 0, TextPos(setting.text.size()));
    hidden_ = 0;
    placed_ = true;
}

void WholeView::ScrollBy(int pixels) {
    const int top = Top();
    if (pixels > 0 && top >= LastTop()) return;
    SetTop(std::min(Moved(top + pixels), std::max(top, LastTop())));
}

void WholeView::ScrollLines(int lines) {
    const int from = Top();
    ScrollBy(lines * lineHeight);
    const int to = Top();
    const WholeLine& line = whole_.LineAt(to);
    if (to == from || to >= LastTop() || 2 * line.Height() > viewHeight) return;
    int nearest = 2 * (to - line.top) <= line.Height() ? line.top : line.bottom;
    if (lines > 0 && nearest <= from) nearest = line.bottom;
    if (lines < 0 && nearest >= from) nearest = line.top;
    SetTop(std::min(nearest, LastTop()));
}

void WholeView::ScrollPage(bool down) {
    const int from = Top(), page = std::max(lineHeight, viewHeight - lineHeight);
    ScrollBy(down ? page : -page);
    const int to = Top();
    if (to == from || to >= LastTop()) return;
    const WholeLine& line = whole_.LineAt(to);
    if (down && line.top > from)
        SetTop(line.top);
    else if (down && line.bottom <= from + viewHeight)
        SetTop(std::min(line.bottom, LastTop()));
    else if (!down && line.top < to && line.bottom < from)
        SetTop(line.bottom);
    else if (!down && line.top >= from - viewHeight)
        SetTop(line.top);
}

void WholeView::ScrollToChar(TextPos position) {
    const WholeLine& last = whole_.LineAt(LastTop());
    const int above = std::clamp(LastTop() - last.top, 0, last.Height());
    const TextPos lastChar =
        last.start + TextPos(std::int64_t(last.end - last.start) * above / last.Height());
    if (position >= lastChar) return SetTop(LastTop());
    const WholeLine& line = whole_.LineOf(position);
    const TextPos length = line.end - line.start;
    const std::int64_t part = std::int64_t(position - line.start) * line.Height();
    SetTop(line.top + (length > 0 ? int(part / length) : 0));
}

void WholeView::Reveal(TextPos position) {
    const WholeLine& line = whole_.LineOf(position);
    int from = line.top, to = line.bottom;
    if (to - from > viewHeight) {
        const QRect box = CaretBox(position);
        from = std::max(from, box.top());
        to = std::min(to, box.top() + box.height());
    }
    if (from < Top())
        SetTop(from);
    else if (to > Moved(Top() + viewHeight))
        SetTop(Moved(to - viewHeight));
}

void WholeView::SettleAtEnd() {
    if (!placed_ && Top() > LastTop()) SetTop(LastTop());
}
