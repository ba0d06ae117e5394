#include "platform/qt/text_view/layout/block_layout.h"

#include "platform/qt/text_view/layout/line_positions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace {
const ParagraphLayout& ParagraphOf(const BlockLayout& layout, LineRef line) {
    return layout.paragraphs[line.paragraph];
}

bool FirstInCell(const BlockLayout& layout, std::size_t paragraph) {
    return paragraph == 0 ||
           layout.paragraphs[paragraph].cell != layout.paragraphs[paragraph - 1].cell;
}

bool LastInCell(const BlockLayout& layout, std::size_t paragraph) {
    return paragraph + 1 == layout.paragraphs.size() || FirstInCell(layout, paragraph + 1);
}

BlockLayout LayOutSingle(const LayoutContext& context, const TextBlock& block) {
    const bool last = EndsParagraph(*context.text, block);
    const bool atEnd = block.end == context.text->Length();
    const ParagraphPart part{.start = block.start,
                             .end = block.end - (last ? 1 : 0),
                             .first = StartsParagraph(*context.text, block),
                             .last = last || atEnd,
                             .breakWidth = context.breakWidth,
                             .alignWidth = context.viewWidth};
    BlockLayout layout;
    layout.block = block;
    layout.paragraphs = LayOutParagraph(context, part);
    for (const ParagraphLayout& paragraph : layout.paragraphs) {
        layout.height += paragraph.Height();
        layout.width = std::max(layout.width, paragraph.width);
    }
    return layout;
}

int Distance(int at, int from, int to) {
    return at < from ? from - at : at >= to ? at - to + 1 : 0;
}

// By row and column first, then by height.
std::size_t NearestParagraph(const BlockLayout& layout, QPoint point) {
    std::size_t nearest = 0;
    auto minDistance = std::tuple(std::numeric_limits<int>::max(), 0, 0);
    for (std::size_t i = 0; i < layout.paragraphs.size(); ++i) {
        const ParagraphLayout& paragraph = layout.paragraphs[i];
        std::tuple distance(
            0, 0,
            Distance(point.y(), paragraph.origin.y(), paragraph.origin.y() + paragraph.Height()));
        if (!layout.cells.empty()) {
            const CellLayout& cell = layout.cells[paragraph.cell];
            if (cell.hidden) continue;
            const QRect& box = cell.box;
            std::get<0>(distance) = Distance(point.y(), box.top(), box.top() + box.height());
            std::get<1>(distance) = Distance(point.x(), box.left(), box.left() + box.width());
        }
        if (distance < minDistance) {
            minDistance = distance;
            nearest = i;
        }
    }
    return nearest;
}

int LineIndexAt(const ParagraphLayout& paragraph, int y) {
    const auto last = paragraph.tops.end() - 1;
    const auto after = std::upper_bound(paragraph.tops.begin() + 1, last, y);
    return int(after - paragraph.tops.begin()) - 1;
}

struct Place {
    const ParagraphLayout& paragraph;
    TextPos at; // in the paragraph
    QTextLine line;
};

Place PlaceOf(const BlockLayout& layout, TextPos position) {
    const LineRef ref = LineOf(layout, position);
    const ParagraphLayout& paragraph = ParagraphOf(layout, ref);
    const TextPos at = std::clamp(position, paragraph.start, paragraph.end) - paragraph.start;
    return {paragraph, at, paragraph.text->lineAt(ref.line)};
}

// From the glyphs, because between directions the caret may be elsewhere.
std::pair<double, double> EdgesOf(const Place& place) {
    if (const auto drawn = GlyphsAt(*place.paragraph.text, place.line, place.at))
        return {drawn->left, drawn->right};
    // A tab or a break has no glyphs.
    return std::minmax(
        {place.line.cursorToX(place.at), place.line.cursorToX(place.at, QTextLine::Trailing)});
}
} // namespace

BlockLayout LayOutBlock(const LayoutContext& context, const TextBlock& block) {
    return block.rows.empty() ? LayOutSingle(context, block) : LayOutRows(context, block);
}

int CellBottom(const BlockLayout& layout, std::size_t cell) {
    if (layout.cells.empty()) return layout.height;
    const QRect& box = layout.cells[cell].box;
    return box.top() + box.height();
}

