#include "reading/page_marks.h"

#include "app/main_form.h"
#include "common/text.h"
#include "reading/text_routines.h"

#include <algorithm>

namespace {
constexpr TextPos maxMarkLength = 80;

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

bool CanMarkPage(const MainForm& form) {
    if (!HasPageBody(form)) return false;
    const HtmlView& html = *form.ports.htmlView;
    return html.ScrollTop() > 0 || html.Selection().top != html.TopMargin();
}

std::optional<PageMark> MarkInPage(MainForm& form) {
    if (!HasPageBody(form)) return std::nullopt;
    HtmlView& html = *form.ports.htmlView;
    const auto span = SpanToMark(html);
    if (!span) return std::nullopt;
    const auto texts = html.TextsOf({*span});
    if (texts.size() != 1) return std::nullopt;
    const std::u16string excerpt = texts[0].substr(0, maxMarkLength);
    return PageMark{{span->start, static_cast<TextPos>(excerpt.size())}, excerpt};
}

std::vector<std::u16string> PageExcerpts(MainForm& form, const std::vector<std::u16string>& tags) {
    const bool none = tags.empty() || tags.front().empty();
    if (none || !HasPageBody(form)) return {};
    std::vector<PageSpan> spans;
    for (const std::u16string& tag : tags) {
        const auto parts = Split(tag, u",");
        PageSpan span; // of no length for what is no bookmark
        if (parts.size() == 2)
            span = {std::max(WholeNumber(parts[0]), 0),
                    std::clamp(WholeNumber(parts[1]), 0, maxMarkLength)};
        spans.push_back(span);
    }
    auto texts = form.ports.htmlView->TextsOf(spans);
    if (texts.size() != tags.size()) texts.clear();
    return texts;
}

void GoToPageMark(MainForm& form, const PageSpan& span) {
    form.ports.htmlView->Select(span);
    form.ports.htmlView->ScrollSpanToTop(span);
}
