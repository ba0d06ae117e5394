// Draws laid-out blocks.
#pragma once

#include "platform/qt/text_view/layout/block_layout.h"

#include <QPainter>
#include <QPalette>

struct TextPaint {
    const LayoutContext& context;
    QColor text; // of what has no colour of its own
    QColor selectionText, selectionBack;
    TextPos selectionStart = 0, selectionEnd = 0;
};

// `origin` is the block's top left corner, `clip` what has to be drawn; both in the painter's
// pixels. Backgrounds of all blocks come first: a row's lower border lies on the block below.
void PaintBackground(QPainter& painter, const BlockLayout& layout, QPoint origin);
void PaintBlock(QPainter& painter, const TextPaint& paint, const BlockLayout& layout, QPoint origin,
                const QRect& clip);
