// Texts in the charsets that a writer would have used, and what the program reads in them.
#pragma once

#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/plain/plain_text.h"

#include <doctest/doctest.h>

#include <string>

// Of a character that is one byte or two.
inline std::string BytesOf(int page, char16_t unit) {
    for (int bytes = 0x80; bytes < 0x10000; ++bytes) {
        const auto first = static_cast<char>(bytes >> 8), second = static_cast<char>(bytes);
        std::string sequence = first ? std::string{first, second} : std::string(1, second);
        std::u16string text;
        DecodeCodePage(page, sequence, text);
        if (text == std::u16string(1, unit)) return sequence;
    }
    FAIL("the page has no such character");
    return {};
}

// As a writer of the charset would.
inline std::string Encoded(int page, std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text)
        bytes += unit < 0x80 ? std::string(1, static_cast<char>(unit)) : BytesOf(page, unit);
    return bytes;
}

inline std::string Decoded(const std::string& bytes, int system = 1252) {
    return Utf16ToUtf8(DecodePlainText(bytes, 0, system).text);
}

inline constexpr char16_t russianText[] =
    u"\u0416\u0438\u043B\u0438-\u0431\u044B\u043B\u0438 \u0441\u0442\u0430\u0440"
    u"\u0438\u043A \u0441\u043E \u0441\u0442\u0430\u0440\u0443\u0445\u043E\u0439 "
    u"\u0443 \u0441\u0430\u043C\u043E\u0433\u043E \u0441\u0438\u043D\u0435\u0433"
    u"\u043E \u043C\u043E\u0440\u044F, \u0438 \u0431\u044B\u043B\u043E \u0443 \u043D"
    u"\u0438\u0445 \u0442\u0440\u0438 \u0441\u044B\u043D\u0430.";
