// Bytes of a page become text here.
#pragma once

#include "formats/html/html_declaration.h"

#include <optional>
#include <string>
#include <string_view>

// In this order: a byte-order mark; what the page declares; zero bytes that show UTF-16; the
// sequences of ISO-2022; UTF-8 when the bytes are valid; `bookCodePage` when it is not 0; the
// guessed charset, `systemCodePage` in doubt. Line ends and NUL stay; there is no byte-order mark.
struct DecodedHtml {
    std::u16string text;
    int codePage = 0; // 65001 for UTF-8, 1200 and 1201 for UTF-16
};
DecodedHtml DecodeHtml(std::string_view bytes, int bookCodePage, int systemCodePage);

// The first two of these, by the first `maxHtmlPrescan` bytes.
bool SaysHtmlCharset(std::string_view bytes);
// The others, of a page without the first two; nothing when its bytes are plain ASCII.
std::optional<DecodedHtml> DecodeUndeclaredHtml(std::string_view bytes, int bookCodePage,
                                                int systemCodePage);
