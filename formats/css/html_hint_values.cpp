#include "formats/css/html_hint_values.h"

#include "formats/css/css_color.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_tokenizer.h"
#include "formats/html/html_integer.h"

#include <algorithm>

namespace {

void SkipSpace(std::u16string_view& text) {
    text = text.substr(0, maxHtmlHintUnits);
    while (!text.empty() && IsCssSpace(text[0]))
        text.remove_prefix(1);
}

double TakeDigits(std::u16string_view& text, double value, double scale) {
    for (; !text.empty() && IsAsciiDigit(text[0]); text.remove_prefix(1)) {
        value = scale == 1 ? value * 10 + (text[0] - u'0') : value + (text[0] - u'0') * scale;
        if (scale != 1) scale /= 10;
        value = std::min(value, 1e6);
    }
    return value;
}

} // namespace

void AddHint(CssBlock& block, CssProperty property, const CssValue& value) {
    block.declarations.push_back({property, false, value});
}

std::optional<CssValue> HtmlDimension(std::u16string_view text, HtmlZero zero) {
    SkipSpace(text);
    if (text.starts_with(u'+')) text.remove_prefix(1);
    if (text.empty() || !IsAsciiDigit(text[0])) return std::nullopt;
    double value = TakeDigits(text, 0, 1);
    if (text.starts_with(u'.')) {
        text.remove_prefix(1);
        value = TakeDigits(text, value, 0.1);
    }
    if (value == 0 && zero == HtmlZero::IsIgnored) return std::nullopt;
    const bool isPercent = text.starts_with(u'%');
    const auto number = static_cast<float>(value);
    return isPercent ? CssValue::Percent(number) : CssValue::Pixels(number);
}

void AddDimensionHint(CssBlock& block, CssProperty property, const HtmlAttribute* attribute,
                      HtmlZero zero) {
    if (!attribute) return;
    if (const auto value = HtmlDimension(attribute->Value(), zero))
        AddHint(block, property, *value);
}

void AddColorHint(CssBlock& block, CssProperty property, const HtmlAttribute* attribute) {
    if (!attribute) return;
    if (const auto color = HtmlColor(attribute->Value()))
        AddHint(block, property, CssValue::OfColor(*color));
}

void AddPixelsHint(CssBlock& block, CssProperty property, const HtmlAttribute* attribute) {
    if (!attribute) return;
    if (const auto pixels = HtmlNonNegative(attribute->Value()))
        AddHint(block, property, CssValue::Pixels(static_cast<float>(*pixels)));
}

void AddBorderHint(CssBlock& block, float width, std::uint16_t style) {
    for (int side = 0; side < 4; ++side) {
        AddHint(block, CssProperty::BorderTopWidth + side, CssValue::Pixels(width));
        AddHint(block, CssProperty::BorderTopStyle + side, CssValue::OfKeyword(style));
    }
}
