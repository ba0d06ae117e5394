#include "reading/page_marks.h"

#include "common/text.h"
#include "reading/bookmarks.h"

#include <algorithm>

namespace {
// What is marked, before it is known how much text is there; nothing without an answer.
std::optional<PageSpan> SpanToMark(HtmlView& html) {
    const PageSelection selection = html.Selection();
    if (InRange(selection.top, 0, html.ViewHeight(), false)) {
        const PageSpan& span = selection.span;
        return PageSpan{span.start,
                        span.length == 0 ? maxMarkLength : std::min(span.length, maxMarkLength)};
    }
    const TextPos start = html.StartAtTop();
    if (start < 0) return std::nullopt;
    return PageSpan{start, maxMarkLength};
}
} // namespace

bool CanMarkPage(const HtmlView& view) {
    return view.ScrollTop() > 0 || view.Selection().top != view.TopMargin();
}

std::optional<PageMark> MarkInPage(HtmlView& view) {
    const auto span = SpanToMark(view);
    if (!span) return std::nullopt;
    const auto texts = view.TextsOf({*span});
    if (texts.size() != 1) return std::nullopt;
    const std::u16string excerpt = texts[0].substr(0, maxMarkLength);
    return PageMark{{span->start, static_cast<TextPos>(excerpt.size())}, excerpt};
}

std::vector<PageSpan> MarkedSpans(const std::vector<std::u16string>& tags) {
    if (tags.empty() || tags.front().empty()) return {};
    std::vector<PageSpan> spans;
    for (const std::u16string& tag : tags) {
        const auto mark = ParseMark(tag).value_or(PageSpan()); // of no length for what is none
        spans.push_back({mark.start, std::min(mark.length, maxMarkLength)});
    }
    return spans;
}

void GoToPageMark(HtmlView& view, const PageSpan& span) {
    view.Select(span);
    view.ScrollSpanToTop(span);
}
