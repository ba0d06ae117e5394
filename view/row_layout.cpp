#include "view/block_layout.h"
#include "view/column.h"

#include <algorithm>
#include <cmath>

namespace {
// Twips; the margin is vertical.
constexpr std::int32_t minCellWidth = 360, cellMargin = 30;

// A cell with what the height of its rows depends on.
struct RowCell {
    CellLayout layout;
    std::size_t row = 0, lastRow = 0; // the last of the rows that it spans
    int gap = 0, height = 0;
};

// Right edges of the cells in pixels, relative to the row's left edge, ascending; scaled down if
// the row is wider than the view.
std::vector<int> CellEdges(const LayoutContext& context, const TableRow& row, int maxWidth) {
    std::vector<int> edges;
    int edge = 0;
    for (const TableCell& cell : row.cells) {
        edge = std::max(context.Pixels(cell.rightEdge) - context.Pixels(row.leftEdge),
                        edge + context.Pixels(minCellWidth));
        edges.push_back(edge);
    }
    const double scale = std::min(1.0, double(maxWidth) / std::max(1, edge));
    for (int& each : edges)
        each = int(std::lround(each * scale));
    return edges;
}

using Cells = std::vector<RowCell>;

// Indices of the cells that reach down to this row.
std::vector<std::size_t> CellsAbove(const Cells& cells, std::size_t row) {
    std::vector<std::size_t> above;
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (!cells[i].layout.hidden && cells[i].lastRow + 1 == row) above.push_back(i);
    return above;
}

// Merges the cell with the one of the same column above, if it is marked so.
void MergeUp(Cells& cells, const std::vector<std::size_t>& above, RowCell& cell) {
    if (!cell.layout.cell->mergedAbove) return;
    const Rect& box = cell.layout.box;
    const auto found = std::find_if(above.begin(), above.end(), [&](std::size_t i) {
        const Rect& other = cells[i].layout.box;
        return other.left == box.left && other.width == box.width;
    });
    if (found == above.end()) return;
    cell.layout.hidden = true;
    cells[*found].lastRow = cell.row;
    cells[*found].layout.lowest = cell.layout.cell;
}

// Places the cells horizontally; returns the right edge.
int PlaceCells(const LayoutContext& context, const TextBlock& block, BlockPlace place,
               std::size_t index, Cells& cells) {
    const TableRow& row = block.rows[index];
    const int width = std::max(1, place.width - context.Hairline());
    const std::vector<int> edges = CellEdges(context, row, width);
    const int total = edges.back(), room = std::max(0, width - total);
    const int offset = std::clamp(context.Pixels(row.leftEdge), 0, room);
    const int widestGap = 4 * context.Pixels(minCellWidth);
    const auto above = CellsAbove(cells, index);
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const int from = i == 0 ? 0 : edges[i - 1], cellWidth = edges[i] - from;
        const int left = row.rightToLeft ? room - offset + total - edges[i] : offset + from;
        RowCell cell;
        cell.layout = {{place.left + left, 0, cellWidth, 0}, &row.cells[i], &row.cells[i], false};
        cell.row = cell.lastRow = index;
        cell.gap = std::min(std::clamp(context.Pixels(row.cellGap), context.Hairline(), widestGap),
                            cellWidth / 4);
        MergeUp(cells, above, cell);
        cells.push_back(cell);
    }
    return place.left + offset + total;
}

// The paragraphs of a cell, each without its end character.
std::vector<ParagraphPart> CellParts(const LayoutContext& context, const CellLayout& layout) {
    const TableCell& cell = *layout.cell;
    std::vector<ParagraphPart> parts;
    if (layout.hidden) return {{.start = cell.start, .end = cell.start, .inCell = true}};
    for (TextPos start = cell.start, at = start; at < cell.end; ++at) {
        const char16_t unit = context.document.text[at];
        if (unit != u'\n' && unit != u'\a') continue;
        parts.push_back(
            {.start = start, .end = at, .inCell = true, .beginsCell = start == cell.start});
        start = at + 1;
    }
    if (parts.empty()) parts.push_back({.start = cell.start, .end = cell.start});
    return parts;
}

// Lays out a cell's paragraphs below each other, relative to the cell.
void FillCell(const LayoutContext& context, RowCell& cell, std::size_t index, BlockLayout& layout) {
    const int margin = context.Pixels(cellMargin);
    const int width = std::max(1, cell.layout.box.width - 2 * cell.gap);
    int y = margin;
    for (ParagraphPart& part : CellParts(context, cell.layout)) {
        part.breakWidth = part.alignWidth = width;
        ParagraphLayout paragraph = LayOutParagraph(context, part);
        paragraph.cell = index;
        paragraph.origin = {cell.layout.box.left + cell.gap, y};
        y += paragraph.height;
        layout.paragraphs.push_back(std::move(paragraph));
    }
    cell.height = y + margin;
}

// The tops of the rows, and the bottom of the last one. A merged cell that does not fit enlarges
// the last of its rows.
std::vector<int> RowTops(const Cells& cells, std::size_t rows) {
    std::vector<int> tops(rows + 1);
    for (std::size_t row = 0; row < rows; ++row) {
        int bottom = tops[row];
        for (const RowCell& cell : cells)
            if (cell.lastRow == row) bottom = std::max(bottom, tops[cell.row] + cell.height);
        tops[row + 1] = bottom;
    }
    return tops;
}

// Of a cell higher than its text.
int SpaceAbove(const RowCell& cell) {
    const int space = std::max(0, cell.layout.box.height - cell.height);
    switch (cell.layout.cell->verticalAlignment) {
    case VerticalAlignment::Top: return 0;
    case VerticalAlignment::Center: return space / 2;
    case VerticalAlignment::Bottom: return space;
    }
    return 0;
}
} // namespace

BlockLayout LayOutRows(const LayoutContext& context, const TextBlock& block) {
    BlockLayout layout;
    layout.block = block;
    Cells cells;
    const BlockPlace place = PlaceOfRows(context, block.rows);
    for (std::size_t row = 0; row < block.rows.size(); ++row)
        layout.width = std::max(layout.width, PlaceCells(context, block, place, row, cells));
    for (std::size_t i = 0; i < cells.size(); ++i)
        FillCell(context, cells[i], i, layout);

    const std::vector<int> tops = RowTops(cells, block.rows.size());
    for (RowCell& cell : cells) {
        const int top = tops[cell.row];
        cell.layout.box.top = top;
        cell.layout.box.height = tops[cell.lastRow + 1] - top;
        layout.cells.push_back(cell.layout);
    }
    for (ParagraphLayout& paragraph : layout.paragraphs) {
        const RowCell& cell = cells[paragraph.cell];
        paragraph.origin.y += cell.layout.box.top + SpaceAbove(cell);
    }
    layout.height = tops.back();
    return layout;
}
