// The tokenizer of WHATWG's HTML Standard over a text that is in memory as a whole.
//
// The standard's states are places in functions that read one construct each; only what lasts from
// token to token is kept.
#pragma once

#include "formats/html/html_token.h"

#include <string>

// How text is read up to the next tag. All but `Data` and `CData` end with the end tag of the last
// start tag.
enum class HtmlContent : std::uint8_t { Data, Rcdata, Rawtext, ScriptData, Plaintext, CData };

class HtmlTokenizer {
  public:
    // Observed: the names, the arena for texts that differ from their source, and the source.
    HtmlTokenizer(HtmlNames& names, HtmlArena& arena, const std::u16string& source);

    // Valid until the next call.
    HtmlToken& Next();

    void SetContent(HtmlContent content);
    void SetLastStartTag(HtmlName name) { lastStartTag_ = name; }
    // Whether "<![CDATA[" begins such a section: only within SVG and MathML.
    void AllowCData(bool allowed) { allowsCData_ = allowed; }

  private:
    // Each reads one token, or returns false when there is none in what it read.
    bool ReadText(); // html_text_tokens.cpp
    bool ReadData();
    bool ReadRcdata();
    bool ReadRawtext();
    bool ReadScriptData();
    bool ReadPlaintext();
    bool ReadCData();
    bool ReadCharRef();
    enum class Nulls : std::uint8_t { Kept, Replaced }; // by U+FFFD
    bool ReadNulls(Nulls nulls);
    bool EmitText(std::size_t end);
    std::size_t EndTagLength() const;
    bool IsScriptTag(std::size_t at) const;
    void PassScriptUnit(std::size_t at);

    bool ReadMarkup(); // html_markup_tokens.cpp
    bool ReadDeclaration();
    bool ReadComment();
    bool ReadBogusComment(std::size_t begin);
    bool EmitComment(std::size_t begin, std::size_t end, std::size_t next);

    bool ReadTag(HtmlTokenKind kind, std::size_t nameBegin); // html_tag_tokens.cpp
    bool ReadAttributes();
    void ReadAttribute();
    std::u16string_view ReadAttributeValue();
    void AddAttribute(HtmlName name, std::u16string_view value);
    HtmlName InternLower(std::u16string_view name);
    std::u16string_view WithReferences(std::u16string_view value);

    bool ReadDoctype(); // html_doctype_tokens.cpp
    void ReadDoctypeIds();
    bool ReadDoctypeId(std::u16string& id, bool& has);
    bool SkipWord(std::u16string_view lower);

    bool Emit(HtmlTokenKind kind);
    bool EmitEndOfFile();
    void SkipSpaces();
    bool AtEnd() const { return at_ >= source_.size(); }
    // u'\xFFFF' after the end, which no rule looks for.
    char16_t UnitAt(std::size_t at) const { return at < source_.size() ? source_[at] : u'\xFFFF'; }
    std::u16string_view Between(std::size_t begin, std::size_t end) const;
    std::u16string_view Keep(std::u16string_view units);
    std::u16string_view WithoutNulls(std::u16string_view units);

    HtmlNames& names_;
    HtmlArena& arena_;
    std::u16string_view source_;
    std::size_t at_ = 0;
    HtmlContent content_ = HtmlContent::Data;
    bool allowsCData_ = false;
    HtmlName lastStartTag_ = HtmlName::None;
    HtmlToken token_;
    std::size_t tokenBegin_ = 0;

    enum class ScriptEscape : std::uint8_t { None, Once, Twice };
    ScriptEscape scriptEscape_ = ScriptEscape::None;

    std::vector<std::uint32_t> tagOfName_; // the last tag that has an attribute of this name
    std::uint32_t tagCount_ = 0;
    std::u16string buffer_;
};
