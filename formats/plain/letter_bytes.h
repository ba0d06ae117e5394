// The bytes that letters have in a plain text.
#pragma once

#include "formats/plain/byte_pattern.h"
#include "formats/plain/plain_text.h"

#include <cstddef>
#include <string_view>
#include <vector>

// Whatever is decoded as a letter, or in any case as a form of it, fits one of the patterns. The
// first is that of its usual forms; another is for one like the long s, or for a second place in a
// code page. None: no bytes are decoded as the letter, unless it is ambiguous.
struct LetterBytes {
    std::vector<BytePattern> patterns;
    bool ambiguous = false; // what is decoded as it cannot be told: a line end, U+FFFD, half a pair
    std::size_t most = 0;   // bytes that it has at most
};

// For each letter, a unit or a surrogate pair.
std::vector<LetterBytes> BytesOfLetters(const PlainTextForm& form, std::u16string_view text,
                                        bool matchCase);
