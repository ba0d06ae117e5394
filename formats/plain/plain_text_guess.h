// Detects the encoding of a plain-text file without a byte-order mark.
#pragma once

#include "common/utf_wide.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

// Bytes of the start that are examined, whatever the size of the book.
constexpr std::size_t guessSample = 1 << 20;

// The byte order when the bytes are UTF-16 text, recognised by the zero bytes of its blanks, line
// ends and Latin letters. Text with a NUL character and binary data are not.
std::optional<ByteOrder> GuessUtf16(std::string_view bytes);

// The same for UTF-32, half of which or more are zero bytes.
std::optional<ByteOrder> GuessUtf32(std::string_view bytes);

// Valid UTF-8, also when it ends within a sequence as a file that was cut does.
bool LooksLikeUtf8(std::string_view bytes);
// Whether the bytes are the start of a sequence, and nothing more.
bool IsTruncatedUtf8Sequence(std::string_view bytes);

// Where a text of this size is looked into for its charset: the start and, of a longer one, places
// through all of it, because a licence in another language may stand before a book. `notUtf8` is
// the first byte that is not UTF-8.
struct SamplePlace {
    std::uint64_t begin = 0;
    std::size_t length = 0; // in bytes
};
std::vector<SamplePlace> SamplePlaces(std::uint64_t size, std::uint64_t notUtf8);

// UTF-8 but for a few stray bytes.
bool LooksLikeDamagedUtf8(std::span<const std::string_view> samples);
