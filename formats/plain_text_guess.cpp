#include "formats/plain_text_guess.h"

#include "common/utf.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace {

bool IsAsciiLetter(unsigned byte) {
    return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z';
}

// What a book may well contain: no control characters but white space, nothing private, no
// noncharacters. Surrogates are right in pairs only.
bool IsSensible(char16_t before, char16_t unit, char16_t after) {
    if (unit < 0x20) return unit >= u'\t' && unit <= u'\r';
    if (unit >= 0x7F && unit < 0xA0) return unit == 0x85; // next line
    if (unit >= 0xD800 && unit < 0xDC00) return after >= 0xDC00 && after < 0xE000;
    if (unit >= 0xDC00 && unit < 0xE000) return before >= 0xD800 && before < 0xDC00;
    return !(unit >= 0xE000 && unit < 0xF900) && unit < 0xFFFE;
}

// The number of units below U+0100 when the sample reads as UTF-16 text of this byte order, else 0.
std::size_t LatinUnitsOfUtf16(std::string_view sample, ByteOrder order) {
    const std::size_t count = sample.size() / 2;
    const auto unitAt = [&](std::size_t i) {
        const auto first = static_cast<unsigned char>(sample[2 * i]);
        const auto second = static_cast<unsigned char>(sample[2 * i + 1]);
        return static_cast<char16_t>(order == ByteOrder::Little ? second << 8 | first
                                                                : first << 8 | second);
    };
    std::size_t latin = 0, letterPairs = 0;
    std::size_t senseless = sample.size() % 2; // half a unit at the end
    char16_t before = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const char16_t unit = unitAt(i);
        if (unit == 0) return 0;
        latin += unit < 0x100;
        letterPairs += IsAsciiLetter(unit >> 8) && IsAsciiLetter(unit & 0xFF);
        senseless += !IsSensible(before, unit, i + 1 < count ? unitAt(i + 1) : u'\0');
        before = unit;
    }
    // Read in the wrong order, or when it is no text, about every eighth unit has no sense.
    if (senseless * 20 > count) return 0;
    // Text of one byte a character with a stray NUL looks like ideographs made of two letters each.
    if (letterPairs * 3 > count - latin) return 0;
    return latin * 512 < count ? 0 : latin; // even a paragraph of ideographs has a line end
}

} // namespace

std::optional<ByteOrder> GuessUtf16(std::string_view bytes) {
    const std::string_view sample = bytes.substr(0, guessSample);
    if (sample.find('\0') == std::string_view::npos) return std::nullopt;
    const std::size_t little = LatinUnitsOfUtf16(sample, ByteOrder::Little);
    const std::size_t big = LatinUnitsOfUtf16(sample, ByteOrder::Big);
    if (little == 0 && big == 0) return std::nullopt;
    return little >= big ? ByteOrder::Little : ByteOrder::Big;
}

bool IsCutUtf8Sequence(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = lead < 0xC2 || lead > 0xF4 ? 0
                               : lead < 0xE0              ? 2
                               : lead < 0xF0              ? 3
                                                          : 4;
    return bytes.size() < length && std::all_of(bytes.begin() + 1, bytes.end(), [](char byte) {
               return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
           });
}

bool LooksLikeUtf8(std::string_view bytes) {
    const std::size_t valid = ValidUtf8Length(bytes);
    if (valid == bytes.size()) return true;
    // ASCII with one letter of a code page at the end would pass too, so there must be a whole
    // sequence.
    return IsCutUtf8Sequence(bytes.substr(valid)) &&
           std::any_of(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(valid),
                       [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

// Letters 0xC0 to 0xDF are small in KOI8-R and capital in windows-1251, 0xE0 to 0xFF the other way
// round; and text is mostly small letters. Lest a book in capitals be taken for KOI8-R, its
// commonest letters must agree: the low five bits of a letter say which one it is in either case,
// and each encoding has an alphabet order of its own.
bool LooksLikeKoi8(std::string_view bytes) {
    const auto letters = [](std::initializer_list<int> numbers) {
        std::uint32_t set = 0;
        for (const int number : numbers)
            set |= 1u << number;
        return set;
    };
    const std::uint32_t common1251 =
        letters({0x0E, 0x05, 0x00, 0x08, 0x0D, 0x12, 0x11}); // o e a i n t s
    const std::uint32_t commonKoi8 = letters({0x0F, 0x05, 0x01, 0x09, 0x0E, 0x14, 0x13});

    std::size_t lower = 0, upper = 0, in1251 = 0,
                inKoi8 = 0; // of 0xC0 to 0xDF, of 0xE0 to 0xFF, common letters
    for (const char c : bytes.substr(0, guessSample)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0xC0) continue;
        ++(byte < 0xE0 ? lower : upper);
        in1251 += common1251 >> (byte & 0x1F) & 1;
        inKoi8 += commonKoi8 >> (byte & 0x1F) & 1;
    }
    return lower > upper && inKoi8 > in1251;
}
