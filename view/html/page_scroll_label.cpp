#include "view/html/page_scroll_label.h"

#include "view/scroll_label.h"

namespace {
constexpr int labelTime = 1200; // milliseconds
} // namespace

void PageScrollLabel::Forget() {
    headings_.reset();
    Hide();
}

void PageScrollLabel::Show() {
    isShown_ = true;
    window_.StartTimer(PaneTimer::ScrollLabel, labelTime);
    window_.Redraw();
}

void PageScrollLabel::Hide() {
    isShown_ = false;
    window_.StopTimer(PaneTimer::ScrollLabel);
    window_.Redraw();
}

void PageScrollLabel::Paint(Canvas& canvas, LineLayout& lines, const SystemStyle& system,
                            const PageViewport& view, PageScroller& scroller) {
    if (!isShown_) return;
    const double height = scroller.Height(), max = scroller.MaxHeight();
    ScrollLabel label;
    label.percent = scroller.Percent();
    label.share = height >= max ? 1 : height / max;
    if (!headings_) headings_ = view.page.Headings();
    const int above = HeadingAbove(*headings_, view.StartAtTop());
    if (above >= 0) label.heading = (*headings_)[std::size_t(above)].text;
    PaintScrollLabel(canvas, lines, system, label, view.size);
}
