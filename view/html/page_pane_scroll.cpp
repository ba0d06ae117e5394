// Scrolling of a page by its user, and its scroll bars.
#include "view/html/page_pane.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double usualLine = 19; // CSS pixels; of text of 16 pixels
constexpr double keptOfPage = 2; // lines that stay in view when it is turned
} // namespace

int PagePane::LineHeight() {
    return std::max(1, int(std::lround(usualLine * ScaleOf(zoom_))));
}

void PagePane::OnScrolled() {
    window_.Redraw();
    window_.OnVisibleTextChanged();
}

void PagePane::OnUserScrolled() {
    top_.Release();
    OnScrolled();
}

void PagePane::ScrollLines(int lines) {
    ScrollBy({0, lines * LineHeight()});
}

void PagePane::ScrollPage(bool down) {
    const int height = window_.Room().height;
    const int step = std::max(height / 2, height - int(keptOfPage * LineHeight()));
    ScrollBy({0, down ? step : -step});
}

void PagePane::ScrollBy(Point pixels) {
    if (!UpdateLayout()) return;
    Arrive();
    if (pixels.y != 0) scroller_.ScrollBy(pixels.y);
    scrollX_ = std::clamp(scrollX_ + pixels.x, 0, std::max(scrollX_, maxScrollX_));
    OnUserScrolled();
}

int PagePane::VerticalValue() {
    return UpdateLayout() ? int(std::min(scroller_.Height(), 1e9)) : 0;
}

void PagePane::ScrollToValue(int value) {
    if (!UpdateLayout()) return;
    scroller_.ScrollToHeight(value);
    OnUserScrolled();
}

void PagePane::ScrollToX(int x) {
    const int target = std::clamp(x, 0, maxScrollX_);
    if (std::exchange(scrollX_, target) != target) OnScrolled();
}

// Called when painting: what is in view decides how far it scrolls sideways.
void PagePane::UpdateScrollBars() {
    const double max = std::max(scroller_.Height(), scroller_.MaxHeight());
    const int page = options_.viewport.height;
    window_.ShowVertical({VerticalValue(), int(std::min(std::ceil(max), 1e9)), page, LineHeight()});
    maxScrollX_ = std::max(0, int(std::ceil(widest_)) - options_.viewport.width);
    scrollX_ = std::min(scrollX_, maxScrollX_);
    window_.SetHorizontalBar(maxScrollX_ > 0);
    window_.ShowHorizontal({scrollX_, maxScrollX_, options_.viewport.width, LineHeight()});
}

void PagePane::ShowScrollLabel() {
    if (UpdateLayout() && scroller_.MaxHeight() > 0) label_.Show(); // there is something to scroll
}

void PagePane::OnTimer(PaneTimer timer) {
    if (timer == PaneTimer::Measuring) return MeasureMore();
    if (timer == PaneTimer::AutoScroll) AutoScroll();
    if (timer == PaneTimer::ScrollLabel) label_.Hide();
}
