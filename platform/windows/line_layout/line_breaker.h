// Breaks a shaped paragraph into lines.
#pragma once

#include "platform/windows/line_layout/glyph_runs.h"

// Units of a line that stand beside each other on the screen, in one direction.
struct VisualPiece {
    std::size_t start = 0, end = 0;
    int left = 0, width = 0;
    bool rightToLeft = false;
};

// A tab to one of the paragraph's own stops.
struct PlacedTab {
    std::size_t unit = 0;
    int pen = 0; // where it begins, from the line's start
    TabStop stop;
    bool IsAligned() const { return stop.alignment != TabAlignment::Left; }
};

struct BrokenLine {
    TextLine line;
    std::vector<PlacedTab> tabs;
    int startEdge = 0;               // the x of the paragraph's, before its indent
    std::size_t visibleEnd = 0;      // without trailing spaces that have no width, and breaks
    std::vector<VisualPiece> pieces; // from left to right
    bool hasHyphen = false;          // a soft one at its end is seen
};

// Takes the widths of tabs, boxes, trailing spaces and wider spaces between words into the shaped
// text.
std::vector<BrokenLine> BreakIntoLines(const ParagraphText&, const TextUnits&, ShapedText&);

// In justified_line.cpp: widens the spaces between the line's words to `room` pixels.
bool JustifyLine(const TextUnits&, ShapedText&, BrokenLine&, int room);
// In visual_pieces.cpp, also for what is not seen.
std::size_t StartOfTrailingSpaces(const TextUnits&, const BrokenLine&);
// Sets the line's pieces and width, when the widths are known.
void PlacePieces(const TextUnits&, const ShapedText&, BrokenLine&);
// In line_metrics.cpp: of the fonts in the line.
void MeasureLine(const ParagraphText&, const ShapedText&, BrokenLine&);
