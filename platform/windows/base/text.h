// Between char16_t and wchar_t, which are both UTF-16 code units on Windows.
#pragma once

#include <string>
#include <string_view>

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline std::wstring ToWide(std::u16string_view text) {
    return std::wstring(text.begin(), text.end());
}

inline std::u16string FromWide(std::wstring_view text) {
    return std::u16string(text.begin(), text.end());
}
