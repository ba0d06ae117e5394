// The text of a paragraph as glyphs.
#pragma once

#include "platform/windows/line_layout/text_units.h"
#include "platform/windows/line_layout/win_fonts.h"

// Glyphs of one font and direction. They are in the order of the screen: from right to left the
// last unit's are first.
struct GlyphRun {
    std::size_t start = 0, end = 0; // of the units, all of the kind Text
    ShapingFontPtr font;
    SCRIPT_ANALYSIS analysis = {};
    std::vector<WORD> glyphs;
    std::vector<WORD> clusters; // of each unit; see FirstGlyphs
    std::vector<SCRIPT_VISATTR> attributes;
    std::vector<int> advances;
    std::vector<GOFFSET> offsets;

    bool IsRightToLeft() const { return analysis.fRTL; }
    bool StartsCluster(std::size_t unit) const {
        return unit == start || clusters[unit - start] != clusters[unit - start - 1];
    }
};

struct GlyphSpan {
    std::size_t first = 0, end = 0;
};
// The glyphs of the clusters that start among the units.
GlyphSpan GlyphsOf(const GlyphRun&, std::size_t start, std::size_t end);

struct ShapedText {
    std::vector<GlyphRun> runs; // ascending
    // Of each unit, pixels; of a character at its first unit. 0 of all that is not Text.
    std::vector<int> widths;
};

// Makes a unit wider or narrower. It stays as it is where it shares its glyph.
void ChangeWidth(ShapedText&, std::size_t unit, int width);

// Takes places of the caret and breaks within what the glyphs do not divide out of the units.
ShapedText ShapeText(WinFonts&, const ParagraphText&, TextUnits&);

// In spaced_text.cpp: adds what styles ask for between letters and words.
void SpaceText(const ParagraphText&, const TextUnits&, ShapedText&);
// In glyph_shaping.cpp: a mark of Hebrew or Arabic without its letter. Wine 8 reads and writes in
// front of such a text, so that it is shaped without the rules of its script.
bool BeginsWithLostMark(const TextUnits&, const GlyphRun&);
// Likewise: in this font alone. False if it does not have the script at all.
bool ShapeRun(MeasuringContext&, const TextUnits&, GlyphRun&);
// In glyph_fallback.cpp: in this font, and others where it has no glyphs.
void ShapeWithFallback(WinFonts&, const TextUnits&, GlyphRun, std::vector<GlyphRun>& runs);
bool LacksGlyph(const GlyphRun&, std::size_t start, std::size_t end);
std::size_t NextCluster(const GlyphRun&, std::size_t unit);
