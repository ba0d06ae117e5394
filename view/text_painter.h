// Paints laid-out blocks.
#pragma once

#include "view/text_paint.h"

// `origin` is the block's top left corner and `clip` the exposed rectangle, both in the canvas's
// pixels. Paint the backgrounds of all blocks first: the bottom border of a row overlaps the block
// below.
void PaintBackground(Canvas& canvas, const BlockLayout& layout, Point origin);
void PaintBlock(Canvas& canvas, const TextPaint& paint, const BlockLayout& layout, Point origin,
                const Rect& clip);
