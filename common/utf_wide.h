// UTF-16 and UTF-32 bytes in either byte order.
#pragma once

#include <string>
#include <string_view>

enum class ByteOrder { LittleEndian, BigEndian };

// A lone surrogate, a number that is no character, and what is left of a cut unit at the end become
// one U+FFFD each.
std::u16string DecodeUtf16(std::string_view bytes, ByteOrder order);
std::u16string DecodeUtf32(std::string_view bytes, ByteOrder order);
