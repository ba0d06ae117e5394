#include "formats/html/html_integer.h"

#include "formats/html/html_units.h"

#include <algorithm>

std::optional<int> HtmlInteger(std::u16string_view text) {
    constexpr int maxNumber = 1'000'000;
    constexpr std::size_t maxUnits = 1024; // with blanks and zeros before; some are read often
    text = text.substr(0, maxUnits);
    text.remove_prefix(HtmlSpaceLength(text));
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) text.remove_prefix(1);
    if (text.empty() || !IsAsciiDigit(text[0])) return std::nullopt;
    int number = 0;
    for (; !text.empty() && IsAsciiDigit(text[0]); text.remove_prefix(1))
        number = std::min(number * 10 + (text[0] - u'0'), maxNumber);
    return negative ? -number : number;
}

std::optional<int> HtmlInteger(const HtmlNode& element, HtmlName attribute) {
    const HtmlAttribute* const found = element.Attribute(attribute);
    return found ? HtmlInteger(found->Value()) : std::nullopt;
}

std::optional<int> HtmlNonNegative(std::u16string_view text) {
    const std::optional<int> number = HtmlInteger(text);
    return number && *number >= 0 ? number : std::nullopt;
}
