#include "formats/plain/plain_text_guess.h"

#include "common/utf.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

bool IsAsciiLetter(unsigned byte) {
    return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z';
}

// What a book may well contain: no control characters but white space, nothing private, no
// noncharacters. Surrogates are right in pairs only.
bool IsSensible(char16_t before, char16_t unit, char16_t after) {
    if (unit < 0x20) return unit >= u'\t' && unit <= u'\r';
    if (unit >= 0x7F && unit < 0xA0) return unit == 0x85; // next line
    if (IsHighSurrogate(unit)) return IsLowSurrogate(after);
    if (IsLowSurrogate(unit)) return IsHighSurrogate(before);
    return !(unit >= 0xE000 && unit < 0xF900) && unit < 0xFFFE;
}

// The number of units below U+0100 when the sample reads as UTF-16 text of this byte order, else 0.
std::size_t LatinUnitsOfUtf16(std::string_view sample, ByteOrder order) {
    const std::size_t count = sample.size() / 2;
    const auto unitAt = [&](std::size_t i) {
        const auto first = static_cast<unsigned char>(sample[2 * i]);
        const auto second = static_cast<unsigned char>(sample[2 * i + 1]);
        return static_cast<char16_t>(order == ByteOrder::LittleEndian ? second << 8 | first
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

// A word or two, which have no blank and no line end: the letters of one script all have the same
// byte, which is a control character by itself (Greek to Arabic).
bool IsWordOfUtf16(std::string_view bytes, ByteOrder order) {
    constexpr std::size_t maxSize = 64; // bytes
    if (bytes.size() < 4 || bytes.size() > maxSize || bytes.size() % 2 != 0) return false;
    const std::size_t upper = order == ByteOrder::LittleEndian ? 1 : 0;
    for (std::size_t i = upper; i < bytes.size(); i += 2)
        if (bytes[i] < 3 || bytes[i] > 6 || bytes[i] != bytes[upper]) return false;
    return true;
}

} // namespace

std::optional<ByteOrder> GuessUtf16(std::string_view bytes) {
    const std::string_view sample = bytes.substr(0, guessSample);
    if (sample.find('\0') == std::string_view::npos) {
        if (IsWordOfUtf16(bytes, ByteOrder::LittleEndian)) return ByteOrder::LittleEndian;
        if (IsWordOfUtf16(bytes, ByteOrder::BigEndian)) return ByteOrder::BigEndian;
        return std::nullopt;
    }
    const std::size_t little = LatinUnitsOfUtf16(sample, ByteOrder::LittleEndian);
    const std::size_t big = LatinUnitsOfUtf16(sample, ByteOrder::BigEndian);
    if (little == 0 && big == 0) return std::nullopt;
    return little >= big ? ByteOrder::LittleEndian : ByteOrder::BigEndian;
}

namespace {
bool IsUtf32(std::string_view sample, ByteOrder order) {
    for (std::size_t i = 0; i + 4 <= sample.size(); i += 4) {
        char32_t value = 0;
        for (std::size_t byte = 0; byte < 4; ++byte)
            value = value << 8 | static_cast<unsigned char>(
                                     sample[i + (order == ByteOrder::BigEndian ? byte : 3 - byte)]);
        const bool blank = value >= U'\t' && value <= U'\r';
        if ((value < 0x20 && !blank) || IsSurrogate(value) || value >= 0x110000) return false;
    }
    return true;
}
} // namespace

std::optional<ByteOrder> GuessUtf32(std::string_view bytes) {
    constexpr std::size_t minSize = 16; // bytes
    const std::string_view sample = bytes.substr(0, 64 * 1024);
    if (sample.size() < minSize || sample.find('\0') == sample.npos) return std::nullopt;
    for (const ByteOrder order : {ByteOrder::LittleEndian, ByteOrder::BigEndian})
        if (IsUtf32(sample, order)) return order;
    return std::nullopt;
}

bool IsTruncatedUtf8Sequence(std::string_view bytes) {
    const int length = Utf8SequenceLength(static_cast<unsigned char>(bytes[0]));
    return bytes.size() < static_cast<std::size_t>(length) &&
           std::all_of(bytes.begin() + 1, bytes.end(),
                       [](char byte) { return IsUtf8Continuation(byte); });
}

bool LooksLikeUtf8(std::string_view bytes) {
    const std::size_t valid = ValidUtf8Length(bytes);
    if (valid == bytes.size()) return true;
    // ASCII with one letter of a code page at the end would pass too, so there must be a whole
    // sequence.
    return IsTruncatedUtf8Sequence(bytes.substr(valid)) &&
           std::any_of(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(valid),
                       [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

std::vector<SamplePlace> SamplePlaces(std::uint64_t size, std::uint64_t notUtf8) {
    constexpr std::size_t sampleSize = 4096;
    constexpr std::uint64_t sampleCount = 12;
    std::vector<SamplePlace> places{
        {0, static_cast<std::size_t>(std::min<std::uint64_t>(size, guessSample))}};
    if (size <= guessSample) return places;
    const std::uint64_t last = std::max<std::uint64_t>(size - sampleSize, guessSample);
    const auto add = [&](std::uint64_t begin) {
        places.push_back(
            {begin, static_cast<std::size_t>(std::min<std::uint64_t>(sampleSize, size - begin))});
    };
    for (std::uint64_t i = 1; i <= sampleCount; ++i)
        add(guessSample + (last - guessSample) / sampleCount * i);
    if (notUtf8 >= guessSample) add(std::min(notUtf8 - sampleSize / 2, last));
    return places;
}

bool LooksLikeDamagedUtf8(std::span<const std::string_view> samples) {
    constexpr std::size_t minSequences = 3, perStray = 8, fewStray = 2, perFewStray = 3;
    std::size_t sequences = 0, stray = 0;
    for (std::string_view rest : samples) {
        while (!rest.empty() && stray <= 16 + sequences / perStray) {
            const std::size_t valid = ValidUtf8Length(rest);
            sequences +=
                valid - Utf16Length(rest.substr(0, valid)) >= 1
                    ? static_cast<std::size_t>(std::count_if(
                          rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(valid),
                          [](char byte) { return static_cast<unsigned char>(byte) >= 0xC0; }))
                    : 0;
            rest.remove_prefix(valid);
            if (rest.empty() || IsTruncatedUtf8Sequence(rest)) break;
            ++stray;
            rest.remove_prefix(1);
        }
    }
    // In a short text two may stand close together.
    return sequences >= minSequences &&
           sequences >= (stray <= fewStray ? perFewStray : perStray) * stray;
}
