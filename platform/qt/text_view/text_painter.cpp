#include "platform/qt/text_view/text_painter.h"

#include "platform/qt/text_view/layout/view_style.h"
#include "platform/qt/text_view/selected_region.h"

#include <algorithm>

namespace {
// A colour between two, nearer to the first. No colour is laid over another, so that lines that
// meet are nowhere darker.
QColor Between(const QColor& a, const QColor& b) {
    const auto mix = [](int x, int y) { return (3 * x + 2 * y) / 5; };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

// A frame just inside the box.
void PaintFrame(QPainter& painter, const QRect& box, int thick, const QColor& color) {
    for (const QRect& side :
         {box.adjusted(0, 0, 0, thick - box.height()), box.adjusted(0, box.height() - thick, 0, 0),
          box.adjusted(0, 0, thick - box.width(), 0), box.adjusted(box.width() - thick, 0, 0, 0)})
        painter.fillRect(side, color);
}

void PaintPicture(QPainter& painter, const TextPaint& paint, const PlacedPicture& placed,
                  const QRect& box) {
    const Picture* picture = paint.context.pictures.At(placed.position);
    const QPixmap pixmap =
        picture ? paint.context.pictures.Pixmap(*picture, placed.size) : QPixmap();
    const QColor back = ToQColor(paint.context.look.backColor);
    if (pixmap.isNull())
        PaintFrame(painter, box, paint.context.Hairline(), Between(back, paint.text));
    else
        painter.drawPixmap(box.topLeft(), pixmap);
    if (placed.position < paint.selectionStart || placed.position >= paint.selectionEnd) return;
    QColor veil = paint.selectionBack;
    veil.setAlphaF(0.5f);
    painter.fillRect(box, veil);
}

// The selected part is drawn by itself, in its own colours.
void PaintText(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
               QPoint origin, const QRect& clip) {
    const QRegion selected = SelectedRegion(paragraph, paint.selectionStart, paint.selectionEnd,
                                            clip.translated(-origin));
    if (selected.isEmpty()) return paragraph.text->draw(&painter, origin, {}, clip);
    const QTextOption usual = paragraph.text->textOption();
    QTextOption oneColor = usual;
    oneColor.setFlags(usual.flags() | QTextOption::SuppressColors);
    painter.save();
    painter.setClipRegion(QRegion(clip).subtracted(selected.translated(origin)));
    paragraph.text->draw(&painter, origin, {}, clip);
    painter.setClipRegion(selected.translated(origin));
    painter.fillRect(clip, paint.selectionBack);
    painter.setPen(paint.selectionText);
    paragraph.text->setTextOption(oneColor);
    paragraph.text->draw(&painter, origin, {}, clip);
    paragraph.text->setTextOption(usual);
    painter.restore();
}

void PaintPictures(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
                   QPoint origin, const QRect& clip) {
    for (const PlacedPicture& placed : paragraph.pictures) {
        const QRect box = paragraph.PictureBox(placed).translated(origin);
        if (box.intersects(clip)) PaintPicture(painter, paint, placed, box);
    }
}

// Along the box's edges, to the right of and below them: so the borders of neighbours coincide.
void PaintBorders(QPainter& painter, const TextPaint& paint, const CellLayout& cell,
                  QPoint origin) {
    const int thick = paint.context.Hairline();
    const QRect box = cell.box.translated(origin).adjusted(0, 0, thick, thick);
    const QRect top(box.left(), box.top(), box.width(), thick);
    const QRect left(box.left(), box.top(), thick, box.height());
    const QColor line = Between(paint.text, ToQColor(paint.context.look.backColor));
    if (cell.cell->borderTop) painter.fillRect(top, line);
    if (cell.cell->borderLeft) painter.fillRect(left, line);
    if (cell.cell->borderRight) painter.fillRect(left.translated(cell.box.width(), 0), line);
    if (cell.lowest->borderBottom) painter.fillRect(top.translated(0, cell.box.height()), line);
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
        if (!cell.cell->autoBackground && !cell.hidden)
            painter.fillRect(cell.box.translated(origin), ToQColor(cell.cell->background));
}

void PaintBlock(QPainter& painter, const TextPaint& paint, const BlockLayout& layout, QPoint origin,
                const QRect& clip) {
    for (const CellLayout& cell : layout.cells)
        if (!cell.hidden) PaintBorders(painter, paint, cell, origin);
    for (const ParagraphLayout& paragraph : layout.paragraphs) {
        const QPoint at = origin + paragraph.origin;
        const bool seen = at.y() <= clip.bottom() && at.y() + paragraph.Height() >= clip.top();
        if (!seen || (!layout.cells.empty() && layout.cells[paragraph.cell].hidden)) continue;
        painter.setPen(TextColorIn(paint, layout, paragraph.cell));
        PaintText(painter, paint, paragraph, at, clip);
        PaintPictures(painter, paint, paragraph, at, clip);
    }
}
