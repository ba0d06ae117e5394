#include "view/block_layout.h"

#include "view/column.h"

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
    ParagraphPart part{.start = block.start,
                       .end = block.end - (last ? 1 : 0),
                       .first = StartsParagraph(*context.text, block),
                       .last = last || atEnd};
    const BlockPlace place = PlaceOfParagraph(context, part);
    part.alignWidth = place.width;
    part.breakWidth = context.wraps ? place.width : context.breakWidth;
    BlockLayout layout;
    layout.block = block;
    ParagraphLayout& paragraph = layout.paragraphs.emplace_back(LayOutParagraph(context, part));
    paragraph.origin.x = place.left;
    layout.height = paragraph.height;
    layout.width = place.left + paragraph.width;
    return layout;
}

int Distance(int at, int from, int to) {
    return at < from ? from - at : at >= to ? at - to + 1 : 0;
}

// By row and column first, then by height.
std::size_t NearestParagraph(const BlockLayout& layout, Point point) {
    std::size_t nearest = 0;
    auto minDistance = std::tuple(std::numeric_limits<int>::max(), 0, 0);
    for (std::size_t i = 0; i < layout.paragraphs.size(); ++i) {
        const ParagraphLayout& paragraph = layout.paragraphs[i];
        std::tuple distance(
            0, 0, Distance(point.y, paragraph.origin.y, paragraph.origin.y + paragraph.height));
        if (!layout.cells.empty()) {
            const CellLayout& cell = layout.cells[paragraph.cell];
            if (cell.hidden) continue;
            const Rect& box = cell.box;
            std::get<0>(distance) = Distance(point.y, box.top, Bottom(box));
            std::get<1>(distance) = Distance(point.x, box.left, Right(box));
        }
        if (distance < minDistance) {
            minDistance = distance;
            nearest = i;
        }
    }
    return nearest;
}

int LineIndexAt(const ParagraphLayout& paragraph, int y) {
    const auto after =
        std::upper_bound(paragraph.lines.begin() + 1, paragraph.lines.end(), y,
                         [](int height, const PlacedLine& line) { return height < line.top; });
    return int(after - paragraph.lines.begin()) - 1;
}
} // namespace

BlockLayout LayOutBlock(const LayoutContext& context, const TextBlock& block) {
    return block.rows.empty() ? LayOutSingle(context, block) : LayOutRows(context, block);
}

int CellBottom(const BlockLayout& layout, std::size_t cell) {
    if (layout.cells.empty()) return layout.height;
    const Rect& box = layout.cells[cell].box;
    return Bottom(box);
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
        return layout.cells.empty() ? 0 : layout.cells[paragraph.cell].box.top;
    return paragraph.origin.y + paragraph.LineTop(line.line);
}

int LineBottom(const BlockLayout& layout, LineRef line) {
    const ParagraphLayout& paragraph = ParagraphOf(layout, line);
    if (line.line + 1 == paragraph.LineCount() && LastInCell(layout, line.paragraph))
        return CellBottom(layout, paragraph.cell);
    return paragraph.origin.y + paragraph.LineBottom(line.line);
}

LineRef LineAtHeight(const BlockLayout& layout, int y) {
    LineRef lowest;
    int lowestTop = -1;
    for (std::size_t i = 0; i < layout.paragraphs.size(); ++i) {
        const ParagraphLayout& paragraph = layout.paragraphs[i];
        const LineRef line{i, LineIndexAt(paragraph, y - paragraph.origin.y)};
        const int top = LineTop(layout, line);
        if (top > y || top <= lowestTop) continue;
        lowest = line;
        lowestTop = top;
    }
    return lowest;
}

TextPos PositionAt(const BlockLayout& layout, Point point, HitTest means) {
    const std::size_t index = NearestParagraph(layout, point);
    const ParagraphLayout& paragraph = layout.paragraphs[index];
    const LineRef line{index, LineIndexAt(paragraph, point.y - paragraph.origin.y)};
    return PositionInLine(layout, line, point.x, means);
}

TextPos PositionInLine(const BlockLayout& layout, LineRef line, int x, HitTest means) {
    const ParagraphLayout& paragraph = ParagraphOf(layout, line);
    const int inLine = x - paragraph.origin.x;
    return means == HitTest::Character ? paragraph.CharacterInLine(line.line, inLine)
                                       : paragraph.PositionInLine(line.line, inLine);
}

int CaretX(const BlockLayout& layout, LineRef line, TextPos position) {
    const ParagraphLayout& paragraph = ParagraphOf(layout, line);
    const TextPos at = std::clamp(position, paragraph.start, paragraph.end);
    return paragraph.origin.x + int(std::floor(paragraph.X(line.line, at)));
}

Rect CaretBox(const BlockLayout& layout, TextPos position) {
    const LineRef ref = LineOf(layout, position);
    const ParagraphLayout& paragraph = ParagraphOf(layout, ref);
    const TextLine& line = paragraph.text->Line(ref.line);
    const int baseline = paragraph.lines[std::size_t(ref.line)].baseline;
    return {CaretX(layout, ref, position),
            paragraph.origin.y + int(std::floor(baseline - line.ascent)), 1,
            int(std::ceil(line.ascent + line.descent))};
}

Rect CharacterBox(const BlockLayout& layout, TextPos position) {
    const LineRef ref = LineOf(layout, position);
    const ParagraphLayout& paragraph = ParagraphOf(layout, ref);
    const TextPos at = std::clamp(position, paragraph.start, paragraph.end);
    return Moved(paragraph.CharacterBox(ref.line, at), paragraph.origin);
}
