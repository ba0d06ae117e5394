#include "view/placeholder.h"

#include "common/contrast.h"

#include <algorithm>
#include <cmath>

namespace {
// Quieter than a text: two thirds of the way from the background to black or white.
Color QuietOn(Color background) {
    const Color text = LegibleOn(background);
    Color mixed = 0;
    for (const int shift : {0, 8, 16})
        mixed |= ((text >> shift & 0xFF) * 2 + (background >> shift & 0xFF)) / 3 << shift;
    return mixed;
}

std::unique_ptr<TextLines> Shaped(LineLayout& lines, const std::u16string& text,
                                  const SystemStyle& system, bool underline, int width) {
    TextStyle style;
    style.font = {system.fontFamily, system.fontPoints};
    style.underline = underline;
    ParagraphText paragraph;
    paragraph.text = text;
    paragraph.runs = {{0, lines.Prepare(style)}};
    paragraph.width = std::max(1, width);
    return lines.BreakLines(paragraph);
}

int HeightOf(const TextLine& line) {
    return static_cast<int>(std::lround(line.ascent + line.descent + line.leading));
}

int HeightOf(const TextLines& lines) {
    int height = 0;
    for (int i = 0; i < lines.Count(); ++i)
        height += HeightOf(lines.Line(i));
    return height;
}

// In the middle of the room, from `top` down; returns what it covers.
Rect DrawCentered(Canvas& canvas, const TextLines& lines, int top, const PlaceholderPaint& paint) {
    LinePaint colors;
    colors.text = QuietOn(paint.background);
    colors.clip = paint.clip;
    Rect covered{paint.room.width, top, 0, 0};
    for (int i = 0; i < lines.Count(); ++i) {
        const TextLine& line = lines.Line(i);
        const int width = static_cast<int>(std::ceil(line.width));
        const int left = std::max(paint.margin, (paint.room.width - width) / 2);
        lines.Draw(canvas, i, left, top + static_cast<int>(std::lround(line.ascent)), colors);
        top += HeightOf(line);
        covered.left = std::min(covered.left, left);
        covered.width = std::max(covered.width, width);
    }
    covered.height = top - covered.top;
    return covered;
}
} // namespace

Rect PaintPlaceholder(Canvas& canvas, LineLayout& lines, const Placeholder& placeholder,
                      const SystemStyle& system, const PlaceholderPaint& paint) {
    const int width = paint.room.width - 2 * paint.margin;
    const auto text = Shaped(lines, placeholder.text, system, false, width);
    const auto link = Shaped(lines, placeholder.link, system, true, width);
    const int gap = placeholder.link.empty() ? 0 : HeightOf(link->Line(0)) / 2;
    const int linkHeight = placeholder.link.empty() ? 0 : HeightOf(*link);
    const int top = std::max(0, (paint.room.height - HeightOf(*text) - gap - linkHeight) / 2);
    const Rect above = DrawCentered(canvas, *text, top, paint);
    if (placeholder.link.empty()) return {};
    return DrawCentered(canvas, *link, Bottom(above) + gap, paint);
}
