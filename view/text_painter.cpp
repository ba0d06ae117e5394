#include "view/text_painter.h"

#include "common/contrast.h"
#include "view/paragraph_box_painter.h"
#include "view/selected_region.h"

namespace {
// Inside the box.
void PaintFrame(Canvas& canvas, const Rect& box, int thickness, Color color) {
    canvas.FillRect({box.left, box.top, box.width, thickness}, color);
    canvas.FillRect({box.left, Bottom(box) - thickness, box.width, thickness}, color);
    canvas.FillRect({box.left, box.top, thickness, box.height}, color);
    canvas.FillRect({Right(box) - thickness, box.top, thickness, box.height}, color);
}

void PaintPicture(Canvas& canvas, const TextPaint& paint, const PlacedPicture& placed,
                  const Rect& box) {
    const Picture* picture = PictureAt(paint.context.document, placed.position);
    if (!picture || !paint.context.pictures.Draw(canvas, *picture, box))
        PaintFrame(canvas, box, paint.context.Hairline(), paint.MissingPicture());
    if (placed.position >= paint.selectionStart && placed.position < paint.selectionEnd)
        canvas.TintRect(box, paint.selectionBackground);
}

void PaintPictures(Canvas& canvas, const TextPaint& paint, const ParagraphLayout& paragraph,
                   Point origin, const Rect& clip) {
    for (const PlacedPicture& placed : paragraph.pictures) {
        const Rect box = Moved(paragraph.PictureBox(placed), origin);
        if (Intersect(box, clip)) PaintPicture(canvas, paint, placed, box);
    }
}

// Letters may reach beyond their line, as much as a line's height.
bool MayShow(const ParagraphLayout& paragraph, int line, int top, const Rect& clip) {
    const int height = paragraph.LineBottom(line) - paragraph.LineTop(line);
    return top + paragraph.LineTop(line) - height < Bottom(clip) &&
           top + paragraph.LineBottom(line) + height > clip.top;
}

void PaintLines(Canvas& canvas, const ParagraphLayout& paragraph, Point origin,
                const LinePaint& paint) {
    for (int i = 0; i < paragraph.LineCount(); ++i) {
        if (!MayShow(paragraph, i, origin.y, paint.clip)) continue;
        const PlacedLine& line = paragraph.lines[std::size_t(i)];
        paragraph.text->Draw(canvas, i, origin.x + line.left, origin.y + line.baseline, paint);
    }
}

// The selected part is drawn separately, in the selection's colours.
void PaintText(Canvas& canvas, const TextPaint& paint, const ParagraphLayout& paragraph, Color text,
               Point origin, const Rect& clip) {
    std::vector<Rect> selected = SelectedRegion(paragraph, paint.selectionStart, paint.selectionEnd,
                                                Moved(clip, {-origin.x, -origin.y}));
    for (Rect& box : selected)
        box = Moved(box, origin);
    PaintLines(canvas, paragraph, origin, {.text = text, .clip = clip, .without = selected});
    if (selected.empty()) return;
    for (const Rect& box : selected)
        canvas.FillRect(box, paint.selectionBackground);
    PaintLines(canvas, paragraph, origin,
               {.text = paint.selectionText, .oneColor = true, .clip = clip, .within = selected});
}

// To the right of and below the box's edges, so that the borders of adjacent cells coincide.
void PaintBorders(Canvas& canvas, const TextPaint& paint, const CellLayout& cell, Point origin) {
    const int thickness = paint.context.Hairline();
    const Rect box = Moved(cell.box, origin);
    const Rect top{box.left, box.top, box.width + thickness, thickness};
    const Rect left{box.left, box.top, thickness, box.height + thickness};
    const Color line = paint.Line();
    if (cell.cell->borderTop) canvas.FillRect(top, line);
    if (cell.cell->borderLeft) canvas.FillRect(left, line);
    if (cell.cell->borderRight) canvas.FillRect(Moved(left, {box.width, 0}), line);
    if (cell.lowest->borderBottom) canvas.FillRect(Moved(top, {0, box.height}), line);
}

// The text colour contrasts with the view's background; a cell or a paragraph may have another
// one.
Color TextColorIn(const TextPaint& paint, const BlockLayout& layout,
                  const ParagraphLayout& paragraph) {
    const TableCell* cell = layout.cells.empty() ? nullptr : layout.cells[paragraph.cell].cell;
    const ParagraphStyle* style = paragraph.box.style;
    const bool isShaded = style && !style->autoBackground;
    if (!isShaded && (!cell || cell->autoBackground)) return paint.text;
    const Color back = isShaded ? style->background : cell->background;
    return IsReadable(paint.text, back) ? paint.text : LegibleOn(back);
}
} // namespace

void PaintBackground(Canvas& canvas, const BlockLayout& layout, Point origin) {
    for (const CellLayout& cell : layout.cells)
        if (!cell.cell->autoBackground && !cell.hidden)
            canvas.FillRect(Moved(cell.box, origin), cell.cell->background);
    for (const ParagraphLayout& paragraph : layout.paragraphs)
        PaintShading(canvas, paragraph, origin + paragraph.origin);
}

void PaintBlock(Canvas& canvas, const TextPaint& paint, const BlockLayout& layout, Point origin,
                const Rect& clip) {
    for (const CellLayout& cell : layout.cells)
        if (!cell.hidden) PaintBorders(canvas, paint, cell, origin);
    for (const ParagraphLayout& paragraph : layout.paragraphs) {
        const Point at = origin + paragraph.origin;
        const bool visible = at.y < Bottom(clip) && at.y + paragraph.height >= clip.top;
        if (!visible || (!layout.cells.empty() && layout.cells[paragraph.cell].hidden)) continue;
        PaintBox(canvas, paint, paragraph, at);
        PaintText(canvas, paint, paragraph, TextColorIn(paint, layout, paragraph), at, clip);
        PaintPictures(canvas, paint, paragraph, at, clip);
    }
}
