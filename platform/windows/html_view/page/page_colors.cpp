#include "platform/windows/html_view/page/page_colors.h"

#include "platform/windows/base/com_values.h"

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

namespace {

using StyleProperty = HRESULT (IHTMLCSSStyleDeclaration::*)(VARIANT*);

std::optional<std::uint32_t> ColorIn(const ComPtr<IHTMLCSSStyleDeclaration>& style,
                                     StyleProperty property) {
    Variant color;
    if (!style || FAILED((style.Get()->*property)(color.Put()))) return std::nullopt;
    return ParseCssColor(TextOf(&color.Get()));
}

} // namespace

PageColors ColorsOf(const PageDocument& document) {
    const auto body = document.ComputedStyle(true), root = document.ComputedStyle(false);
    auto background = ColorIn(body, &IHTMLCSSStyleDeclaration::get_backgroundColor);
    if (!background) background = ColorIn(root, &IHTMLCSSStyleDeclaration::get_backgroundColor);
    PageColors colors;
    colors.text = ColorIn(body, &IHTMLCSSStyleDeclaration::get_color).value_or(colors.text);
    colors.background = background.value_or(colors.background);
    return colors;
}
