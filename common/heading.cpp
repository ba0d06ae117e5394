#include "common/heading.h"

#include "common/find_text.h"
#include "common/unicode.h"
#include "common/utf.h"

#include <algorithm>

int HeadingAbove(const std::vector<Heading>& headings, TextPos position) {
    const auto after = std::ranges::upper_bound(headings, position, {}, &Heading::position);
    return static_cast<int>(after - headings.begin()) - 1;
}

std::vector<int> MatchingHeadings(const std::vector<Heading>& headings, std::u16string_view typed) {
    const TextSearch search(typed, {});
    std::vector<int> matching;
    for (std::size_t i = 0; i < headings.size(); ++i)
        if (typed.empty() || search.FindIn(headings[i].text, 0) != std::u16string_view::npos)
            matching.push_back(static_cast<int>(i));
    return matching;
}

std::u16string IndentedHeading(const Heading& heading) {
    constexpr int maxSteps = 8, width = 4;
    const int steps = std::clamp(heading.level - 1, 0, maxSteps);
    return std::u16string(static_cast<std::size_t>(steps * width), u' ') + heading.text;
}

std::u16string HeadingText(std::u16string_view text) {
    std::u16string line;
    for (const char16_t unit : text) {
        if (line.size() >= maxHeadingLength) break;
        const bool blank = unit <= u' ' || unit == u'\u00A0' || unit == u'\u3000' ||
                           unit == u'\uFFFC' || unit == u'\u2028';
        if (!blank)
            line += unit;
        else if (!line.empty() && line.back() != u' ')
            line += u' ';
    }
    if (!line.empty() && IsHighSurrogate(line.back())) line.pop_back(); // half a pair
    while (!line.empty() && line.back() == u' ')
        line.pop_back();
    return line;
}
