#include "formats/css/css_token_stream.h"

void CssBrackets::Pass(const CssToken& token) {
    using Kind = CssToken::Kind;
    const auto close = [this](char closer) {
        if (!closers_.empty() && closers_.back() == closer) closers_.pop_back();
    };
    switch (token.kind) {
    case Kind::Function:
    case Kind::OpenParen: closers_ += ')'; break;
    case Kind::OpenSquare: closers_ += ']'; break;
    case Kind::OpenCurly: closers_ += '}'; break;
    case Kind::CloseParen: close(')'); break;
    case Kind::CloseSquare: close(']'); break;
    case Kind::CloseCurly: close('}'); break;
    default: break;
    }
}

CssTokenStream CssTokenStream::Arguments() {
    const std::size_t start = at_;
    CssBrackets brackets;
    brackets.Pass(tokens_[at_ - 1]);
    while (at_ < tokens_.size()) {
        brackets.Pass(tokens_[at_++]);
        if (brackets.None()) return CssTokenStream(tokens_.subspan(start, at_ - 1 - start));
    }
    return CssTokenStream(tokens_.subspan(start)); // the end of the sheet closes all
}

CssTokenStream CssTokenStream::UpToComma() {
    const std::size_t start = at_;
    CssBrackets brackets;
    for (; at_ < tokens_.size(); ++at_) {
        if (brackets.None() && tokens_[at_].Is(CssToken::Kind::Comma))
            return CssTokenStream(tokens_.subspan(start, at_++ - start));
        brackets.Pass(tokens_[at_]);
    }
    return CssTokenStream(tokens_.subspan(start));
}
