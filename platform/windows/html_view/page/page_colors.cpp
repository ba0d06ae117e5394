#include "platform/windows/html_view/page/page_colors.h"

#include "platform/windows/base/com_values.h"
#include "platform/windows/portable/css_color.h"

namespace {

using StyleProperty = HRESULT (IHTMLCSSStyleDeclaration::*)(VARIANT*);

std::optional<Color> ColorIn(const ComPtr<IHTMLCSSStyleDeclaration>& style,
                             StyleProperty property) {
    Variant color;
    if (!style || FAILED((style.Get()->*property)(color.Put()))) return std::nullopt;
    return ParseCssColor(TextOf(&color.Get()));
}

} // namespace

PageColors ColorsOf(const PageDocument& document) {
    const auto body = document.BodyStyle(), root = document.RootStyle();
    auto background = ColorIn(body, &IHTMLCSSStyleDeclaration::get_backgroundColor);
    if (!background) background = ColorIn(root, &IHTMLCSSStyleDeclaration::get_backgroundColor);
    PageColors colors;
    colors.text = ColorIn(body, &IHTMLCSSStyleDeclaration::get_color).value_or(colors.text);
    colors.background = background.value_or(colors.background);
    return colors;
}
