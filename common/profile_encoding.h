// What encoding the bytes of a profile file are in.
#pragma once

#include "common/utf_wide.h"

#include <optional>
#include <string>
#include <string_view>

// The byte order of a file in UTF-16, by its byte-order mark or, without one, by the zero bytes of
// its ASCII characters, of which every profile file has many. None for other encodings.
std::optional<ByteOrder> Utf16OrderOf(std::string_view bytes);

// Without the mark; half a unit at the end is left out.
std::string Utf16BytesToUtf8(std::string_view bytes, ByteOrder);

// Whether a line that is not valid UTF-8 is UTF-8 all the same, with bytes damaged or cut off: it
// has more characters in valid sequences of two and more bytes than bytes in none. Text in a
// code page has such sequences by chance only.
bool IsDamagedUtf8(std::string_view line);
