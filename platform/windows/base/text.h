// Between char16_t and wchar_t, which are both UTF-16 code units on Windows.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <string_view>

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline std::wstring ToWide(std::u16string_view text) {
    return std::wstring(text.begin(), text.end());
}

inline std::u16string FromWide(std::wstring_view text) {
    return std::u16string(text.begin(), text.end());
}

// As the file system compares names.
inline bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

inline bool StartsWithIgnoringCase(std::wstring_view text, std::wstring_view start) {
    return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

inline std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

constexpr DWORD maxPathLength = 32'767; // units: the system's limit

// Of the running executable.
inline std::wstring ProgramPath() {
    std::wstring path(maxPathLength, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), maxPathLength));
    return path;
}
