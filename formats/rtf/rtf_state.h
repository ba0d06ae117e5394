// What a group of rich text has of its own: it begins with what holds around it, and ends with it.
#pragma once

#include "formats/document.h"
#include "formats/rtf/rtf_borders.h"
#include "formats/rtf/rtf_words.h"

struct RtfState {
    CharStyle chars; // with the last font of text, not of symbols
    bool isHidden = false;
    const RtfFont* font = nullptr; // nullptr for the default one
    ParagraphStyle paragraph;
    bool inTable = false;
    RtfBorderSide borderSide = RtfBorderSide::None;
    RtfShading shading;
    TabStop tabStop;               // the next one, but for its position
    std::int32_t styleNumber = 0;  // in the style sheet, while that is read
    std::uint8_t dropCapLines = 0; // lines that the paragraph is as high as

    RtfDestination destination = RtfDestination::Body;
    RtfDestination outer = RtfDestination::Body; // around this one
    bool opensDestination = false;               // the destination ends with this group
    bool inNote = false, inShape = false;
    bool inNumber = false;        // in a number that the writer has put in front of a paragraph
    std::size_t numberFormat = 0; // of paragraphs whose numbers are to be added, 0 for none
    std::int32_t list = 0, listLevel = 0; // of the paragraph: \ls, 0 for none, and \ilvl
    std::int32_t fallbackLength = 1;      // \uc: bytes after a \u that other readers show
    std::uint16_t fieldLink = 0;          // for the field's result
    char16_t mathEnd = 0;                 // shown at the end of this group, a part of a formula
};

// Apply a control word with its parameter to the style; no parameter means on.
void ApplyCharacterWord(RtfState& state, const RtfWordEntry& entry, bool hasParameter,
                        std::int32_t parameter, const RtfFontTable& fonts,
                        const RtfColorTable& colors);
void ApplyParagraphWord(RtfState& state, const RtfWordEntry& entry, bool hasParameter,
                        std::int32_t parameter, const RtfColorTable& colors);

// The characters of a drop cap, a paragraph of its own: large on their line.
CharStyle DropCapStyle(CharStyle style, int lines);
