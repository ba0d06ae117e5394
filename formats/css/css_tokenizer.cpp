#include "formats/css/css_tokenizer.h"

#include "formats/css/css_limits.h"

#include <algorithm>

namespace {

using Kind = CssToken::Kind;

bool IsNewline(char16_t unit) {
    return unit == u'\n' || unit == u'\r' || unit == u'\f';
}

bool IsNonPrintable(char16_t unit) {
    return unit <= 8 || unit == 0xB || (unit >= 0xE && unit < u' ') || unit == 0x7F;
}

CssToken OfKind(Kind kind, std::u16string_view text = {}) {
    CssToken token;
    token.kind = kind;
    token.text = text;
    return token;
}

} // namespace

CssToken CssTokenizer::Next() {
    SkipComments();
    if (AtEnd()) return {};
    const std::size_t start = at_;
    CssToken token = Read();
    token.source = text_.substr(start, at_ - start);
    return token;
}

CssToken CssTokenizer::Read() {
    const char16_t unit = At();
    if (IsCssSpace(unit)) return ReadSpace();
    if (unit == u'"' || unit == u'\'') return ReadString(unit);
    if (StartsNumber()) return ReadNumeric();
    // "-->" before what begins with a "-" as a name may.
    if (unit == u'-' && At(1) == u'-' && At(2) == u'>') return Simple(Kind::Cdc, 3);
    if (StartsIdent()) return ReadIdentLike();
    return ReadOther();
}

void CssTokenizer::SkipComments() {
    while (At() == u'/' && At(1) == u'*') {
        const std::size_t end = text_.find(u"*/", at_ + 2);
        at_ = end == text_.npos ? text_.size() : end + 2;
    }
}

CssToken CssTokenizer::ReadSpace() {
    while (!AtEnd() && IsCssSpace(At()))
        ++at_;
    return OfKind(Kind::Whitespace);
}

CssToken CssTokenizer::Simple(Kind kind, std::size_t length) {
    at_ += length;
    return OfKind(kind);
}

CssToken CssTokenizer::ReadOther() {
    const char16_t unit = At();
    switch (unit) {
    case u'(': return Simple(Kind::OpenParen);
    case u')': return Simple(Kind::CloseParen);
    case u'[': return Simple(Kind::OpenSquare);
    case u']': return Simple(Kind::CloseSquare);
    case u'{': return Simple(Kind::OpenCurly);
    case u'}': return Simple(Kind::CloseCurly);
    case u':': return Simple(Kind::Colon);
    case u';': return Simple(Kind::Semicolon);
    case u',': return Simple(Kind::Comma);
    case u'<':
        if (text_.substr(at_, 4) == u"<!--") return Simple(Kind::Cdo, 4);
        break;
    case u'@':
        if (!StartsIdent(1)) break;
        ++at_;
        return OfKind(Kind::AtKeyword, ReadName());
    case u'#': {
        const bool isId = StartsIdent(1);
        if (!isId && !IsEscape(1) && !IsCssNameUnit(At(1))) break;
        ++at_;
        CssToken token = OfKind(Kind::Hash, ReadName());
        token.isId = isId;
        return token;
    }
    default: break;
    }
    CssToken token = Simple(Kind::Delim);
    token.delim = unit;
    return token;
}

CssToken CssTokenizer::ReadString(char16_t quote) {
    ++at_;
    const std::size_t start = at_;
    const std::u16string_view ends = quote == u'"' ? u"\"\\\n\r\f" : u"'\\\n\r\f";
    std::u16string text;
    bool escaped = false;
    for (std::size_t from = start;;) {
        const std::size_t end = std::min(text_.find_first_of(ends, at_), text_.size());
        const bool stops = end == text_.size() || text_[end] != u'\\';
        at_ = end;
        if (stops && !escaped && (AtEnd() || At() == quote)) {
            at_ += !AtEnd();
            return OfKind(Kind::String, text_.substr(start, end - start));
        }
        text.append(text_, from, end - from);
        if (stops && !AtEnd() && IsNewline(At())) return OfKind(Kind::BadString);
        if (stops) {
            at_ += !AtEnd();
            return OfKind(Kind::String, Keep(std::move(text)));
        }
        escaped = true;
        ++at_;
        if (!AtEnd() && IsNewline(At())) // a line that goes on
            at_ += At() == u'\r' && At(1) == u'\n' ? 2 : 1;
        else if (!AtEnd())
            AppendCssCharacter(text, ReadEscape());
        from = at_;
    }
}

CssToken CssTokenizer::ReadIdentLike() {
    const std::u16string_view name = ReadName();
    if (At() != u'(') return OfKind(Kind::Ident, name);
    ++at_;
    if (!CssEqual(name, u"url")) return OfKind(Kind::Function, name);
    std::size_t inner = at_;
    while (inner < text_.size() && IsCssSpace(text_[inner]))
        ++inner;
    const bool quoted = inner < text_.size() && (text_[inner] == u'"' || text_[inner] == u'\'');
    if (quoted) return OfKind(Kind::Function, name);
    at_ = inner;
    return ReadUrl();
}

CssToken CssTokenizer::ReadUrl() {
    std::u16string url;
    while (!AtEnd()) {
        const char16_t unit = At();
        if (unit == u')') break;
        if (IsCssSpace(unit)) {
            ReadSpace();
            if (!AtEnd() && At() != u')') return ReadBadUrl();
            break;
        }
        if (unit == u'"' || unit == u'\'' || unit == u'(' || IsNonPrintable(unit))
            return ReadBadUrl();
        if (unit == u'\\') {
            if (!IsEscape()) return ReadBadUrl();
            ++at_;
            AppendCssCharacter(url, ReadEscape());
        } else {
            url += unit;
            ++at_;
        }
    }
    at_ += !AtEnd();
    return OfKind(Kind::Url, Keep(std::move(url)));
}

CssToken CssTokenizer::ReadBadUrl() {
    while (!AtEnd() && At() != u')')
        at_ += At() == u'\\' && At(1) != 0 ? 2 : 1;
    if (!AtEnd()) ++at_;
    at_ = std::min(at_, text_.size());
    return OfKind(Kind::BadUrl);
}

std::vector<CssToken> CssTokensOf(CssTokenizer& tokenizer) {
    std::vector<CssToken> tokens;
    for (CssToken token = tokenizer.Next();
         !token.Is(CssToken::Kind::End) && tokens.size() < maxCssTokens; token = tokenizer.Next())
        tokens.push_back(token);
    return tokens;
}
