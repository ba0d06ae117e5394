// What a text is recognised by: the same for the same characters, in whatever encoding and with
// whatever line ends the file has them.
#pragma once

#include "common/text_source.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct TextFingerprint {
    TextPos length = 0; // units
    std::uint64_t hash = 0;
    bool operator==(const TextFingerprint&) const = default;
};

// A text of up to `maxHashed` units as a whole; of a longer one, stretches of it, so that no book
// takes more than some milliseconds.
constexpr TextPos maxHashed = 4 << 20;

TextFingerprint FingerprintOf(const TextSource&);

// "length,hash" with the hash in hexadecimal; nothing for another text.
std::u16string StoredFingerprint(const TextFingerprint&);
std::optional<TextFingerprint> ParseFingerprint(std::u16string_view stored);
