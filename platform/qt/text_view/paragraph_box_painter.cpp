#include "platform/qt/text_view/paragraph_box_painter.h"

#include "platform/qt/qt_color.h"

namespace {
QRect BoxRect(const ParagraphLayout& paragraph, QPoint origin) {
    const ParagraphBox& box = paragraph.box;
    const QRect rect(box.left, box.spaceAbove, box.right - box.left,
                     paragraph.Height() - box.spaceAbove - box.spaceBelow);
    return rect.translated(origin);
}

// The file's where it can be seen.
QColor ColorOf(const TextPaint& paint, const ParagraphStyle& style, const ParagraphBorder& border) {
    const QColor back =
        ToQColor(style.autoBackground ? paint.context.viewStyle.backColor : style.background);
    const QColor color = border.autoColor ? paint.Line() : ToQColor(border.color);
    return HasContrast(color, back) ? color : LegibleOn(back);
}
} // namespace

void PaintShading(QPainter& painter, const ParagraphLayout& paragraph, QPoint origin) {
    const ParagraphStyle* style = paragraph.box.style;
    if (style && !style->autoBackground)
        painter.fillRect(BoxRect(paragraph, origin), ToQColor(style->background));
}

void PaintBox(QPainter& painter, const TextPaint& paint, const ParagraphLayout& paragraph,
              QPoint origin) {
    const ParagraphBox& box = paragraph.box;
    if (!box.style) return;
    const ParagraphBorders& borders = box.style->borders;
    const QRect rect = BoxRect(paragraph, origin);
    const auto paintSide = [&](const ParagraphBorder& border, Qt::Edge edge) {
        const int thickness = BorderThickness(paint.context, border);
        if (thickness == 0) return;
        QRect side = rect;
        switch (edge) {
        case Qt::LeftEdge: side.setWidth(thickness); break;
        case Qt::TopEdge: side.setHeight(thickness); break;
        case Qt::RightEdge: side.setLeft(rect.right() + 1 - thickness); break;
        case Qt::BottomEdge: side.setTop(rect.bottom() + 1 - thickness); break;
        }
        painter.fillRect(side, ColorOf(paint, *box.style, border));
    };
    paintSide(borders.left, Qt::LeftEdge);
    paintSide(borders.right, Qt::RightEdge);
    if (!box.joinsAbove) paintSide(borders.top, Qt::TopEdge);
    if (box.joinsAbove && box.insetTop > 0) paintSide(borders.between, Qt::TopEdge);
    if (!box.joinsBelow) paintSide(borders.bottom, Qt::BottomEdge);
}
