// Paints laid-out blocks.
#pragma once

#include "view/block_layout.h"

struct TextPaint {
    const LayoutContext& context;
    Color text = 0; // for text without a colour of its own
    Color selectionText = 0, selectionBackground = 0;
    TextPos selectionStart = 0, selectionEnd = 0;

    Color Line() const; // of borders without a colour of their own
};

// `origin` is the block's top left corner and `clip` the exposed rectangle, both in the canvas's
// pixels. Paint the backgrounds of all blocks first: the bottom border of a row overlaps the block
// below.
void PaintBackground(Canvas& canvas, const BlockLayout& layout, Point origin);
void PaintBlock(Canvas& canvas, const TextPaint& paint, const BlockLayout& layout, Point origin,
                const Rect& clip);