LineRef LineOf(const BlockLayout& layout, TextPos position) {
    const auto& all = layout.paragraphs;
    const auto after =
        std::upper_bound(all.begin() + 1, all.end(), position,
                         [](TextPos at, const ParagraphLayout& p) { return at < p.start; });
    const std::size_t index = std::size_t(after - all.begin()) - 1;
    return {index, all[index].LineOf(position)};
}

TextPos LineStart(const BlockLayout& layout, LineRef line) {
    return ParagraphOf(layout, line).LineStart(line.line);
}

TextPos LineEnd(const BlockLayout& layout, LineRef line) {
    return ParagraphOf(layout, line).LineEnd(line.line);
}

int LineTop(const BlockLayout& layout, LineRef line) {
    const ParagraphLayout& paragraph = ParagraphOf(layout, line);
    if (line.line == 0 && FirstInCell(layout, line.paragraph))
        return layout.cells.empty() ? 0 : layout.cells[paragraph.cell].box.top();
    return paragraph.origin.y() + paragraph.tops[line.line];
}

int LineBottom(const BlockLayout& layout, LineRef line) {
    const ParagraphLayout& paragraph = ParagraphOf(layout, line);
    if (line.line + 1 == paragraph.LineCount() && LastInCell(layout, line.paragraph))
        return CellBottom(layout, paragraph.cell);
    return paragraph.origin.y() + paragraph.tops[line.line + 1];
}

LineRef LineAtHeight(const BlockLayout& layout, int y) {
    LineRef lowest;
    int lowestTop = -1;
    for (std::size_t i = 0; i < layout.paragraphs.size(); ++i) {
        const ParagraphLayout& paragraph = layout.paragraphs[i];
        const LineRef line{i, LineIndexAt(paragraph, y - paragraph.origin.y())};
        const int top = LineTop(layout, line);
        if (top > y || top <= lowestTop) continue;
        lowest = line;
        lowestTop = top;
    }
    return lowest;
}

TextPos PositionAt(const BlockLayout& layout, QPoint point, HitTest means) {
    const std::size_t index = NearestParagraph(layout, point);
    const ParagraphLayout& paragraph = layout.paragraphs[index];
    const LineRef line{index, LineIndexAt(paragraph, point.y() - paragraph.origin.y())};
    return PositionInLine(layout, line, point.x(), means);
}

TextPos PositionInLine(const BlockLayout& layout, LineRef ref, int x, HitTest means) {
    const ParagraphLayout& paragraph = ParagraphOf(layout, ref);
    const int inLine = x - paragraph.origin.x();
    return means == QTextLine::CursorOnCharacter ? paragraph.CharacterInLine(ref.line, inLine)
                                                 : paragraph.PositionInLine(ref.line, inLine);
}

int CaretX(const BlockLayout& layout, LineRef line, TextPos position) {
    const ParagraphLayout& paragraph = ParagraphOf(layout, line);
    const TextPos at = std::clamp(position, paragraph.start, paragraph.end);
    return paragraph.origin.x() + int(std::floor(paragraph.X(line.line, at)));
}

QRect CaretBox(const BlockLayout& layout, TextPos position) {
    const LineRef ref = LineOf(layout, position);
    const ParagraphLayout& paragraph = ParagraphOf(layout, ref);
    const QTextLine line = paragraph.text->lineAt(ref.line);
    const int top = paragraph.origin.y() + int(std::floor(line.y()));
    return QRect(CaretX(layout, ref, position), top, 1, int(std::ceil(line.height())));
}

QRect CharacterBox(const BlockLayout& layout, TextPos position) {
    const Place place = PlaceOf(layout, position);
    const ParagraphLayout& paragraph = place.paragraph;
    for (const PlacedPicture& picture : paragraph.pictures)
        if (picture.position == position)
            return paragraph.PictureBox(picture).translated(paragraph.origin);
    const auto [left, right] = EdgesOf(place);
    QRect box = CaretBox(layout, position);
    box.setLeft(paragraph.origin.x() + int(std::floor(left)));
    box.setWidth(std::max(1, int(std::ceil(right) - std::floor(left))));
    return box;
}
