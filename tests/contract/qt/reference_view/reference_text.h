// A whole text laid out from its first character to its last, slowly and simply: what the text
// view, which lays out only what is seen, is held against.
#pragma once

#include "formats/document.h"
#include "platform/qt/text_view/layout/view_style.h"

#include <QPoint>
#include <QRect>
#include <QTextLayout>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

// What the layout depends on. Lengths in the screen's pixels.
struct WholeSetting {
    const Document* document = nullptr; // styles, rows and pictures
    std::u16string text;
    bool plain = true;
    ViewLook look;
    int viewWidth = 1, breakWidth = 1;
    double pixelsPerTwip = 96.0 / 1440;
    QPaintDevice* device = nullptr;

    int Pixels(double twips) const;
    int Hairline() const { return std::max(1, Pixels(15)); }
};

// Heights count from the top of the text, widths from where the view's lines begin.
struct WholeLine {
    TextPos start = 0, end = 0;    // without the paragraph break
    bool goesOn = false;           // its paragraph goes on in the next line
    int top = 0, bottom = 0;       // of its slot; a cell's or block's first line begins at its top
    int inkTop = 0, inkBottom = 0; // without the space around the paragraph
    std::size_t paragraph = 0;     // index in WholeText::paragraphs
    int index = 0;                 // of the QTextLine
    int Height() const { return std::max(1, bottom - top); }
    QTextLine Text(const struct WholeText& text) const;
};

struct WholeParagraph {
    TextPos start = 0, end = 0;
    bool rightToLeft = false, hidden = false;
    QPointF origin; // of the layout's coordinates
    int top = 0, bottom = 0;
    QRect cell; // null for none
    int cellNumber = -1;
    std::size_t block = 0, firstLine = 0, lineCount = 0;
    std::vector<QFont> fonts; // held for the text
    std::unique_ptr<QTextLayout> text;
};

struct WholeBlock {
    TextPos start = 0, end = 0;
    int top = 0, bottom = 0;
};

struct WholeText {
    std::vector<WholeBlock> blocks;
    std::vector<WholeParagraph> paragraphs;
    std::vector<WholeLine> lines; // by ascending start
    int height = 0;

    const WholeLine& LineOf(TextPos position) const;
    const WholeParagraph& ParagraphOf(const WholeLine& line) const {
        return paragraphs[line.paragraph];
    }
    std::size_t BlockAt(int y) const;
    const WholeLine& LineAt(int y) const; // the lowest that begins at or above y, in its block
    double X(const WholeLine& line, TextPos position) const; // of the caret
};

WholeText LayOutWhole(const WholeSetting& setting);

QFont WholeFont(const ViewFont& font);
