#include "view/paragraph_box.h"

#include "view/style_runs.h"
#include "view/text_blocks.h"

#include <algorithm>

namespace {
bool HasBorders(const ParagraphStyle& style) {
    return style.borders != ParagraphBorders{};
}

std::int32_t LeftEdge(const ParagraphStyle& style) {
    return style.leftIndent + std::min(0, style.firstLineIndent);
}

bool AreInOneBox(const ParagraphStyle& a, const ParagraphStyle& b) {
    const bool same = a.borders == b.borders && LeftEdge(a) == LeftEdge(b) &&
                      a.rightIndent == b.rightIndent && a.rightToLeft == b.rightToLeft;
    if (!same || HasBorders(a)) return same;
    return a.autoBackground == b.autoBackground && a.background == b.background;
}

const ParagraphStyle& StyleOf(const Document& document, TextPos position) {
    const auto index = StyleAt(document.paragraphRuns, position);
    return document
        .paragraphStyles[std::min<std::size_t>(index, document.paragraphStyles.size() - 1)];
}

// Whether a paragraph of the same cell, or out of tables one of the text, is above.
bool HasNeighbourAbove(const LayoutContext& context, const ParagraphPart& part) {
    if (part.inCell) return !part.beginsCell;
    return part.start > 0 &&
           BlockAt(*context.text, context.document.rows, part.start - 1).rows.empty();
}

// After the last break of a text nothing is boxed.
bool HasNeighbourBelow(const LayoutContext& context, const ParagraphPart& part) {
    if (part.end + 1 >= context.text->Length()) return false;
    if (part.inCell) return context.text->UnitAt(part.end) == u'\n';
    return BlockAt(*context.text, context.document.rows, part.end + 1).rows.empty();
}

int Inset(const LayoutContext& context, const ParagraphBorder& border) {
    const int thickness = BorderThickness(context, border);
    return thickness == 0 ? 0 : thickness + context.Pixels(border.space);
}
} // namespace

int BorderThickness(const LayoutContext& context, const ParagraphBorder& border) {
    return border.width == 0 ? 0 : std::max(1, context.Pixels(border.width));
}

ParagraphBox BoxOf(const LayoutContext& context, const ParagraphPart& part,
                   const ParagraphStyle& style) {
    const bool isAfterText = part.start > 0 && part.start == context.text->Length();
    if (isAfterText || (style.autoBackground && !HasBorders(style))) return {};
    ParagraphBox box;
    box.style = &style;
    const Document& document = context.document;
    const auto isSame = [&](TextPos position) {
        return AreInOneBox(style, StyleOf(document, position));
    };
    box.joinsAbove = !part.first || (HasNeighbourAbove(context, part) && isSame(part.start - 1));
    box.joinsBelow = !part.last || (HasNeighbourBelow(context, part) && isSame(part.end + 1));
    const ParagraphBorders& borders = style.borders;
    box.insetLeft = Inset(context, borders.left);
    box.insetRight = Inset(context, borders.right);
    if (part.first) box.insetTop = Inset(context, box.joinsAbove ? borders.between : borders.top);
    if (!part.last) return box;
    box.insetBottom =
        box.joinsBelow ? Inset(context, borders.between) - BorderThickness(context, borders.between)
                       : Inset(context, borders.bottom);
    return box;
}
