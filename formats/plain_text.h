// Bytes of a plain-text book become text here, and nowhere else.
#pragma once

#include <string>
#include <string_view>

enum class TextEncoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Utf32LittleEndian, Utf32BigEndian, CodePage };

struct DecodedText {
    std::u16string text; // line ends as in the file; NUL and undecodable bytes are U+FFFD; no byte-order mark
    TextEncoding encoding = TextEncoding::Utf8;
    int codePage = 0;    // for TextEncoding::CodePage
};

// In this order: a byte-order mark; UTF-16 without one, told by its zero bytes; valid UTF-8; `bookCodePage` when
// it is not 0; `systemCodePage`.
DecodedText DecodePlainText(std::string_view bytes, int bookCodePage, int systemCodePage);
