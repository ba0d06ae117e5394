// The notation An+B of css-syntax-3, whose parts the tokens cut in places of their own ("n-1" is
// a name): it is read from their text.
#include "formats/css/css_selector_parser.h"

#include <algorithm>

namespace {

constexpr std::int32_t maxNth = 1'000'000'000; // more than a page has elements

std::u16string TextOf(CssTokenStream& tokens) {
    using Kind = CssToken::Kind;
    std::u16string text;
    while (true) {
        const CssToken& token = tokens.NextRaw();
        switch (token.kind) {
        case Kind::End: return CssLowerCase(text);
        case Kind::Whitespace: text += u' '; break;
        case Kind::Delim: text += token.delim; break;
        case Kind::Ident:
        case Kind::Number:
        case Kind::Dimension: text += token.text; break;
        default: text += u'?';
        }
    }
}

void SkipBlanks(std::u16string_view& text) {
    while (text.starts_with(u' '))
        text.remove_prefix(1);
}

// -1 without digits.
std::int32_t TakeDigits(std::u16string_view& text) {
    if (text.empty() || !IsAsciiDigit(text[0])) return -1;
    std::int64_t value = 0;
    for (; !text.empty() && IsAsciiDigit(text[0]); text.remove_prefix(1))
        value = std::min<std::int64_t>(value * 10 + (text[0] - u'0'), maxNth);
    return static_cast<std::int32_t>(value);
}

// 0 for no sign.
int TakeSign(std::u16string_view& text) {
    const int sign = text.starts_with(u'-') ? -1 : text.starts_with(u'+') ? 1 : 0;
    if (sign) text.remove_prefix(1);
    return sign;
}

} // namespace

std::optional<std::pair<std::int32_t, std::int32_t>> ReadCssNth(CssTokenStream tokens) {
    const std::u16string whole = TextOf(tokens);
    std::u16string_view text = whole;
    SkipBlanks(text);
    while (text.ends_with(u' '))
        text.remove_suffix(1);
    if (text == u"odd") return std::pair{2, 1};
    if (text == u"even") return std::pair{2, 0};
    const int sign = TakeSign(text) < 0 ? -1 : 1;
    const std::int32_t digits = TakeDigits(text);
    if (!text.starts_with(u'n')) {
        if (digits < 0 || !text.empty()) return std::nullopt;
        return std::pair{0, sign * digits};
    }
    text.remove_prefix(1);
    const std::int32_t a = sign * (digits < 0 ? 1 : digits);
    SkipBlanks(text);
    if (text.empty()) return std::pair{a, 0};
    const int secondSign = TakeSign(text);
    SkipBlanks(text);
    const std::int32_t b = TakeDigits(text);
    if (secondSign == 0 || b < 0 || !text.empty()) return std::nullopt;
    return std::pair{a, secondSign * b};
}
