#include "platform/windows/portable/css_color.h"

#include "common/colors.h"

#include <cwchar>

namespace {

// The number at `at`, which moves after it and a comma. Without scanf, whose formats would be in
// the program for this alone.
std::optional<unsigned> NextNumber(const std::wstring& text, std::size_t& at) {
    const wchar_t* const start = text.c_str() + at;
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(start, &end, 10);
    if (end == start) return std::nullopt;
    at = text.find_first_not_of(L" ,", static_cast<std::size_t>(end - text.c_str()));
    if (at == std::wstring::npos) at = text.size();
    return static_cast<unsigned>(number & 0xFF);
}

std::optional<Color> ParseHex(const std::wstring& text) {
    if (text.size() != 7 || text.find_first_not_of(L"0123456789abcdefABCDEF", 1) != text.npos)
        return std::nullopt;
    return SwapColorOrder(static_cast<Color>(std::wcstoul(text.c_str() + 1, nullptr, 16)));
}

} // namespace

std::optional<Color> ParseCssColor(const std::wstring& text) {
    if (text.starts_with(L'#')) return ParseHex(text);
    const bool mixed = text.starts_with(L"rgba(");
    if (!mixed && !text.starts_with(L"rgb(")) return std::nullopt;
    std::size_t at = mixed ? 5 : 4;
    Color color = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const auto number = NextNumber(text, at);
        if (!number) return std::nullopt;
        color |= *number << shift;
    }
    // Of the opacity it matters only whether it is none.
    if (mixed && text.find_first_of(L"123456789", at) == text.npos) return std::nullopt;
    return color;
}
