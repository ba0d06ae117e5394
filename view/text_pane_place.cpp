// How far a text pane is scrolled, and under which heading.
#include "view/scroll_label.h"
#include "view/text_pane.h"

#include <algorithm>
#include <cstdint>

namespace {
constexpr int labelTime = 1200, searchPause = 10; // milliseconds
} // namespace

int TextPane::Percent() {
    const std::int64_t top = Scroller().TopAsPosition(), end = scroller_.MaxTopAsPosition();
    return top >= end ? 100 : static_cast<int>(100 * top / end);
}

void TextPane::ScrollToPercent(int percent) {
    const std::int64_t end = Scroller().MaxTopAsPosition();
    ScrollTo(static_cast<TextPos>((end * std::clamp(percent, 0, 100) + 99) / 100));
    // A position is a whole number of pixels above the place that was asked for.
    for (int left = LineHeight(); left > 0 && Percent() < percent; --left)
        ScrollBy({0, 1});
}

void TextPane::ShowScrollLabel() {
    if (Scroller().MaxTopAsPosition() == 0) return; // nothing to scroll
    labelShown_ = true;
    window_.StartTimer(PaneTimer::ScrollLabel, labelTime);
    if (!headings_.IsComplete()) FindMoreHeadings();
    window_.Redraw();
}

void TextPane::HideScrollLabel() {
    labelShown_ = false;
    window_.StopTimer(PaneTimer::ScrollLabel);
    window_.Redraw();
}

void TextPane::FindMoreHeadings() {
    headings_.Advance();
    if (headings_.IsComplete())
        window_.StopTimer(PaneTimer::Headings);
    else
        window_.StartTimer(PaneTimer::Headings, searchPause);
    if (labelShown_) window_.Redraw();
}

const std::vector<Heading>& TextPane::Headings(const std::function<bool()>& shouldContinue) {
    while (!headings_.IsComplete() && shouldContinue())
        headings_.Advance();
    return headings_.Found();
}

void TextPane::PaintLabel(Canvas& canvas) {
    const TextPos top = Scroller().TopAsPosition(), end = scroller_.MaxTopAsPosition();
    ScrollLabel label;
    label.percent = Percent();
    label.share = top >= end ? 1 : double(top) / end;
    if (const Heading* heading = headings_.Above(top)) label.heading = heading->text;
    PaintScrollLabel(canvas, lines_, system_, label, {width_, scroller_.ViewHeight()});
}
