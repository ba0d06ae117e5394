// The lines of a block of a page, between its floats.
#pragma once

#include "view/page/inline_content.h"
#include "view/page/width_extent.h"

#include <memory>

// Lines that were broken in one go.
struct InlinePiece {
    TextPos start = 0;
    std::unique_ptr<TextLines> lines;
};

struct InlineLine {
    std::size_t piece = 0;
    int line = 0;               // of the piece
    TextPos start = 0, end = 0; // of the block's text
    double left = 0;            // of what is visible, from the context's left edge
    double top = 0, height = 0; // of the line box, from the context's top
    double baseline = 0;        // likewise
};

struct InlinePlace {
    double left = 0, top = 0; // of the margin box, in the context
};

struct InlineLayout {
    std::vector<InlinePiece> pieces;
    std::vector<InlineLine> lines;
    std::vector<InlinePlace> atoms, floats; // in the order of the content's
    double bottom = 0;                      // of the last line, or the top
};

// `room` is the block's content box. Its floats are added to `floats`. An empty content, or one
// of floats alone, has no line.
InlineLayout LayOutInline(LineLayout& system, const InlineContent& content, InlineEdges room,
                          double top, FloatContext& floats);

WidthExtent ExtentOf(LineLayout& system, const InlineContent& content);
