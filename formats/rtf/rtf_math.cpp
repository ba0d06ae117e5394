#include "formats/rtf/rtf_math.h"

#include "common/utf.h"

namespace {
constexpr int maxTokensAhead = 64; // properties are the first of a part, and have some ten

using Kind = RtfToken::Kind;

bool IsProperties(const RtfToken& token) {
    return token.kind == Kind::Word && token.text.ends_with("Pr");
}

// Whether more than one character comes before the end of the group: it is then not clear where the
// term begins or ends.
bool IsLongTerm(RtfTokenizer ahead) {
    int depth = 1, propertiesDepth = 0, characters = 0, fallback = 0;
    for (int i = 0; i < maxTokensAhead && depth > 0 && characters < 2; ++i) {
        const RtfToken token = ahead.Next();
        if (token.kind == Kind::End) break;
        if (token.kind == Kind::GroupStart) ++depth;
        if (token.kind == Kind::GroupEnd && depth-- == propertiesDepth) propertiesDepth = 0;
        if (propertiesDepth == 0 && IsProperties(token)) propertiesDepth = depth;
        if (propertiesDepth > 0) continue;
        if (token.kind == Kind::Text) characters += static_cast<int>(token.text.size()) - fallback;
        fallback = 0;
        if (token.kind != Kind::Word || token.text != "u") continue;
        characters += IsLowSurrogate(static_cast<char16_t>(token.parameter)) ? 0 : 1;
        fallback = 1; // the "?" after it, as word processors write
    }
    return characters > 1;
}

// What the group of a property holds; 0 for nothing.
char16_t SignIn(RtfTokenizer& ahead) {
    const RtfToken token = ahead.Next();
    switch (token.kind) {
    case Kind::Text: return static_cast<unsigned char>(token.text.front());
    case Kind::Symbol: return token.byte;
    case Kind::Word: return token.text == "u" ? static_cast<char16_t>(token.parameter) : u'\0';
    default: return 0;
    }
}

// The character of this name in the properties that the part begins with, or what holds without it.
char16_t SignNamed(std::string_view name, RtfTokenizer ahead, char16_t otherwise) {
    if (ahead.Next().kind != Kind::GroupStart || !IsProperties(ahead.Next())) return otherwise;
    int depth = 1;
    for (int i = 0; i < maxTokensAhead && depth > 0; ++i) {
        const RtfToken token = ahead.Next();
        if (token.kind == Kind::End) break;
        if (token.kind == Kind::GroupStart) ++depth;
        if (token.kind == Kind::GroupEnd) --depth;
        if (token.kind == Kind::Word && token.text == name) return SignIn(ahead);
    }
    return otherwise;
}

RtfMathSigns Term(std::u16string before, RtfTokenizer ahead) {
    if (!IsLongTerm(ahead)) return {std::move(before), 0};
    return {before + u'(', u')'};
}

std::u16string Text(char16_t sign) {
    return sign == 0 ? std::u16string() : std::u16string(1, sign);
}
} // namespace

RtfMathSigns MathSignsOf(RtfWord part, RtfTokenizer ahead) {
    switch (part) {
    case RtfWord::MathNumerator: return Term(u"", ahead);
    case RtfWord::MathDenominator: return Term(u"/", ahead);
    case RtfWord::MathRadical: return Term(u"\u221A", ahead);
    case RtfWord::MathDelimiters:
        return {Text(SignNamed("mbegChr", ahead, u'(')), SignNamed("mendChr", ahead, u')')};
    case RtfWord::MathOperator: return {Text(SignNamed("mchr", ahead, u'\u222B')), 0};
    case RtfWord::MathAccent: return {u"", SignNamed("mchr", ahead, u'\u0302')};
    case RtfWord::MathSpaced: return {u"", u' '};
    default: return {};
    }
}
