#include "tests/contract/reference_view/reference_view.h"

#include <algorithm>
#include <cmath>

void ReferenceView::Load() {
    anchor = caret = 0;
    preferredX.reset();
    Relayout();
    ScrollLineToTop(0);
}

void ReferenceView::Relayout() {
    reference_ = LayOutReference(settings);
}

int ReferenceView::Top() const {
    const ReferenceLine& line = reference_.LineOf(topChar_);
    return line.top + std::min(hidden_, line.Height() - 1);
}

void ReferenceView::SetTop(int y) {
    const ReferenceLine& line = reference_.LineAt(y);
    topChar_ = line.start;
    hidden_ = std::clamp(y - line.top, 0, line.Height() - 1);
    placed_ = false;
}

TextPos ReferenceView::FirstVisible() const {
    const ReferenceLine& line = reference_.LineOf(topChar_);
    const int visible = line.bottom - Top();
    if (2 * visible >= std::min(line.Height(), viewHeight)) return line.start;
    return reference_.LineAt(Moved(line.bottom)).start;
}

Rect ReferenceView::CaretBox(TextPos position) const {
    const ReferenceLine& line = reference_.LineOf(position);
    const TextLine& measures = reference_.Measures(line);
    const Point origin = reference_.ParagraphOf(line).origin;
    return {origin.x + int(std::floor(reference_.XInParagraph(line, position))),
            origin.y + int(std::floor(line.baseline - origin.y - measures.ascent)), 1,
            int(std::ceil(measures.ascent + measures.descent))};
}

void ReferenceView::ScrollLineToTop(TextPos position) {
    topChar_ = std::clamp(position, 0, TextPos(settings.text.size()));
    hidden_ = 0;
    placed_ = true;
}

void ReferenceView::ScrollBy(int pixels) {
    const int top = Top();
    if (pixels > 0 && top >= MaxTop()) return;
    SetTop(std::min(Moved(top + pixels), std::max(top, MaxTop())));
}

void ReferenceView::ScrollLines(int lines) {
    const int from = Top();
    ScrollBy(lines * lineHeight);
    const int to = Top();
    const ReferenceLine& line = reference_.LineAt(to);
    if (to == from || to >= MaxTop() || 2 * line.Height() > viewHeight) return;
    int nearest = 2 * (to - line.top) <= line.Height() ? line.top : line.bottom;
    if (lines > 0 && nearest <= from) nearest = line.bottom;
    if (lines < 0 && nearest >= from) nearest = line.top;
    SetTop(std::min(nearest, MaxTop()));
}

void ReferenceView::ScrollPage(bool down) {
    const int from = Top(), page = std::max(lineHeight, viewHeight - lineHeight);
    ScrollBy(down ? page : -page);
    const int to = Top();
    if (to == from || to >= MaxTop()) return;
    const ReferenceLine& line = reference_.LineAt(to);
    if (down) {
        if (line.top > from)
            SetTop(line.top);
        else if (line.bottom <= from + viewHeight)
            SetTop(std::min(line.bottom, MaxTop()));
    } else if (line.top < to && line.bottom < from) {
        SetTop(line.bottom);
    } else if (line.top >= from - viewHeight) {
        SetTop(line.top);
    }
}

void ReferenceView::ScrollToPosition(TextPos position) {
    const ReferenceLine& last = reference_.LineAt(MaxTop());
    const int above = std::clamp(MaxTop() - last.top, 0, last.Height());
    const TextPos lastChar =
        last.start + TextPos(std::int64_t(last.end - last.start) * above / last.Height());
    if (position >= lastChar) return SetTop(MaxTop());
    const ReferenceLine& line = reference_.LineOf(position);
    const TextPos length = line.end - line.start;
    const std::int64_t part = std::int64_t(position - line.start) * line.Height();
    SetTop(line.top + (length > 0 ? int(part / length) : 0));
}

void ReferenceView::Reveal(TextPos position) {
    const ReferenceLine& line = reference_.LineOf(position);
    int from = line.top, to = line.bottom;
    if (to - from > viewHeight) {
        const Rect box = CaretBox(position);
        from = std::clamp(box.top, from, to - 1); // headless it is empty beside a picture
        to = std::min(to, Bottom(box));
    }
    if (from < Top())
        SetTop(from);
    else if (to > Moved(Top() + viewHeight))
        SetTop(Moved(to - viewHeight));
}

void ReferenceView::KeepEndAtBottom() {
    if (!placed_ && Top() > MaxTop()) SetTop(MaxTop());
}
