// Paints borders and shading of paragraphs.
#pragma once

#include "platform/qt/text_view/text_painter.h"

// `origin` is that of the paragraph, in the painter's pixels.
void PaintShading(QPainter& painter, const ParagraphLayout& paragraph, QPoint origin);
void PaintBox(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
              QPoint origin);
