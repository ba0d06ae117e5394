#include "platform/windows/portable/css_color.h"

#include <cwchar>

std::optional<std::uint32_t> ParseCssColor(const std::wstring& text) {
    unsigned red = 0, green = 0, blue = 0, whole = 0;
    double opacity = 1;
    const wchar_t* css = text.c_str();
    if (text.size() == 7 && std::swscanf(css, L"#%6x", &whole) == 1) return whole;
    const bool plain = std::swscanf(css, L"rgb(%u ,%u ,%u", &red, &green, &blue) == 3;
    const bool mixed =
        std::swscanf(css, L"rgba(%u ,%u ,%u ,%lf", &red, &green, &blue, &opacity) == 4;
    if (!(plain || mixed) || opacity <= 0) return std::nullopt;
    return (red & 0xFF) << 16 | (green & 0xFF) << 8 | (blue & 0xFF);
}
