#include "formats/plain/byte_pattern.h"

#include <algorithm>
#include <bit>

namespace {
constexpr int maxMaskedBits = 3; // of a byte

MaskedByte JoinedByte(MaskedByte a, MaskedByte b) {
    const int mask = a.mask | b.mask | (a.value ^ b.value);
    return {static_cast<unsigned char>(mask), static_cast<unsigned char>(a.value | mask)};
}
} // namespace

BytePattern PatternOf(std::string_view bytes) {
    BytePattern pattern;
    for (const char byte : bytes)
        pattern.push_back({0, static_cast<unsigned char>(byte)});
    return pattern;
}

std::optional<BytePattern> Joined(const BytePattern& a, const BytePattern& b) {
    if (a.size() != b.size()) return std::nullopt;
    BytePattern joined(a.size());
    std::transform(a.begin(), a.end(), b.begin(), joined.begin(), JoinedByte);
    const bool loose = std::any_of(joined.begin(), joined.end(), [](MaskedByte byte) {
        return std::popcount(byte.mask) > maxMaskedBits;
    });
    return loose ? std::nullopt : std::optional(joined);
}

bool IsAt(const BytePattern& pattern, std::string_view bytes, std::size_t at) {
    return pattern.size() <= bytes.size() - at &&
           std::equal(pattern.begin(), pattern.end(),
                      bytes.begin() + static_cast<std::ptrdiff_t>(at),
                      [](MaskedByte masked, char byte) { return masked.Fits(byte); });
}
