#include "platform/windows/html_view/page/scroll_anchor.h"

bool ScrollAnchor::Holds(const PageDocument& document) const {
    return line_ && document.ScrollTop().value_or(0) == scrollTop_;
}

PageRange ScrollAnchor::Line(const PageDocument& document, int topMargin) const {
    if (Holds(document)) return line_;
    return document.ScrollTop().value_or(0) > 0 ? LineAt(document, topMargin) : PageRange();
}

void ScrollAnchor::Save(const PageDocument& document, int topMargin) {
    if (!Holds(document)) Set(document, Line(document, topMargin));
}

void ScrollAnchor::Set(const PageDocument& document, const PageRange& line) {
    const auto place = PlaceOf(line);
    line_ = place ? line : PageRange();
    top_ = place ? place->top : 0;
    scrollTop_ = document.ScrollTop().value_or(0);
}

void ScrollAnchor::Restore(PageDocument& document) {
    const auto place = PlaceOf(line_);
    const auto left = document.ScrollLeft(), top = document.ScrollTop();
    if (!place || !left || !top) return;
    document.ScrollTo(*left, *top + place->top - top_);
    scrollTop_ = document.ScrollTop().value_or(-1);
}
