// Small operations on UTF-16 text that every module needs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

char16_t FoldCase(char16_t unit); // simple upper case of a BMP character, the same on every system
bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b);
bool StartsWithIgnoringCase(std::u16string_view text, std::u16string_view start);

// Without the white space and control characters at both ends: all up to U+0020.
std::u16string_view Trim(std::u16string_view text);
std::string_view Trim(std::string_view text);
std::u16string_view TrimBlanks(std::u16string_view text); // blanks (U+0020) only
// "" gives {""}.
std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator);
std::u16string Join(const std::vector<std::u16string>& parts, std::u16string_view separator);
std::u16string Replace(std::u16string_view text, std::u16string_view from, std::u16string_view to);

// The number at the start of a text, after blanks: sign, digits, one ".", digits; else 0.
double NumericValue(std::u16string_view text);
std::int32_t WholeNumber(std::u16string_view text); // the same, by RoundToEven
std::int32_t RoundToEven(double value); // a half to the even one; kept in 32 bits; 0 for a NaN
std::u16string NumberText(std::int64_t value);

// With low > high: false when strict, else as if they were swapped.
template <typename T>
constexpr bool InRange(const T& value, const T& low, const T& high, bool strict) {
    if (low <= high) return low <= value && value <= high;
    return !strict && high <= value && value <= low;
}
