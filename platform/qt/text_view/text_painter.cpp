#include "platform/qt/text_view/text_painter.h"

#include "platform/qt/qt_color.h"
#include "platform/qt/text_view/paragraph_box_painter.h"
#include "platform/qt/text_view/selected_region.h"

#include <algorithm>

namespace {
// Three parts of the first colour and two of the second. Opaque, so that borders are no darker
// where they overlap.
QColor Blend(const QColor& a, const QColor& b) {
    const auto mix = [](int x, int y) { return (3 * x + 2 * y) / 5; };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

// Inside the box.
void PaintFrame(QPainter& painter, const QRect& box, int thickness, const QColor& color) {
    for (const QRect& side : {box.adjusted(0, 0, 0, thickness - box.height()),
                              box.adjusted(0, box.height() - thickness, 0, 0),
                              box.adjusted(0, 0, thickness - box.width(), 0),
                              box.adjusted(box.width() - thickness, 0, 0, 0)})
        painter.fillRect(side, color);
}

void PaintPicture(QPainter& painter, const TextPaint& paint, const PlacedPicture& placed,
                  const QRect& box) {
    const Picture* picture = paint.context.pictures.At(placed.position);
    const QPixmap pixmap =
        picture ? paint.context.pictures.Pixmap(*picture, placed.size) : QPixmap();
    const QColor back = ToQColor(paint.context.viewStyle.backColor);
    if (pixmap.isNull())
        PaintFrame(painter, box, paint.context.Hairline(), Blend(back, paint.text));
    else
        painter.drawPixmap(box.topLeft(), pixmap);
    if (placed.position < paint.selectionStart || placed.position >= paint.selectionEnd) return;
    QColor overlay = paint.selectionBackground;
    overlay.setAlphaF(0.5f);
    painter.fillRect(box, overlay);
}

// The selected part is drawn separately, in the selection's colours.
void PaintText(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
               QPoint origin, const QRect& clip) {
    const QRegion selected = SelectedRegion(paragraph, paint.selectionStart, paint.selectionEnd,
                                            clip.translated(-origin));
    if (selected.isEmpty()) return paragraph.text->draw(&painter, origin, {}, clip);
    const QTextOption normal = paragraph.text->textOption();
    QTextOption oneColor = normal;
    oneColor.setFlags(normal.flags() | QTextOption::SuppressColors);
    painter.save();
    painter.setClipRegion(QRegion(clip).subtracted(selected.translated(origin)));
    paragraph.text->draw(&painter, origin, {}, clip);
    painter.setClipRegion(selected.translated(origin));
    painter.fillRect(clip, paint.selectionBackground);
    painter.setPen(paint.selectionText);
    paragraph.text->setTextOption(oneColor);
    paragraph.text->draw(&painter, origin, {}, clip);
    paragraph.text->setTextOption(normal);
    painter.restore();
}

void PaintPictures(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
                   QPoint origin, const QRect& clip) {
    for (const PlacedPicture& placed : paragraph.pictures) {
        const QRect box = paragraph.PictureBox(placed).translated(origin);
        if (box.intersects(clip)) PaintPicture(painter, paint, placed, box);
    }
}

// To the right of and below the box's edges, so that the borders of adjacent cells coincide.
void PaintBorders(QPainter& painter, const TextPaint& paint, const CellLayout& cell,
                  QPoint origin) {
    const int thickness = paint.context.Hairline();
    const QRect box = cell.box.translated(origin).adjusted(0, 0, thickness, thickness);
    const QRect top(box.left(), box.top(), box.width(), thickness);
    const QRect left(box.left(), box.top(), thickness, box.height());
    const QColor line = paint.Line();
    if (cell.cell->borderTop) painter.fillRect(top, line);
    if (cell.cell->borderLeft) painter.fillRect(left, line);
    if (cell.cell->borderRight) painter.fillRect(left.translated(cell.box.width(), 0), line);
    if (cell.lowest->borderBottom) painter.fillRect(top.translated(0, cell.box.height()), line);
}

// The text colour contrasts with the view's background; a cell or a paragraph may have another
// one.
QColor TextColorIn(const TextPaint& paint, const BlockLayout& layout,
                   const ParagraphLayout& paragraph) {
    const TableCell* cell = layout.cells.empty() ? nullptr : layout.cells[paragraph.cell].cell;
    const ParagraphStyle* style = paragraph.box.style;
    const bool isShaded = style && !style->autoBackground;
    if (!isShaded && (!cell || cell->autoBackground)) return paint.text;
    const QColor back = ToQColor(isShaded ? style->background : cell->background);
    return HasContrast(paint.text, back) ? paint.text : LegibleOn(back);
}
} // namespace

QColor TextPaint::Line() const {
    return Blend(text, ToQColor(context.viewStyle.backColor));
}

void PaintBackground(QPainter& painter, const BlockLayout& layout, QPoint origin) {
    for (const CellLayout& cell : layout.cells)
        if (!cell.cell->autoBackground && !cell.hidden)
            painter.fillRect(cell.box.translated(origin), ToQColor(cell.cell->background));
    for (const ParagraphLayout& paragraph : layout.paragraphs)
        PaintShading(painter, paragraph, origin + paragraph.origin);
}

void PaintBlock(QPainter& painter, const TextPaint& paint, const BlockLayout& layout, QPoint origin,
                const QRect& clip) {
    for (const CellLayout& cell : layout.cells)
        if (!cell.hidden) PaintBorders(painter, paint, cell, origin);
    for (const ParagraphLayout& paragraph : layout.paragraphs) {
        const QPoint at = origin + paragraph.origin;
        const bool visible = at.y() <= clip.bottom() && at.y() + paragraph.Height() >= clip.top();
        if (!visible || (!layout.cells.empty() && layout.cells[paragraph.cell].hidden)) continue;
        PaintBox(painter, paint, paragraph, at);
        painter.setPen(TextColorIn(paint, layout, paragraph));
        PaintText(painter, paint, paragraph, at, clip);
        PaintPictures(painter, paint, paragraph, at, clip);
    }
}
