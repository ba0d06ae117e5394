// The font and colour tables of rich text (RTF 1.9.1).
#pragma once

#include "common/geometry.h"
#include "formats/codepages/symbol_fonts.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

struct RtfFont {
    std::uint16_t index = 0;             // in Document::fonts
    int codePage = 0;                    // of text in this font; 0 for the document's
    SymbolSet symbols = SymbolSet::None; // instead of a code page
};

class RtfFontTable {
  public:
    // Building: a font begins, gets its charset or code page, its name is collected up to ';'.
    void Begin(std::int32_t number);
    void SetCharset(std::int32_t charset);
    void SetCodePage(std::int32_t codePage);
    int CodePageOfName() const { return font_.codePage; }
    std::u16string& Name() { return name_; } // collected so far; `EndNames` adds complete ones
    void EndNames();
    void End(); // of the table: its last name may lack the ';'

    void SetDefault(std::int32_t number);
    // nullptr when the table has no such font. Valid as long as the table.
    const RtfFont* Find(std::int32_t number) const;
    const RtfFont* Default() const { return Find(defaultNumber_); }
    std::vector<std::u16string> ReleaseNames() { return std::move(names_); }

  private:
    void Add(std::u16string name);
    std::uint16_t IndexOfName(const std::u16string& name);

    std::unordered_map<std::int32_t, RtfFont> fonts_; // by the number in the file
    std::unordered_map<std::u16string, std::uint16_t> indexes_;
    std::vector<std::u16string> names_{u""};
    std::int32_t defaultNumber_ = 0;
    RtfFont font_;
    std::int32_t number_ = 0;
    bool hasOpenFont_ = false;
    bool hasSymbols_ = true; // of a font without a charset, the name decides
    std::u16string name_;
};

struct RtfColor {
    Color value = 0;
    bool isAutomatic = true; // the reader's own
};

class RtfColorTable {
  public:
    // Building: components of \red, \green and \blue, 0 to 255; a ';' ends each colour.
    void SetComponent(int shift, std::int32_t value); // 0 for red, 8 for green, 16 for blue
    void EndColor();
    RtfColor At(std::int32_t number) const; // automatic outside the table

  private:
    std::vector<RtfColor> colors_;
    RtfColor color_;
};
