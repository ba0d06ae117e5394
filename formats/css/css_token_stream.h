// Tokens of one construct (a prelude, a value), without those that surround it.
#pragma once

#include "formats/css/css_tokenizer.h"

#include <span>

// Walks over tokens; white space is passed over unless it is asked for.
class CssTokenStream {
  public:
    explicit CssTokenStream(std::span<const CssToken> tokens) : tokens_(tokens) {}

    bool AtEnd() {
        SkipSpace();
        return at_ == tokens_.size();
    }
    const CssToken& Peek() {
        SkipSpace();
        return PeekRaw();
    }
    const CssToken& Next() {
        SkipSpace();
        return NextRaw();
    }
    bool AtEndRaw() const { return at_ == tokens_.size(); }
    const CssToken& PeekRaw(std::size_t ahead = 0) const {
        return at_ + ahead < tokens_.size() ? tokens_[at_ + ahead] : end_;
    }
    const CssToken& NextRaw() { return at_ < tokens_.size() ? tokens_[at_++] : end_; }
    // White space that is there; tells whether there was some.
    bool SkipSpace() {
        const std::size_t start = at_;
        while (at_ < tokens_.size() && tokens_[at_].Is(CssToken::Kind::Whitespace))
            ++at_;
        return at_ > start;
    }
    bool Take(CssToken::Kind kind) {
        if (!Peek().Is(kind)) return false;
        ++at_;
        return true;
    }
    bool TakeIdent(std::u16string_view lowerCase) {
        if (!Peek().IsIdent(lowerCase)) return false;
        ++at_;
        return true;
    }
    // What is between the bracket or function that was just passed and its end, which is passed,
    // too.
    CssTokenStream Arguments();
    // Up to the next comma outside of brackets, which is passed, or the end.
    CssTokenStream UpToComma();

    // Whether the last token before this place, and after `start`, is a comma.
    bool EndedByComma(std::size_t start) const {
        return at_ > start && tokens_[at_ - 1].Is(CssToken::Kind::Comma);
    }

    std::size_t Place() const { return at_; }
    void GoBack(std::size_t place) { at_ = place; }

  private:
    std::span<const CssToken> tokens_;
    std::size_t at_ = 0;
    CssToken end_;
};

// The brackets that are open, by the tokens that close them.
class CssBrackets {
  public:
    bool None() const { return closers_.empty(); }
    // Whether the token belongs to what was open before it.
    void Pass(const CssToken& token);

  private:
    std::string closers_; // a byte for each: a sheet may open as many as it has letters
};
