#include "view/page/html_number.h"

#include <algorithm>

std::optional<int> HtmlNumber(const HtmlNode& element, HtmlName attribute) {
    constexpr int most = 1'000'000;
    const HtmlAttribute* found = element.Attribute(attribute);
    if (!found) return std::nullopt;
    std::u16string_view text = found->Value();
    text.remove_prefix(std::min(text.find_first_not_of(u" \t\n\f\r"), text.size()));
    const bool negative = text.substr(0, 1) == u"-";
    if (negative || text.substr(0, 1) == u"+") text.remove_prefix(1);
    int number = 0, digits = 0;
    for (; !text.empty() && text[0] >= u'0' && text[0] <= u'9'; text.remove_prefix(1), ++digits)
        number = std::min(number * 10 + (text[0] - u'0'), most);
    if (digits == 0) return std::nullopt;
    return negative ? -number : number;
}
