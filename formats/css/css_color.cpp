#include "formats/css/css_color.h"

#include "formats/css/css_limits.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Kind = CssToken::Kind;

std::uint8_t Part(float value) { // of 255
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0f, 255.0f)));
}

// The digits after a "#": 3, 4, 6 or 8 of them.
std::optional<CssColor> FromHex(std::u16string_view digits) {
    if (digits.size() != 3 && digits.size() != 4 && digits.size() != 6 && digits.size() != 8)
        return std::nullopt;
    const std::size_t each = digits.size() > 4 ? 2 : 1;
    std::array<std::uint8_t, 4> parts{0, 0, 0, 255};
    for (std::size_t i = 0; i * each < digits.size(); ++i) {
        const int high = HexDigitOf(digits[i * each]),
                  low = HexDigitOf(digits[i * each + each - 1]);
        if (high < 0 || low < 0) return std::nullopt;
        parts[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return CssColor{parts[0], parts[1], parts[2], parts[3]};
}

// A third of the hue's circle for each of red, green and blue.
float HuePart(float hue, float saturation, float light, float shift) {
    const float k = std::fmod(shift + hue / 30, 12.0f);
    const float range = saturation * std::min(light, 1 - light);
    return 255 * (light - range * std::max(-1.0f, std::min({k - 3, 9 - k, 1.0f})));
}

CssColor FromHsl(float hue, float saturation, float light, std::uint8_t alpha) {
    hue = std::fmod(hue, 360.0f);
    if (hue < 0) hue += 360;
    saturation = std::clamp(saturation / 100, 0.0f, 1.0f);
    light = std::clamp(light / 100, 0.0f, 1.0f);
    return {Part(HuePart(hue, saturation, light, 0)), Part(HuePart(hue, saturation, light, 8)),
            Part(HuePart(hue, saturation, light, 4)), alpha};
}

// Degrees of an angle; the number of anything else.
float Degrees(const CssToken& token) {
    if (CssEqual(token.unit, u"turn")) return token.number * 360;
    if (CssEqual(token.unit, u"rad")) return token.number * 57.29578f;
    if (CssEqual(token.unit, u"grad")) return token.number * 0.9f;
    return token.number;
}

// Three parts and an alpha, between commas or, as of late, blanks and a "/".
enum class Notation : std::uint8_t { Rgb, Hsl };

std::optional<CssColor> FromFunction(CssTokenStream arguments, Notation notation) {
    const bool isHsl = notation == Notation::Hsl;
    std::array<CssToken, 4> parts;
    std::size_t count = 0;
    while (!arguments.AtEnd()) {
        const CssToken& token = arguments.Next();
        const bool isNumber = token.Is(Kind::Number) || token.Is(Kind::Percentage) ||
                              (token.Is(Kind::Dimension) && isHsl && count == 0);
        if (!isNumber || count == parts.size()) return std::nullopt;
        parts[count++] = token;
        if (arguments.Peek().Is(Kind::Comma) || arguments.Peek().IsDelim(u'/')) {
            arguments.Next();
            if (arguments.AtEnd()) return std::nullopt;
        }
    }
    if (count < 3) return std::nullopt;
    float alpha = count == 4 ? parts[3].number : 1;
    if (parts[3].Is(Kind::Percentage)) alpha /= 100;
    const std::uint8_t alphaPart = Part(alpha * 255);
    if (isHsl) return FromHsl(Degrees(parts[0]), parts[1].number, parts[2].number, alphaPart);
    const auto part = [&](const CssToken& token) {
        return Part(token.Is(Kind::Percentage) ? token.number * 2.55f : token.number);
    };
    return CssColor{part(parts[0]), part(parts[1]), part(parts[2]), alphaPart};
}

std::optional<CssColor> WithoutSign(const CssToken& token) {
    std::u16string digits(token.text);
    if (token.Is(Kind::Number) && digits.size() < 6 && digits.size() != 3)
        digits.insert(0, 6 - digits.size(), u'0'); // "80" is #000080
    return digits.size() == 3 || digits.size() == 6 ? FromHex(digits) : std::nullopt;
}

} // namespace

std::optional<CssValue> ReadCssColor(CssTokenStream& tokens, bool quirks) {
    const std::size_t start = tokens.Place();
    const CssToken token = tokens.Next();
    std::optional<CssColor> color;
    if (token.Is(Kind::Hash))
        color = FromHex(token.text);
    else if (token.IsIdent(u"currentcolor"))
        return CssValue::OfKind(CssValue::Kind::CurrentColor);
    else if (token.Is(Kind::Ident))
        color = CssNamedColor(token.text);
    else if (token.IsFunction(u"rgb") || token.IsFunction(u"rgba"))
        color = FromFunction(tokens.Arguments(), Notation::Rgb);
    else if (token.IsFunction(u"hsl") || token.IsFunction(u"hsla"))
        color = FromFunction(tokens.Arguments(), Notation::Hsl);
    const bool maybeDigits =
        token.Is(Kind::Number) || token.Is(Kind::Dimension) || token.Is(Kind::Ident);
    if (!color && quirks && maybeDigits) color = WithoutSign(token);
    if (color) return CssValue::OfColor(*color);
    tokens.GoBack(start);
    return std::nullopt;
}

std::optional<CssColor> HtmlColor(std::u16string_view text) {
    text = text.substr(0, maxHtmlHintUnits);
    while (!text.empty() && IsCssSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsCssSpace(text.back()))
        text.remove_suffix(1);
    if (text.empty() || CssEqual(text, u"transparent")) return std::nullopt;
    if (const auto named = CssNamedColor(text)) return named;
    if (text.size() == 4 && text[0] == u'#')
        if (const auto color = FromHex(text.substr(1))) return color;
    std::u16string digits;
    for (const char16_t unit : text.substr(0, 128)) {
        if ((unit & 0xFC00) == 0xDC00) continue; // a pair is two zeros, of its first half
        digits.append((unit & 0xFC00) == 0xD800 ? 2 : 1, unit);
    }
    if (digits[0] == u'#') digits.erase(0, 1);
    for (char16_t& unit : digits)
        if (HexDigitOf(unit) < 0) unit = u'0';
    while (digits.empty() || digits.size() % 3 != 0)
        digits += u'0';
    std::size_t length = digits.size() / 3;
    std::array<std::u16string, 3> parts;
    for (std::size_t i = 0; i < 3; ++i)
        parts[i] = digits.substr(i * length, length).substr(length > 8 ? length - 8 : 0);
    length = std::min<std::size_t>(length, 8);
    while (length > 2 && parts[0][0] == u'0' && parts[1][0] == u'0' && parts[2][0] == u'0') {
        for (std::u16string& part : parts)
            part.erase(0, 1);
        --length;
    }
    const auto value = [&](const std::u16string& part) {
        const int first = HexDigitOf(part[0]);
        return static_cast<std::uint8_t>(length > 1 ? first * 16 + HexDigitOf(part[1]) : first);
    };
    return CssColor{value(parts[0]), value(parts[1]), value(parts[2]), 255};
}
