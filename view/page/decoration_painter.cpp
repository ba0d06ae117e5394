#include "view/page/decoration_painter.h"

#include "view/geometry.h"

#include <algorithm>
#include <optional>

namespace {
// What the units cover of a line, from its left edge on.
std::optional<TextExtent> Covered(const InlinePiece& piece, const InlineLine& line,
                                  const InlineDecoration& decoration) {
    const TextPos from = std::max(decoration.start, line.start);
    const TextPos to = std::min(decoration.end, line.end);
    if (from >= to) return std::nullopt;
    const auto extents = piece.lines->Extents(line.line, from - piece.start, to - piece.start);
    if (extents.empty()) return std::nullopt;
    TextExtent covered = extents.front();
    for (const TextExtent& extent : extents)
        covered = {std::min(covered.left, extent.left), std::max(covered.right, extent.right)};
    return covered;
}

// The element's border box in a line: around its letters, without its margins.
Rect BoxOf(const InlineDecoration& decoration, const InlineLine& line, TextExtent covered,
           const CssSides<bool>& shown, double scale) {
    const CssBoxStyle& style = *decoration.style;
    const auto inset = [&](CssSide side) {
        return (style.borderWidth[side] + style.padding[side].Of(0)) * scale;
    };
    const auto margin = [&](CssSide side) {
        return shown[side] ? std::max(0.0F, style.margin[side].Of(0)) * scale : 0;
    };
    const double baseline = line.baseline - decoration.raise;
    const int left = Rounded(covered.left + margin(cssLeft));
    const int top = Rounded(baseline - decoration.ascent - inset(cssTop));
    return {left, top, Rounded(covered.right - margin(cssRight)) - left,
            Rounded(baseline + decoration.descent + inset(cssBottom)) - top};
}
} // namespace

void PaintDecorations(const BoxPaint& paint, const PlacedLines& placed, const InlineLine& line,
                      double left, double top) {
    const InlinePiece& piece = placed.layout.pieces[line.piece];
    for (const InlineDecoration& decoration : placed.content->decorations) {
        if (decoration.start >= line.end) break;
        const auto covered = Covered(piece, line, decoration);
        if (!covered) continue;
        const bool begins = decoration.begins && decoration.start >= line.start;
        const bool ends = decoration.ends && decoration.end <= line.end;
        const bool rightToLeft = placed.content->text.rightToLeft;
        const CssSides<bool> shown{true, rightToLeft ? begins : ends, true,
                                   rightToLeft ? ends : begins};
        InlineLine at = line;
        at.baseline += top;
        const double x = left + line.left;
        const Rect box =
            BoxOf(decoration, at, {covered->left + x, covered->right + x}, shown, paint.scale);
        if (paint.backgrounds) FillBox(paint, box, decoration.style->background);
        PaintBorders(paint, *decoration.style, box, shown);
    }
}
