#include "platform/windows/html_view/page/scroll_anchor.h"

// Unless the page was scrolled meanwhile, the anchor character stays the same: taking the start of
// its current line instead would drift back with every change.
void ScrollAnchor::Save(const PageDocument& document, int topMargin) {
    const int scrollTop = document.ScrollTop().value_or(0);
    if (line_ && scrollTop == scrollTop_) return;
    line_ = scrollTop > 0 ? RangeAt(document, 0, topMargin) : PageRange();
    const auto place = PlaceOf(line_);
    if (!place) line_.Reset();
    top_ = place ? place->top : 0;
    scrollTop_ = scrollTop;
}

void ScrollAnchor::Restore(PageDocument& document) {
    const auto place = PlaceOf(line_);
    const auto left = document.ScrollLeft(), top = document.ScrollTop();
    if (!place || !left || !top) return;
    document.ScrollTo(*left, *top + place->top - top_);
    scrollTop_ = document.ScrollTop().value_or(-1);
}
