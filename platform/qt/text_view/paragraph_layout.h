// One paragraph laid out in lines.
#pragma once

#include "formats/document.h"
#include "platform/qt/text_view/char_formats.h"
#include "platform/qt/text_view/picture_store.h"
#include "platform/text_source.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTextLayout>

#include <memory>
#include <vector>

// What every layout of a text depends on. All is observed.
struct LayoutContext {
    const Document& document; // styles, rows and pictures; its own text may not be what is shown
    const ViewLook& look;
    CharFormats& formats;
    PictureStore& pictures;
    const TextSource* text = nullptr;
    QPaintDevice* device = nullptr; // gives fonts their resolution
    bool plain = true;              // plain text: the view's font holds, directions are found out
    int viewWidth = 1;              // pixels; lines are aligned in it
    int breakWidth = 1;             // pixels; lines break at it
    double pixelsPerTwip = 96.0 / 1440;

    int
    Pixels(std::int32_t twips) const; // of a measure a file gives: kept within what a page can hold
};

struct PlacedPicture {
    TextPos position = 0;
    QSize size;
};

struct ParagraphLayout {
    TextPos start = 0, end = 0; // without the paragraph break
    std::size_t cell = 0;       // index in its table row
    QPoint origin;              // in its block
    int width = 0;
    // The lines tile the paragraph from top to bottom, its spacing included: line i goes from
    // tops[i] to tops[i + 1]. Measured from the origin.
    std::vector<int> tops;
    std::vector<PlacedPicture> pictures;
    std::unique_ptr<QTextLayout> text;

    int Height() const { return tops.back(); }
    int LineCount() const { return text->lineCount(); }
    TextPos LineStart(int line) const { return start + text->lineAt(line).textStart(); }
    TextPos LineEnd(int line) const; // where the next line starts, or `end`
    int LineOf(TextPos position) const;
    QRect PictureBox(const PlacedPicture& picture) const; // measured from the origin
};

struct ParagraphPart {
    TextPos start = 0, end = 0;     // without the paragraph break
    bool first = true, last = true; // false inside an over-long paragraph
    int breakWidth = 1, alignWidth = 1;
};

ParagraphLayout LayOutParagraph(const LayoutContext& context, const ParagraphPart& part);
