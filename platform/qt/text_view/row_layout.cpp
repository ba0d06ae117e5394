#include "platform/qt/text_view/row_layout.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int leastCellWidth = 24, cellMargin = 2; // pixels; the margin is above and below

// Edges in pixels from the row's left edge to the right edge of each cell, ascending; a row wider
// than the view is made narrower as a whole.
std::vector<int> CellEdges(const LayoutContext& context, const TableRow& row) {
    std::vector<int> edges;
    int edge = 0;
    for (const TableCell& cell : row.cells) {
        edge = std::max(context.Pixels(cell.rightEdge) - context.Pixels(row.leftEdge),
                        edge + leastCellWidth);
        edges.push_back(edge);
    }
    const double scale = std::min(1.0, double(context.viewWidth - 1) / std::max(1, edge));
    for (int& each : edges)
        each = int(std::lround(each * scale));
    return edges;
}

// The paragraphs of a cell, each without the character that ends it.
std::vector<ParagraphPart> CellParts(const LayoutContext& context, const TableCell& cell) {
    std::vector<ParagraphPart> parts;
    if (cell.mergedAbove) return {ParagraphPart{cell.start, cell.start}};
    for (TextPos start = cell.start, at = start; at < cell.end; ++at) {
        const char16_t unit = context.document.text[at];
        if (unit != u'\n' && unit != u'\a') continue;
        parts.push_back({start, at});
        start = at + 1;
    }
    if (parts.empty()) parts.push_back({cell.start, cell.start});
    return parts;
}

// Lays out a cell's paragraphs one below the other; returns the height that they need.
int FillCell(const LayoutContext& context, const CellLayout& cell, std::size_t index, int gap,
             BlockLayout& layout) {
    const int width = std::max(1, cell.box.width() - 2 * gap);
    int y = cellMargin;
    for (ParagraphPart& part : CellParts(context, *cell.cell)) {
        part.breakWidth = part.alignWidth = width;
        ParagraphLayout paragraph = LayOutParagraph(context, part);
        paragraph.cell = index;
        paragraph.origin = QPoint(cell.box.left() + gap, y);
        y += paragraph.Height();
        layout.paragraphs.push_back(std::move(paragraph));
    }
    return y + cellMargin;
}
} // namespace

BlockLayout LayOutRow(const LayoutContext& context, const TextBlock& block) {
    const TableRow& row = *block.row;
    const std::vector<int> edges = CellEdges(context, row);
    const int total = edges.back(), room = std::max(0, context.viewWidth - 1 - total);
    const int offset = std::clamp(context.Pixels(row.leftEdge), 0, room);
    const int gap = std::clamp(context.Pixels(row.cellGap), 1, 4 * leastCellWidth);

    BlockLayout layout;
    layout.block = block;
    layout.width = offset + total;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const int from = i == 0 ? 0 : edges[i - 1], width = edges[i] - from;
        const int left = row.rightToLeft ? room - offset + total - edges[i] : offset + from;
        layout.cells.push_back({QRect(left, 0, width, 0), &row.cells[i]});
        const int cellGap = std::min(gap, width / 4);
        const int height = FillCell(context, layout.cells.back(), i, cellGap, layout);
        layout.height = std::max(layout.height, height);
    }
    for (CellLayout& cell : layout.cells)
        cell.box.setHeight(layout.height);
    return layout;
}
