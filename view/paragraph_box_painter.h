// Paints borders and shading of paragraphs.
#pragma once

#include "view/text_paint.h"

// `origin` is that of the paragraph, in the canvas's pixels.
void PaintShading(Canvas& canvas, const ParagraphLayout& paragraph, Point origin);
void PaintBox(Canvas& canvas, const TextPaint& paint, const ParagraphLayout& paragraph,
              Point origin);
