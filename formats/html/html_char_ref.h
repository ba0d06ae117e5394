// Character references of HTML: "&amp;", "&#38;", "&#x26;", and those without their semicolon.
#pragma once

#include <cstddef>
#include <string_view>

struct HtmlCharRef {
    char16_t units[2] = {};
    std::size_t unitCount = 0; // 0: no reference
    std::size_t length = 0;    // of its source, the "&" included
};

// Of the "&" that `text` begins with.
HtmlCharRef ReadHtmlCharRef(std::u16string_view text);
// In attributes a name without a semicolon before a letter, a digit or "=" is none: "?a=1&copy=2".
HtmlCharRef ReadHtmlAttributeCharRef(std::u16string_view text);
