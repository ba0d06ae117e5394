#include "common/text.h"

#include "common/case_table.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <type_traits>

char16_t FoldCase(char16_t unit) {
    return static_cast<char16_t>(unit + caseShift[caseBlockOf[unit >> 8]][unit & 0xFF]);
}

bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() && StartsWithIgnoringCase(a, b);
}

bool StartsWithIgnoringCase(std::u16string_view text, std::u16string_view start) {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(),
                      [](char16_t a, char16_t b) { return a == b || FoldCase(a) == FoldCase(b); });
}

namespace {
template <class Unit>
std::basic_string_view<Unit> TrimUnits(std::basic_string_view<Unit> text) {
    const auto isKept = [](Unit unit) { return std::make_unsigned_t<Unit>(unit) > U' '; };
    const auto first = std::ranges::find_if(text, isKept);
    const auto last = std::find_if(text.rbegin(), std::make_reverse_iterator(first), isKept);
    return {first, last.base()};
}
} // namespace

std::u16string_view Trim(std::u16string_view text) {
    return TrimUnits(text);
}

std::string_view Trim(std::string_view text) {
    return TrimUnits(text);
}

std::u16string_view TrimBlanks(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string> parts;
    std::size_t start = 0;
    if (!separator.empty()) {
        for (std::size_t found; (found = text.find(separator, start)) != std::u16string_view::npos;
             start = found + separator.size())
            parts.emplace_back(text.substr(start, found - start));
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

std::u16string Join(const std::vector<std::u16string>& parts, std::u16string_view separator) {
    std::u16string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) text += separator;
        text += parts[i];
    }
    return text;
}

std::u16string Replace(std::u16string_view text, std::u16string_view from, std::u16string_view to) {
    std::u16string result;
    std::size_t start = 0;
    if (!from.empty()) {
        for (std::size_t found; (found = text.find(from, start)) != std::u16string_view::npos;
             start = found + from.size()) {
            result += text.substr(start, found - start);
            result += to;
        }
    }
    result += text.substr(start);
    return result;
}
