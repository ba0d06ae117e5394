#include "platform/windows/html_view/page/page_headings.h"

#include "platform/windows/base/com_values.h"
#include "platform/windows/base/text.h"
#include "platform/windows/html_view/page/page_text.h"

#include <algorithm>

namespace {

// The engine counts a position from the page's start: that many are found within a second.
constexpr long maxElements = 2'000; // of one level

std::optional<Heading> HeadingOf(const PageDocument& document, const ComPtr<IHTMLElement>& element,
                                 int level) {
    const PageRange range = document.WholeText();
    Bstr text;
    if (!range || FAILED(element->get_innerText(text.Put()))) return std::nullopt;
    const std::u16string line = HeadingText(FromWide(text.View()));
    if (line.empty() || FAILED(range->moveToElementText(element.Get()))) return std::nullopt;
    const auto start = StartOf(range);
    if (!start) return std::nullopt;
    return Heading{*start, level, line};
}

void AddLevel(const PageDocument& document, int level, std::vector<Heading>& headings) {
    const wchar_t name[] = {L'h', static_cast<wchar_t>(L'0' + level), L'\0'};
    const auto elements = document.Elements(name);
    long count = 0;
    if (!elements || FAILED(elements->get_length(&count))) return;
    for (long i = 0; i < std::min(count, maxElements); ++i) {
        VARIANT number = {}, none = {}; // the element, and no further choice among some
        V_VT(&number) = VT_I4;
        V_I4(&number) = i;
        ComPtr<IDispatch> item;
        if (FAILED(elements->item(number, none, &item))) continue;
        const auto element = Query<IHTMLElement>(item);
        if (!element) continue;
        if (auto heading = HeadingOf(document, element, level))
            headings.push_back(std::move(*heading));
    }
}

} // namespace

std::vector<Heading> HeadingsOf(const PageDocument& document) {
    constexpr int levels = 6;
    std::vector<Heading> headings;
    for (int level = 1; level <= levels; ++level)
        AddLevel(document, level, headings);
    std::ranges::stable_sort(headings, {}, &Heading::position);
    return headings;
}
