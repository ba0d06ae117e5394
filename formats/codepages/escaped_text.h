// Charsets that switch between ASCII and pairs of bytes by sequences in the text: ISO-2022 and HZ.
// All their bytes are ASCII; what one means depends on the escape sequences before it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// As Windows numbers them.
constexpr int iso2022JpPage = 50220, iso2022KrPage = 50225, iso2022CnPage = 50227, hzPage = 52936;

bool IsEscapedPage(int codePage);

// The charset whose sequences are in the text, when all of it can be read so. `start` may end
// anywhere.
std::optional<int> EscapedPage(std::string_view start);

// Appends the text. What has no meaning becomes U+FFFD.
void DecodeEscaped(int codePage, std::string_view bytes, std::u16string& text);
