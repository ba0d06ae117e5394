// Commands to the page shown, and queries with cached values.
#include "platform/windows/html_view/win_html_view.h"

#include "platform/windows/base/text.h"
#include "platform/windows/html_view/page/page_headings.h"
#include "platform/windows/html_view/page/page_menu.h"

namespace {

template <typename Value>
const Value& Update(Value& cached, const std::optional<Value>& now) {
    if (now) cached = *now;
    return cached;
}

} // namespace

void WinHtmlView::ScrollTo(int left, int top) {
    ApplyZoom();
    snapshot_.scrollTop = top;
    document_.ScrollTo(left, top);
}

void WinHtmlView::Select(const PageSpan& span) {
    ApplyZoom();
    if (SelectRange(RangeOf(document_, span))) ScrollIntoView(span.start);
}

void WinHtmlView::ScrollIntoView(TextPos start) {
    const PageRange first = RangeOf(document_, {start, 1});
    const auto place = PlaceOf(first);
    const auto height = HeightOf(first);
    const auto left = document_.ScrollLeft(), top = document_.ScrollTop();
    if (!place || !height || !left || !top) return;
    const int below = place->top + *height - ViewHeight();
    if (place->top < 0)
        ScrollTo(*left, *top + place->top);
    else if (below > 0)
        ScrollTo(*left, *top + below);
}

void WinHtmlView::SelectAll() {
    SelectRange(document_.WholeText());
}

void WinHtmlView::SetBackColor(Color color) {
    document_.SetBackColor(color);
}

void WinHtmlView::SetTextColor(std::optional<Color> color) {
    document_.SetTextColor(color);
}

bool WinHtmlView::HasText() const {
    if (const PageRange text = document_.WholeText()) snapshot_.hasText = HasTextAfterStart(text);
    return snapshot_.hasText;
}

std::string WinHtmlView::Charset() const {
    if (const auto charset = document_.Charset()) {
        snapshot_.charset.clear();
        for (const wchar_t unit : *charset)
            snapshot_.charset += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return snapshot_.charset;
}

std::u16string WinHtmlView::Title() const {
    if (const auto title = document_.Title()) snapshot_.title = FromWide(*title);
    return snapshot_.title;
}

int WinHtmlView::ScrollTop() const {
    return Update(snapshot_.scrollTop, document_.ScrollTop());
}

int WinHtmlView::ViewHeight() const {
    return Update(snapshot_.viewHeight, document_.ViewHeight());
}

int WinHtmlView::TopMargin() const {
    return Update(snapshot_.topMargin, document_.TopMargin());
}

// Counting walks the text before the selection: cached while the range is the same.
PageSelection WinHtmlView::Selection() const {
    const PageRange range = document_.SelectedText();
    if (!range) return snapshot_.selection;
    if (!IsSame(range, snapshot_.measured)) {
        const auto span = SpanOf(range);
        if (!span) return snapshot_.selection;
        snapshot_.selection.span = *span;
        snapshot_.measured = range;
    }
    // The first line counts as starting at the top margin, whatever its element's margins.
    if (snapshot_.selection.span.start == 0)
        snapshot_.selection.top = TopMargin() - ScrollTop();
    else if (const auto place = PlaceOf(range))
        snapshot_.selection.top = place->top;
    return snapshot_.selection;
}

std::vector<std::u16string> WinHtmlView::TextsOf(const std::vector<PageSpan>& spans) {
    ApplyZoom();
    std::vector<std::u16string> texts;
    for (const PageSpan& span : spans) {
        auto text = TextOf(RangeOf(document_, span));
        if (!text) return {};
        texts.push_back(std::move(*text));
    }
    return texts;
}

std::u16string WinHtmlView::SelectedText() {
    return TextOf(document_.SelectedText()).value_or(u"");
}

std::u16string WinHtmlView::SelectionAsHtml() {
    return HtmlOf(document_.SelectedText()).value_or(u"");
}

std::optional<PageMatch> WinHtmlView::FindAfterSelection(std::u16string_view what,
                                                         FindOptions options) {
    ApplyZoom();
    if (what.empty()) return std::nullopt;
    const PageRange rest = RestAfter(document_, document_.SelectedText());
    const auto from = PlaceOf(rest);
    if (!from || !FindIn(rest, what, options)) return std::nullopt;
    const auto span = SpanOf(rest);
    const auto place = PlaceOf(rest);
    if (!span || !place) return std::nullopt;
    return PageMatch{*span, place->left, place->top, from->top};
}

PrintAnswer WinHtmlView::Print(const std::u16string&) {
    if (!HasText() || !inner_.Handle()) return {};
    SendMessageW(inner_.Handle(), WM_COMMAND, static_cast<WPARAM>(CommandId(PageCommand::Print)),
                 0);
    return {};
}

std::vector<Heading> WinHtmlView::Headings() {
    ApplyZoom();
    return HeadingsOf(document_);
}
