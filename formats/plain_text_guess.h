// What a plain-text file without a byte-order mark seems to be, told from its bytes.
#pragma once

#include "formats/plain_text_wide.h"

#include <cstddef>
#include <optional>
#include <string_view>

// So many bytes of the start are enough to tell by, whatever the size of the book.
constexpr std::size_t guessSample = 1 << 20;

// The byte order when the bytes are UTF-16 text, told by the zero bytes of its blanks, line ends
// and Latin letters. Text with a NUL character and binary data are not taken for it.
std::optional<ByteOrder> GuessUtf16(std::string_view bytes);

// Valid UTF-8, also when it ends within a sequence as a file that was cut does.
bool LooksLikeUtf8(std::string_view bytes);
// Whether the bytes are the start of a sequence, and nothing more.
bool IsCutUtf8Sequence(std::string_view bytes);

// Whether bytes that are said to be windows-1251 are Russian in KOI8-R.
bool LooksLikeKoi8(std::string_view bytes);
