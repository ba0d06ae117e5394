// What stands at the top of the page's view, and how it is brought there.
#include "platform/windows/html_view/win_html_view.h"

#include <algorithm>

void WinHtmlView::ScrollSpanToTop(const PageSpan& span) {
    ApplyZoom();
    const auto place = PlaceOf(RangeOf(document_, span));
    const auto scrolled = document_.ScrollTop();
    if (place && scrolled) ScrollTo(0, place->top + *scrolled - TopMargin());
}

void WinHtmlView::BringToTop(const PageTop& top) {
    ApplyZoom();
    const PageRange line = top.start > 0 ? RangeOf(document_, {top.start, 1}) : PageRange();
    const auto place = PlaceOf(line);
    const auto height = HeightOf(line), scrolled = document_.ScrollTop();
    if (!place || !height || !scrolled) return ScrollTo(0, std::max(top.offset, 0));
    ScrollTo(0, top.OffsetAt(place->top + *scrolled - TopMargin(), *height));
    scrollAnchor_.Set(document_, RangeOf(document_, {top.start, 0}));
}

// Counting walks the text before the line: cached while that is the same.
PageTop WinHtmlView::Top() const {
    PageTop& top = snapshot_.top;
    top.offset = ScrollTop();
    if (!document_) return top;
    if (top.offset <= 0) return top = {.offset = 0, .start = 0};
    const PageRange line = scrollAnchor_.Line(document_, TopMargin());
    const auto place = PlaceOf(line);
    if (!place) return top = {.offset = top.offset};
    if (!IsSame(line, snapshot_.topLine)) ReadTopLine(line);
    top.above = TopMargin() - place->top;
    return top;
}

void WinHtmlView::ReadTopLine(const PageRange& line) const {
    PageTop& top = snapshot_.top;
    top = {.offset = top.offset, .start = StartOf(line).value_or(-1)};
    snapshot_.topLine = line;
    if (top.start < 0) return;
    const TextPos first = std::max(0, top.start - PageTop::maxAround);
    top.before = TextOf(RangeOf(document_, {first, top.start - first})).value_or(u"");
    top.after = TextOf(RangeOf(document_, {top.start, PageTop::maxAround})).value_or(u"");
    if (const auto whole = SpanOf(document_.WholeText())) top.length = whole->length;
}

TextPos WinHtmlView::StartAtTop() {
    ApplyZoom();
    return StartOf(LineAt(document_, TopMargin())).value_or(-1);
}

int WinHtmlView::Percent() const {
    const auto top = document_.ScrollTop(), max = document_.MaxScrollTop();
    if (top && max) snapshot_.percent = *top >= *max ? 100 : MulDiv(100, *top, *max);
    return snapshot_.percent;
}

void WinHtmlView::ScrollToPercent(int percent) {
    ApplyZoom();
    if (const auto max = document_.MaxScrollTop()) ScrollTo(0, (*max * percent + 99) / 100);
}
