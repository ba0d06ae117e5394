// Bytes that are looked for in a row, some of them known but for a bit or two: in most encodings
// the two cases of a letter differ in no more.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

// Fits every byte that is `value` when the bits of `mask` are set.
struct MaskedByte {
    unsigned char mask = 0, value = 0;

    bool Fits(char byte) const { return (static_cast<unsigned char>(byte) | mask) == value; }
};

using BytePattern = std::vector<MaskedByte>;

BytePattern PatternOf(std::string_view bytes);

// What fits both; nothing when their lengths differ or little would be known of a byte.
std::optional<BytePattern> Joined(const BytePattern& a, const BytePattern& b);

bool IsAt(const BytePattern& pattern, std::string_view bytes, std::size_t at);
