#include "platform/windows/html_view/page/page_text.h"

#include "platform/windows/base/com_values.h"
#include "platform/windows/base/text.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr long maxDistance = 1 << 27;   // characters, more than a page has
constexpr long wholeRange = 0x3FFFFFFF; // of a search
constexpr long findsWholeWords = 2, findsSameCase = 4;

bool Move(const PageRange& range, long count, long* moved) {
    const Bstr unit(L"character");
    return range && SUCCEEDED(range->move(unit.Get(), count, moved));
}

bool MoveEnd(const PageRange& range, long count, long* moved) {
    const Bstr unit(L"character");
    return range && SUCCEEDED(range->moveEnd(unit.Get(), count, moved));
}

// Collapses the range to its start or end.
std::optional<TextPos> PositionOf(const PageRange& range, bool ofStart) {
    long moved = 0;
    if (!range || FAILED(range->collapse(ofStart ? VARIANT_TRUE : VARIANT_FALSE))) return {};
    if (!Move(range, -maxDistance, &moved)) return {};
    return static_cast<TextPos>(std::labs(moved));
}

// get_text returns CR LF for a break that counts as one character.
std::u16string WithOneBreak(std::wstring_view text) {
    std::u16string result = FromWide(text);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < result.size(); ++i)
        if (result[i] != u'\r' || i + 1 == result.size() || result[i + 1] != u'\n')
            result[kept++] = result[i];
    result.resize(kept);
    return result;
}

} // namespace

PageRange Copy(const PageRange& range) {
    PageRange copy;
    if (!range || FAILED(range->duplicate(&copy))) return {};
    return copy;
}

PageRange RangeOf(const PageDocument& document, const PageSpan& span) {
    PageRange range = document.WholeText();
    long moved = 0;
    if (!range || FAILED(range->collapse(VARIANT_TRUE))) return {};
    if (span.start > 0 && !Move(range, span.start, &moved)) return {};
    if (span.length > 0 && !MoveEnd(range, span.length, &moved)) return {};
    return range;
}

std::optional<TextPos> StartOf(const PageRange& range) {
    return PositionOf(Copy(range), true);
}

std::optional<PageSpan> SpanOf(const PageRange& range) {
    const auto start = StartOf(range);
    const auto end = start ? PositionOf(Copy(range), false) : std::nullopt;
    if (!end) return std::nullopt;
    return PageSpan{*start, std::max(*end - *start, 0)};
}

std::optional<std::u16string> TextOf(const PageRange& range) {
    Bstr text;
    if (!range || FAILED(range->get_text(text.Put()))) return std::nullopt;
    return WithOneBreak(text.View());
}

std::optional<std::u16string> HtmlOf(const PageRange& range) {
    Bstr source;
    if (!range || FAILED(range->get_htmlText(source.Put()))) return std::nullopt;
    return FromWide(source.View());
}

std::optional<TextPoint> PlaceOf(const PageRange& range) {
    const auto metrics = Query<IHTMLTextRangeMetrics>(range);
    long left = 0, top = 0;
    if (!metrics || FAILED(metrics->get_offsetLeft(&left)) || FAILED(metrics->get_offsetTop(&top)))
        return std::nullopt;
    return TextPoint{static_cast<int>(left), static_cast<int>(top)};
}

std::optional<int> HeightOf(const PageRange& range) {
    const auto metrics = Query<IHTMLTextRangeMetrics>(range);
    long height = 0;
    if (!metrics || FAILED(metrics->get_boundingHeight(&height))) return std::nullopt;
    return static_cast<int>(height);
}

bool SelectRange(const PageRange& range) {
    return range && SUCCEEDED(range->select());
}

bool HasTextAfterStart(const PageRange& range) {
    const PageRange first = Copy(range);
    long moved = 0;
    return first && SUCCEEDED(first->collapse(VARIANT_TRUE)) && MoveEnd(first, 1, &moved) &&
           moved == 1;
}

PageRange RangeAt(const PageDocument& document, int left, int top) {
    PageRange range = document.WholeText();
    if (!range || FAILED(range->moveToPoint(left, top))) return {};
    return range;
}

PageRange LineAt(const PageDocument& document, int top) {
    PageRange line = RangeAt(document, 0, top);
    const PageRange character = Copy(line);
    long moved = 0;
    if (!character || !MoveEnd(character, 1, &moved)) return line;
    const auto place = PlaceOf(character);
    const auto height = HeightOf(character);
    if (!place || !height) return line;
    const int bottom = place->top + *height;
    if (bottom - top > *height / 4) return line;
    PageRange next = RangeAt(document, 0, bottom + 1);
    return next ? next : line;
}

bool IsInside(const PageRange& inner, const PageRange& outer) {
    VARIANT_BOOL inside = VARIANT_FALSE;
    return inner && outer && SUCCEEDED(outer->inRange(inner.Get(), &inside)) &&
           inside != VARIANT_FALSE;
}

bool IsSame(const PageRange& a, const PageRange& b) {
    VARIANT_BOOL same = VARIANT_FALSE;
    return a && b && SUCCEEDED(a->isEqual(b.Get(), &same)) && same != VARIANT_FALSE;
}

PageRange RestAfter(const PageDocument& document, const PageRange& after) {
    PageRange rest = document.WholeText();
    const Bstr how(L"StartToEnd");
    if (rest && after && FAILED(rest->setEndPoint(how.Get(), after.Get()))) return {};
    return rest;
}

bool FindIn(const PageRange& range, std::u16string_view what, FindOptions options) {
    const Bstr text(ToWide(what));
    const long flags =
        (options.wholeWord ? findsWholeWords : 0) | (options.matchCase ? findsSameCase : 0);
    VARIANT_BOOL found = VARIANT_FALSE;
    return range && SUCCEEDED(range->findText(text.Get(), wholeRange, flags, &found)) &&
           found != VARIANT_FALSE;
}
