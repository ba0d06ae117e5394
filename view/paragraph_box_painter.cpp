#include "view/paragraph_box_painter.h"

#include "common/contrast.h"

namespace {
Rect BoxRect(const ParagraphLayout& paragraph, Point origin) {
    const ParagraphBox& box = paragraph.box;
    const Rect rect{box.left, box.spaceAbove, box.right - box.left,
                    paragraph.height - box.spaceAbove - box.spaceBelow};
    return Moved(rect, origin);
}

// The file's where it can be seen.
Color ColorOf(const TextPaint& paint, const ParagraphStyle& style, const ParagraphBorder& border) {
    const Color back = style.autoBackground ? paint.context.viewStyle.backColor : style.background;
    const Color color = border.autoColor ? paint.Line() : border.color;
    return CanBeSeen(color, back) ? color : LegibleOn(back);
}
} // namespace

void PaintShading(Canvas& canvas, const ParagraphLayout& paragraph, Point origin) {
    const ParagraphStyle* style = paragraph.box.style;
    if (style && !style->autoBackground)
        canvas.FillRect(BoxRect(paragraph, origin), style->background);
}

void PaintBox(Canvas& canvas, const TextPaint& paint, const ParagraphLayout& paragraph,
              Point origin) {
    const ParagraphBox& box = paragraph.box;
    if (!box.style) return;
    const ParagraphBorders& borders = box.style->borders;
    const Rect rect = BoxRect(paragraph, origin);
    const auto thickness = [&](const ParagraphBorder& border) {
        return BorderThickness(paint.context, border);
    };
    const auto fill = [&](const Rect& side, const ParagraphBorder& border) {
        if (thickness(border) > 0) canvas.FillRect(side, ColorOf(paint, *box.style, border));
    };
    const auto fillTop = [&](const ParagraphBorder& border) {
        fill({rect.left, rect.top, rect.width, thickness(border)}, border);
    };
    const int right = thickness(borders.right), bottom = thickness(borders.bottom);
    fill({rect.left, rect.top, thickness(borders.left), rect.height}, borders.left);
    fill({Right(rect) - right, rect.top, right, rect.height}, borders.right);
    if (!box.joinsAbove) fillTop(borders.top);
    if (box.joinsAbove && box.insetTop > 0) fillTop(borders.between);
    if (!box.joinsBelow)
        fill({rect.left, Bottom(rect) - bottom, rect.width, bottom}, borders.bottom);
}
