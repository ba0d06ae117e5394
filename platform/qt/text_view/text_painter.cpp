#include "platform/qt/text_view/text_painter.h"

#include "platform/qt/text_view/view_look.h"

#include <algorithm>

namespace {
QList<QTextLayout::FormatRange> Selection(const TextPaint& paint,
                                          const ParagraphLayout& paragraph) {
    const TextPos from = std::max(paint.selectionStart, paragraph.start);
    const TextPos to = std::min(paint.selectionEnd, paragraph.end);
    if (from >= to) return {};
    QTextCharFormat format;
    format.setBackground(paint.selectionBack);
    format.setForeground(paint.selectionText);
    return {{from - paragraph.start, to - from, format}};
}

// A selected paragraph break shows as a blank behind the last line.
void PaintSelectedBreak(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
                        QPoint origin) {
    if (paragraph.end < paint.selectionStart || paragraph.end >= paint.selectionEnd) return;
    const QTextLine line = paragraph.text->lineAt(paragraph.LineCount() - 1);
    const qreal width = line.height() / 4;
    const qreal x = line.cursorToX(paragraph.end - paragraph.start);
    const bool leftwards = paragraph.text->textOption().textDirection() == Qt::RightToLeft;
    painter.fillRect(
        QRectF(leftwards ? x - width : x, line.y(), width, line.height()).translated(origin),
        paint.selectionBack);
}

void PaintPlaceholder(QPainter& painter, const TextPaint& paint, const QRect& box) {
    QColor frame = paint.text;
    frame.setAlphaF(0.4f);
    painter.setPen(frame);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}

void PaintPicture(QPainter& painter, const TextPaint& paint, const PlacedPicture& placed,
                  const QRect& box) {
    const Picture* picture = paint.context.pictures.At(placed.position);
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPixmap pixmap =
        picture ? paint.context.pictures.Pixmap(*picture, placed.size, ratio) : QPixmap();
    if (pixmap.isNull())
        PaintPlaceholder(painter, paint, box);
    else
        painter.drawPixmap(box.topLeft(), pixmap);
    if (placed.position < paint.selectionStart || placed.position >= paint.selectionEnd) return;
    QColor veil = paint.selectionBack;
    veil.setAlphaF(0.5f);
    painter.fillRect(box, veil);
}

void PaintPictures(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
                   QPoint origin, const QRect& clip) {
    for (const PlacedPicture& placed : paragraph.pictures) {
        const QRect box = paragraph.PictureBox(placed).translated(origin);
        if (box.intersects(clip)) PaintPicture(painter, paint, placed, box);
    }
}

void PaintBorders(QPainter& painter, const TextPaint& paint, const CellLayout& cell,
                  QPoint origin) {
    const QRect box = cell.box.translated(origin);
    const int right = box.left() + box.width(), bottom = box.top() + box.height();
    QColor line = paint.text;
    line.setAlphaF(0.6f);
    painter.setPen(line);
    if (cell.cell->borderLeft) painter.drawLine(box.left(), box.top(), box.left(), bottom);
    if (cell.cell->borderRight) painter.drawLine(right, box.top(), right, bottom);
    if (cell.cell->borderTop && !cell.cell->mergedAbove)
        painter.drawLine(box.left(), box.top(), right, box.top());
    if (cell.cell->borderBottom) painter.drawLine(box.left(), bottom, right, bottom);
}
// The text colour is chosen for the view's background; a cell may have another.
QColor TextColorIn(const TextPaint& paint, const BlockLayout& layout, std::size_t cell) {
    if (layout.cells.empty() || layout.cells[cell].cell->autoBackground) return paint.text;
    const QColor back = ToQColor(layout.cells[cell].cell->background);
    return Contrast(paint.text, back) ? paint.text : ReadableOn(back);
}
} // namespace

void PaintBackground(QPainter& painter, const BlockLayout& layout, QPoint origin) {
    for (const CellLayout& cell : layout.cells)
        if (!cell.cell->autoBackground)
            painter.fillRect(cell.box.translated(origin), ToQColor(cell.cell->background));
}

void PaintBlock(QPainter& painter, const TextPaint& paint, const BlockLayout& layout, QPoint origin,
                const QRect& clip) {
    for (const CellLayout& cell : layout.cells)
        PaintBorders(painter, paint, cell, origin);
    for (const ParagraphLayout& paragraph : layout.paragraphs) {
        const QPoint at = origin + paragraph.origin;
        if (at.y() > clip.bottom() || at.y() + paragraph.Height() < clip.top()) continue;
        painter.setPen(TextColorIn(paint, layout, paragraph.cell));
        PaintSelectedBreak(painter, paint, paragraph, at);
        paragraph.text->draw(&painter, at, Selection(paint, paragraph), clip);
        PaintPictures(painter, paint, paragraph, at, clip);
    }
}
