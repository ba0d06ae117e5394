// The text of a style sheet as tokens, by css-syntax-3.
#pragma once

#include "formats/html/html_units.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

struct CssToken {
    enum class Kind : std::uint8_t {
        End,
        Whitespace,
        Ident,
        Function, // `text` is its name; its "(" belongs to the token
        AtKeyword,
        Hash,
        String,
        BadString,
        Url,
        BadUrl,
        Delim, // `delim`
        Number,
        Percentage,
        Dimension, // `unit`
        Colon,
        Semicolon,
        Comma,
        OpenSquare,
        CloseSquare,
        OpenParen,
        CloseParen,
        OpenCurly,
        CloseCurly,
        Cdo, // <!--
        Cdc, // -->
    };
    Kind kind = Kind::End;
    bool isId = false;      // of a Hash: it is an identifier
    bool isInteger = false; // of a number
    bool hasSign = false;
    char16_t delim = 0;
    float number = 0;         // kept within +-1e9
    std::u16string_view text; // without quotes and escapes; of a number as it stands
    std::u16string_view unit;
    std::u16string_view source; // as it stands in the text

    bool Is(Kind other) const { return kind == other; }
    bool IsDelim(char16_t unit16) const { return kind == Kind::Delim && delim == unit16; }
    bool IsIdent(std::u16string_view lowerCase) const; // ASCII case does not matter
    bool IsFunction(std::u16string_view lowerCase) const;
};

constexpr bool CssEqual(std::u16string_view text, std::u16string_view lowerCase) {
    return EqualsAsciiLower(text, lowerCase);
}
constexpr bool IsCssSpace(char16_t unit) {
    return IsHtmlSpace(unit);
}
std::u16string CssLowerCase(std::u16string_view text); // of ASCII letters
bool IsCssNameUnit(char16_t unit);
void AppendCssCharacter(std::u16string& text, char32_t character);

// Views into the text given, which must outlive it, or into texts of its own.
class CssTokenizer {
  public:
    explicit CssTokenizer(std::u16string_view text) : text_(text) {}
    CssToken Next();
    // Lets go the texts of the tokens so far.
    void ForgetTexts() { own_.clear(); }

  private:
    CssToken Read();
    char16_t At(std::size_t ahead = 0) const; // U+0000 after the end and for none
    bool AtEnd() const { return at_ >= text_.size(); }
    bool IsEscape(std::size_t ahead = 0) const;
    bool StartsIdent(std::size_t ahead = 0) const;
    bool StartsNumber(std::size_t ahead = 0) const;
    void SkipComments();
    char32_t ReadEscape(); // after its backslash
    std::u16string_view ReadName();
    CssToken ReadSpace();
    CssToken ReadString(char16_t quote);
    CssToken ReadNumeric();
    CssToken ReadIdentLike();
    CssToken ReadUrl();
    CssToken ReadBadUrl();
    CssToken ReadOther();
    CssToken Simple(CssToken::Kind kind, std::size_t length = 1);
    float ReadNumber(bool& isInteger);
    std::u16string_view Keep(std::u16string text);

    std::u16string_view text_;
    std::size_t at_ = 0;
    std::list<std::u16string> own_; // those that had escapes: few, often none
};

// Of one text, `maxCssTokens` at most. The text must outlive them, and so must the tokenizer.
std::vector<CssToken> CssTokensOf(CssTokenizer& tokenizer);
