// Small calculations that are tested and that no command of the program calls at present.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

inline std::int32_t MaxOf(std::int64_t a, std::int64_t b) {
    return static_cast<std::int32_t>(a > b ? a : b);
}

enum class CompareMode { Exact, IgnoreCase };

// The place of the first element equal to `value`; -1 when it is empty or not there.
std::int32_t IndexInArray(std::u16string_view value, const std::vector<std::u16string>& array,
                          CompareMode = CompareMode::Exact);

std::vector<std::uint8_t> StringToBytes(std::u16string_view text);     // UTF-16LE
std::vector<std::int32_t> StringToCodeUnits(std::u16string_view text); // one value per UTF-16 unit

// EncodeNonAscii for bytes in a code page; 0 means `systemCodePage`.
std::u16string EncodePageText(std::string_view bytes, int codePage, int systemCodePage,
                              int maxLength);

struct ColorComponents {
    std::uint8_t first = 0, second = 0, third = 0; // of a blue-green-red colour: blue, green, red
};

// The three components in decimal, joined by ",". "" for a value of more than 24 bits or below 0,
// and `components` then stays as it was.
std::u16string ColorToComponentsText(std::int64_t value, ColorComponents& components);
