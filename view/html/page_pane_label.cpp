// How far a page is scrolled, and under which heading.
#include "view/html/page_pane.h"
#include "view/scroll_label.h"

namespace {
constexpr int labelTime = 1200; // milliseconds
} // namespace

const std::vector<Heading>& PagePane::Headings() {
    if (!headings_) headings_ = page_->Headings();
    return *headings_;
}

void PagePane::ShowScrollLabel() {
    if (!UpdateLayout() || scroller_.MaxHeight() <= 0) return; // nothing to scroll
    labelShown_ = true;
    window_.StartTimer(PaneTimer::ScrollLabel, labelTime);
    window_.Redraw();
}

void PagePane::HideScrollLabel() {
    labelShown_ = false;
    window_.StopTimer(PaneTimer::ScrollLabel);
    window_.Redraw();
}

// By estimates where what is above has not been measured yet.
void PagePane::PaintLabel(Canvas& canvas) {
    const double height = scroller_.Height(), max = scroller_.MaxHeight();
    ScrollLabel label;
    label.percent = Percent();
    label.share = height >= max ? 1 : height / max;
    const std::vector<Heading>& headings = Headings();
    const int above = HeadingAbove(headings, StartAtTop());
    if (above >= 0) label.heading = headings[std::size_t(above)].text;
    PaintScrollLabel(canvas, lines_, system_, label, options_.viewport);
}
