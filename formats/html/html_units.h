// What a unit of a page's or a sheet's source is for the tokenizers.
#pragma once

#include "common/hex_digits.h"

#include <string_view>

constexpr bool IsHtmlSpace(char16_t unit) {
    // Most units are letters, which the first comparison tells.
    return unit <= u' ' &&
           (unit == u' ' || unit == u'\n' || unit == u'\t' || unit == u'\f' || unit == u'\r');
}

constexpr bool IsAsciiUpper(char16_t unit) {
    return unit >= u'A' && unit <= u'Z';
}

constexpr bool IsAsciiLetter(char16_t unit) {
    return (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z';
}

constexpr bool IsAsciiDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool IsAsciiAlphanumeric(char16_t unit) {
    return IsAsciiLetter(unit) || IsAsciiDigit(unit);
}

constexpr char16_t AsciiLower(char16_t unit) {
    return IsAsciiUpper(unit) ? static_cast<char16_t>(unit | 0x20) : unit;
}

// `lower` is in small letters.
constexpr bool EqualsAsciiLower(std::u16string_view text, std::u16string_view lower) {
    if (text.size() != lower.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (AsciiLower(text[i]) != lower[i]) return false;
    return true;
}

constexpr bool EqualsIgnoringAsciiCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
    return true;
}

constexpr std::size_t HtmlSpaceLength(std::u16string_view text) {
    std::size_t length = 0;
    while (length < text.size() && IsHtmlSpace(text[length]))
        ++length;
    return length;
}
