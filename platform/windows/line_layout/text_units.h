// What the layout of a paragraph knows of each unit of its text before there are any glyphs.
#pragma once

#include "platform/line_layout.h"
#include "platform/windows/line_layout/uniscribe.h"

#include <cstdint>
#include <vector>

enum class UnitKind : std::uint8_t {
    Text, // the only ones with glyphs
    Tab,
    Box,
    LineBreak,
    SoftHyphen, // seen at the end of a line alone
    Hidden      // controls, also those of direction
};

struct TextUnit {
    UnitKind kind = UnitKind::Text;
    std::uint8_t level = 0;     // of embedding; an odd one is from right to left
    bool caret = false;         // the caret can stand in front of it
    bool mayBreak = false;      // a line may begin with it
    bool inLigature = false;    // its glyph is that of the unit before
    bool startsStretch = false; // of a word, or between words
    bool startsWord = false;
    bool isSpace = false; // without width at the end of a wrapped line
    bool IsBlank() const { return isSpace || kind == UnitKind::Hidden; }
};

// A part of the text in one script and direction, up to the next one's start.
using ScriptItems = std::vector<SCRIPT_ITEM>; // the last one stands at the text's end

struct TextUnits {
    std::wstring text; // a box is U+FFFC
    std::vector<TextUnit> units;
    ScriptItems items;
    std::uint8_t baseLevel = 0;

    std::size_t Size() const { return units.size(); }
};

TextUnits AnalyzeUnits(const ParagraphText&);

// Null without Uniscribe.
const SCRIPT_PROPERTIES* PropertiesOf(const SCRIPT_ANALYSIS&);
// In script_items.cpp: the items, and the levels of the units.
void ItemizeUnits(TextUnits&);
