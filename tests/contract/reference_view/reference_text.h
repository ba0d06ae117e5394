// The reference layout: a whole text, laid out slowly and simply from its first character to its
// last. The text view, which lays out visible blocks only, must show the same.
#pragma once

#include "formats/document.h"
#include "platform/line_layout.h"
#include "view/geometry.h"
#include "view/view_style.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What the layout depends on. Lengths are device pixels.
struct ReferenceSettings {
    const Document* document = nullptr; // styles, rows and pictures
    std::u16string text;
    bool plain = true;
    ViewStyle style;
    int viewWidth = 1, breakWidth = 1;
    double pixelsPerTwip = 96.0 / 1440;
    LineLayout* lines = nullptr;

    int Pixels(double twips) const;
    int Hairline() const { return std::max(1, Pixels(15)); }
};

// Vertical positions are relative to the top of the text, horizontal ones to the start of the
// view's lines.
struct ReferenceLine {
    TextPos start = 0, end = 0;    // without the paragraph break
    bool isContinued = false;      // the paragraph continues in the next line
    int top = 0, bottom = 0;       // lines tile their cell or block
    int inkTop = 0, inkBottom = 0; // without the space around the paragraph
    std::size_t paragraph = 0;     // index in ReferenceText::paragraphs
    int index = 0;                 // in the paragraph
    int left = 0;                  // of its text, from the paragraph's origin
    int baseline = 0;
    int Height() const { return std::max(1, bottom - top); }
};

struct ReferenceParagraph {
    TextPos start = 0, end = 0;
    bool rightToLeft = false, hidden = false;
    Point origin;
    int top = 0, bottom = 0;
    std::optional<Rect> cell; // none outside tables
    int cellNumber = -1;
    std::size_t block = 0, firstLine = 0, lineCount = 0;
    std::unique_ptr<TextLines> text;
};

struct ReferenceBlock {
    TextPos start = 0, end = 0;
    int top = 0, bottom = 0;
};

struct ReferenceText {
    std::vector<ReferenceBlock> blocks;
    std::vector<ReferenceParagraph> paragraphs;
    std::vector<ReferenceLine> lines; // by ascending start
    int height = 0;

    const ReferenceLine& LineOf(TextPos position) const;
    const ReferenceParagraph& ParagraphOf(const ReferenceLine& line) const {
        return paragraphs[line.paragraph];
    }
    const TextLine& Measures(const ReferenceLine& line) const {
        return ParagraphOf(line).text->Line(line.index);
    }
    std::size_t BlockAt(int y) const;
    // The lowest line of its block that starts at or above y.
    const ReferenceLine& LineAt(int y) const;
    // Of the caret, from the paragraph's origin; and from the start of the view's lines.
    double XInParagraph(const ReferenceLine& line, TextPos position) const;
    double X(const ReferenceLine& line, TextPos position) const {
        return ParagraphOf(line).origin.x + XInParagraph(line, position);
    }
};

ReferenceText LayOutReference(const ReferenceSettings& settings);

struct ReferencePart {
    TextPos start = 0, end = 0;
    bool first = true, last = true; // of its paragraph
    int breakWidth = 1, alignWidth = 1;
};
