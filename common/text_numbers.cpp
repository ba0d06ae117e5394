#include "common/text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

// The digits at the start of a text, with at most one point, in ASCII.
std::string LeadingNumber(std::u16string_view text) {
    std::string number;
    bool hasPoint = false;
    for (const char16_t unit : text) {
        if (!IsDigit(unit) && (unit != u'.' || hasPoint)) break;
        hasPoint = hasPoint || unit == u'.';
        number += static_cast<char>(unit);
    }
    return number;
}

} // namespace

double NumericValue(std::u16string_view text) {
    text = TrimBlanks(text);
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) text.remove_prefix(1);

    const std::string number = LeadingNumber(text);
    double value = 0; // stays when there is no digit
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value,
                                        std::chars_format::fixed);
    // Out of range either way: too large when there is a whole part, too small to tell from 0 when
    // there is none.
    if (result.ec == std::errc::result_out_of_range)
        value = number.find_first_of("123456789") < number.find('.')
                    ? std::numeric_limits<double>::infinity()
                    : 0;
    return negative ? -value : value;
}

std::int32_t WholeNumber(std::u16string_view text) {
    return RoundToEven(NumericValue(text));
}

std::int32_t RoundToEven(double value) {
    if (std::isnan(value)) return 0;
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (value <= lowest) return std::numeric_limits<std::int32_t>::min();
    if (value >= highest) return std::numeric_limits<std::int32_t>::max();
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    return static_cast<std::int32_t>(up ? below + 1 : below);
}

std::u16string NumberText(std::int64_t value) {
    char digits[20]; // as long as the lowest 64-bit number
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    return std::u16string(digits, result.ptr);
}
