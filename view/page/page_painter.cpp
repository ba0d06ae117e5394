#include "view/page/page_painter.h"

#include "formats/css/css_rare_style.h"
#include "view/page/border_painter.h"
#include "view/page/decoration_painter.h"

#include <algorithm>

namespace {
constexpr Color missingPicture = 0xA0A0A0;

// Edges are rounded, not sizes: neighbours meet.
Rect Pixels(double left, double top, double width, double height) {
    const int x = Rounded(left), y = Rounded(top);
    return {x, y, Rounded(left + width) - x, Rounded(top + height) - y};
}

class FragmentPainter {
  public:
    FragmentPainter(Canvas& canvas, const PagePaint& paint) : canvas_(canvas), paint_(paint) {}

    void Paint(const PageFragment& fragment, double left, double top) const {
        for (const PlacedBox& box : fragment.boxes)
            PaintBox(box, left, top);
        for (const PlacedLines& lines : fragment.lines)
            PaintLines(lines, left, top);
        for (const PlacedImage& picture : fragment.pictures)
            PaintPicture(picture, left, top);
        for (const PlacedPart& part : fragment.parts)
            if (IsSeen(top + part.top, part.fragment->height))
                Paint(*part.fragment, left + part.left, top + part.top);
    }

  private:
    // What hangs out of its box (floats that are higher than it) is seen as far as the box is.
    bool IsSeen(double top, double height) const {
        return top < Bottom(paint_.clip) && top + height >= paint_.clip.top;
    }

    BoxPaint Boxes() const { return {canvas_, paint_.clip, paint_.scale, paint_.backgrounds}; }

    void PaintBox(const PlacedBox& placed, double left, double top) const {
        if (IsHidden(paint_.boxes[placed.box])) return;
        const CssBoxStyle& style = *paint_.boxes[placed.box].style;
        const Rect box = Pixels(left + placed.left, top + placed.top, placed.width, placed.height);
        if (placed.isColumnRule) return PaintRule(*style.rare, box);
        if (paint_.backgrounds && placed.box != paint_.boxes.CanvasBox())
            FillBox(Boxes(), box, style.background);
        PaintBorders(Boxes(), style, box, {!placed.beginsAbove, true, !placed.endsBelow, true},
                     Rounded(left + placed.left + placed.gapLeft),
                     Rounded(left + placed.left + placed.gapRight));
    }

    void PaintRule(const CssRareStyle& columns, const Rect& box) const {
        CssBoxStyle rule;
        rule.borderWidth[cssLeft] = columns.columnRuleWidth;
        rule.borderStyle[cssLeft] = columns.columnRuleStyle;
        rule.borderColor[cssLeft] = columns.columnRuleColor;
        PaintBorders(Boxes(), rule, box);
    }

    void PaintLines(const PlacedLines& placed, double left, double top) const {
        const UnitSpan selected =
            paint_.selectedUnits ? paint_.selectedUnits(*placed.content) : UnitSpan{};
        for (const InlineLine& line : placed.layout.lines)
            if (IsSeen(top + line.top, line.height)) PaintLine(placed, line, selected, left, top);
    }

    // The selected part is drawn separately, in the selection's colours.
    void PaintLine(const PlacedLines& placed, const InlineLine& line, const UnitSpan& selected,
                   double left, double top) const {
        const InlinePiece& piece = placed.layout.pieces[line.piece];
        const int x = Rounded(left + line.left), baseline = Rounded(top + line.baseline);
        PaintDecorations(Boxes(), placed, line, left, top);
        const std::vector<Rect> hidden = HiddenRegion(placed, line, left, top);
        const std::vector<Rect> region = SelectedRegion(piece, line, selected, left, top);
        std::vector<Rect> without = hidden;
        without.insert(without.end(), region.begin(), region.end());
        piece.lines->Draw(canvas_, line.line, x, baseline,
                          {.text = paint_.text, .clip = paint_.clip, .without = without});
        if (region.empty()) return;
        for (const Rect& box : region)
            canvas_.FillRect(Intersection(box, paint_.clip), paint_.selection.background);
        piece.lines->Draw(canvas_, line.line, x, baseline,
                          {.text = paint_.selection.text,
                           .oneColor = true,
                           .clip = paint_.clip,
                           .within = region,
                           .without = hidden});
    }

    static std::vector<Rect> SelectedRegion(const InlinePiece& piece, const InlineLine& line,
                                            const UnitSpan& selected, double left, double top) {
        std::vector<Rect> region;
        AddRegion(piece, line, selected, left + line.left, top + line.top, line.height, region);
        return region;
    }

    // Higher than the line, as letters and rules may be.
    static std::vector<Rect> HiddenRegion(const PlacedLines& placed, const InlineLine& line,
                                          double left, double top) {
        std::vector<Rect> region;
        const auto& all = placed.content->hidden;
        auto hidden =
            std::upper_bound(all.begin(), all.end(), line.start,
                             [](TextPos at, const UnitSpan& each) { return at < each.end; });
        for (; hidden != all.end() && hidden->start < line.end; ++hidden)
            AddRegion(placed.layout.pieces[line.piece], line, *hidden, left + line.left,
                      top + line.top - line.height, 3 * line.height, region);
        return region;
    }

    // Of what is in the line.
    static void AddRegion(const InlinePiece& piece, const InlineLine& line, const UnitSpan& units,
                          double left, double top, double height, std::vector<Rect>& region) {
        const TextPos from = std::max(units.start, line.start), to = std::min(units.end, line.end);
        if (from >= to) return;
        for (const TextExtent& extent :
             piece.lines->Extents(line.line, from - piece.start, to - piece.start))
            region.push_back(Pixels(left + extent.left, top, extent.right - extent.left, height));
    }

    void PaintPicture(const PlacedImage& picture, double left, double top) const {
        const Rect box =
            Pixels(left + picture.left, top + picture.top, picture.width, picture.height);
        if (!Intersect(box, paint_.clip) || IsHidden(paint_.boxes[picture.box])) return;
        if (picture.isFrame) return PaintFrame(box);
        if (paint_.drawPicture && paint_.drawPicture(canvas_, picture.box, box)) return;
        const Rect seen = Intersection(box, paint_.clip);
        canvas_.TintRect(seen, missingPicture);
    }

    void PaintFrame(const Rect& box) const {
        const int right = box.left + box.width - 1, bottom = box.top + box.height - 1;
        for (const Rect& side :
             {Rect{box.left, box.top, box.width, 1}, Rect{box.left, bottom, box.width, 1},
              Rect{box.left, box.top + 1, 1, box.height - 2},
              Rect{right, box.top + 1, 1, box.height - 2}})
            if (Intersect(side, paint_.clip))
                canvas_.FillRect(Intersection(side, paint_.clip), missingPicture);
    }

    Canvas& canvas_;
    const PagePaint& paint_;
};
} // namespace

void PaintFragment(Canvas& canvas, const PagePaint& paint, const PageFragment& fragment,
                   double left, double top) {
    FragmentPainter(canvas, paint).Paint(fragment, left, top);
}
