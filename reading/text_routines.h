// Small calculations that the reading tools share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// With low > high: false when strict, else as if they were swapped.
template <typename T>
bool InRange(const T& value, const T& low, const T& high, bool strict) {
    if (low <= high) return low <= value && value <= high;
    return !strict && high <= value && value <= low;
}

inline std::int32_t MaxOf(std::int64_t a, std::int64_t b) {
    return static_cast<std::int32_t>(a > b ? a : b);
}

enum class CompareMode { Exact, IgnoreCase };

// The place of the first element equal to `value`; -1 when it is empty or not there.
std::int32_t IndexInArray(std::u16string_view value, const std::vector<std::u16string>& array,
                          CompareMode = CompareMode::Exact);

std::vector<std::uint8_t> StringToBytes(std::u16string_view text);     // UTF-16LE
std::vector<std::int32_t> StringToCodeUnits(std::u16string_view text); // one value per UTF-16 unit

// Every unit from 128 on becomes "&#" decimal ";". Stops before the piece that would make the
// result longer than `maxLength` (0: no limit).
std::u16string EncodeNonAscii(std::u16string_view text, int maxLength = 0);

// The same for bytes in a code page; 0 means `systemCodePage`.
std::u16string EncodePageText(std::string_view bytes, int codePage, int systemCodePage,
                              int maxLength);

std::u16string OneLine(std::u16string text); // control characters become blanks

// "&#" decimal ";" and "&#x" hexadecimal ";" become the characters they stand for; a number that is
// no character stays as it is written.
std::u16string DecodeCharRefs(std::u16string_view text);
