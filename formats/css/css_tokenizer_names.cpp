// The parts of tokens: names, escapes and numbers.
#include "formats/css/css_tokenizer.h"

#include "common/utf.h"

#include <algorithm>
#include <cmath>

namespace {

bool IsNameStart(char16_t unit) {
    return IsAsciiLetter(unit) || unit == u'_' || unit >= 0x80;
}

} // namespace

bool IsCssNameUnit(char16_t unit) {
    return IsNameStart(unit) || IsAsciiDigit(unit) || unit == u'-';
}

void AppendCssCharacter(std::u16string& text, char32_t character) {
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += HighSurrogateOf(character);
    text += LowSurrogateOf(character);
}

std::u16string CssLowerCase(std::u16string_view text) {
    std::u16string lower(text);
    std::ranges::transform(lower, lower.begin(), AsciiLower);
    return lower;
}

bool CssToken::IsIdent(std::u16string_view lowerCase) const {
    return kind == Kind::Ident && CssEqual(text, lowerCase);
}
bool CssToken::IsFunction(std::u16string_view lowerCase) const {
    return kind == Kind::Function && CssEqual(text, lowerCase);
}

char16_t CssTokenizer::At(std::size_t ahead) const {
    if (at_ + ahead >= text_.size()) return 0;
    // A NUL of the sheet is U+FFFD, which names may have.
    return text_[at_ + ahead] ? text_[at_ + ahead] : u'\uFFFD';
}

bool CssTokenizer::IsEscape(std::size_t ahead) const {
    const char16_t next = At(ahead + 1);
    return At(ahead) == u'\\' && next != u'\n' && next != u'\r' && next != u'\f';
}

bool CssTokenizer::StartsIdent(std::size_t ahead) const {
    if (At(ahead) != u'-') return IsNameStart(At(ahead)) || IsEscape(ahead);
    return IsNameStart(At(ahead + 1)) || At(ahead + 1) == u'-' || IsEscape(ahead + 1);
}

bool CssTokenizer::StartsNumber(std::size_t ahead) const {
    if (At(ahead) == u'+' || At(ahead) == u'-') ++ahead;
    if (At(ahead) == u'.') ++ahead;
    return IsAsciiDigit(At(ahead));
}

std::u16string_view CssTokenizer::Keep(std::u16string text) {
    return own_.emplace_back(std::move(text));
}

char32_t CssTokenizer::ReadEscape() {
    if (AtEnd()) return U'\uFFFD';
    if (HexDigitOf(At()) < 0) {
        const char32_t character = FirstCharacter(text_.substr(at_));
        at_ += character > 0xFFFF ? 2 : 1;
        return character ? character : U'\uFFFD';
    }
    char32_t value = 0;
    for (int digits = 0; digits < 6 && HexDigitOf(At()) >= 0; ++digits, ++at_)
        value = value * 16 + static_cast<char32_t>(HexDigitOf(At()));
    if (IsCssSpace(At())) at_ += At() == u'\r' && At(1) == u'\n' ? 2 : 1;
    return value == 0 || IsSurrogate(value) || value > 0x10FFFF ? U'\uFFFD' : value;
}

std::u16string_view CssTokenizer::ReadName() {
    const std::size_t start = at_;
    while (at_ < text_.size() && text_[at_] && IsCssNameUnit(text_[at_]))
        ++at_;
    if ((AtEnd() || text_[at_]) && !IsEscape()) return text_.substr(start, at_ - start);
    std::u16string name(text_.substr(start, at_ - start));
    while (!AtEnd()) {
        if (IsCssNameUnit(At())) {
            name += At();
            ++at_;
        } else if (IsEscape()) {
            ++at_;
            AppendCssCharacter(name, ReadEscape());
        } else
            break;
    }
    return Keep(std::move(name));
}

float CssTokenizer::ReadNumber(bool& isInteger) {
    const double sign = At() == u'-' ? -1 : 1;
    if (At() == u'+' || At() == u'-') ++at_;
    double value = 0;
    for (; IsAsciiDigit(At()); ++at_)
        value = std::min(value * 10 + (At() - u'0'), 1e30);
    isInteger = true;
    if (At() == u'.' && IsAsciiDigit(At(1))) {
        isInteger = false;
        double scale = 1;
        for (++at_; IsAsciiDigit(At()); ++at_)
            value += (At() - u'0') * (scale /= 10);
    }
    const bool signedExponent = At(1) == u'+' || At(1) == u'-';
    if ((At() | 0x20) == u'e' && IsAsciiDigit(At(signedExponent ? 2 : 1))) {
        isInteger = false;
        const int exponentSign = At(1) == u'-' ? -1 : 1;
        int exponent = 0;
        for (at_ += signedExponent ? 2 : 1; IsAsciiDigit(At()); ++at_)
            exponent = std::min(exponent * 10 + (At() - u'0'), 60);
        value *= std::pow(10, exponentSign * exponent);
    }
    return static_cast<float>(sign * std::min(value, 1e9));
}

CssToken CssTokenizer::ReadNumeric() {
    CssToken token;
    const std::size_t start = at_;
    token.hasSign = !IsAsciiDigit(At()) && At() != u'.';
    token.number = ReadNumber(token.isInteger);
    token.kind = CssToken::Kind::Number;
    if (StartsIdent()) {
        token.kind = CssToken::Kind::Dimension;
        token.unit = ReadName();
    } else if (At() == u'%') {
        token.kind = CssToken::Kind::Percentage;
        ++at_;
    }
    token.text = text_.substr(start, at_ - start);
    return token;
}
