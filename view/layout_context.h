// What the layout of a text depends on, and of a paragraph the part to be laid out.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"
#include "view/picture_store.h"
#include "view/text_styles.h"

#include <algorithm>

// All members must outlive it. Pixels are device pixels at
// any scale factor, so that lines, borders and pictures are sharp.
struct LayoutContext {
    const Document& document; // styles, rows and pictures; its text may not be the one displayed
    const ViewStyle& viewStyle;
    TextStyles& styles;
    PictureStore& pictures;
    LineLayout& lines;
    const TextSource* text = nullptr;
    bool plain = true;   // plain text: the view's font, and directions by content
    int viewWidth = 1;   // pixels; the room for tables and pictures
    int columnWidth = 1; // pixels; in the middle of it: paragraphs are aligned to it
    bool wraps = true;   // lines break at the column's width, else at `breakWidth`
    int breakWidth = 1;  // pixels
    double pixelsPerTwip = 96.0 / 1440;

    // Limits a measure from a file to what a page can hold.
    int Pixels(std::int32_t twips) const;
    int Hairline() const { return std::max(1, Pixels(15)); } // width of thin lines
};

struct ParagraphPart {
    TextPos start = 0, end = 0;     // without the paragraph break
    bool first = true, last = true; // false inside an over-long paragraph
    int breakWidth = 1, alignWidth = 1;
    bool inCell = false, beginsCell = false;
};
