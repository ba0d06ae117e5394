// Paints laid-out blocks.
#pragma once

#include "platform/qt/text_view/layout/block_layout.h"

#include <QPainter>
#include <QPalette>

struct TextPaint {
    const LayoutContext& context;
    QColor text; // for text without a colour of its own
    QColor selectionText, selectionBackground;
    TextPos selectionStart = 0, selectionEnd = 0;

    QColor Line() const; // of borders without a colour of their own
};

// `origin` is the block's top left corner and `clip` the exposed rectangle, both in the painter's
// pixels. Paint the backgrounds of all blocks first: the bottom border of a row overlaps the block
// below.
void PaintBackground(QPainter& painter, const BlockLayout& layout, QPoint origin);
void PaintBlock(QPainter& painter, const TextPaint& paint, const BlockLayout& layout, QPoint origin,
                const QRect& clip);
