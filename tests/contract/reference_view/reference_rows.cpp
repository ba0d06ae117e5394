// The reference layout of table rows.
#include "tests/contract/reference_view/reference_builder.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr TextPos maxRowLength = 32 * 1024;
constexpr std::size_t maxJoined = 256;
constexpr int minCell = 360, cellMargin = 30; // twips

struct Cell {
    const TableCell* cell = nullptr;
    std::size_t row = 0, lastRow = 0, first = 0, end = 0; // indices of paragraphs
    int left = 0, width = 0, height = 0;
    bool hidden = false;
};

bool Joins(const std::vector<TableRow>& rows, std::size_t i) {
    return rows[i].start == rows[i - 1].end && IsReferenceRow(rows[i]) &&
           std::any_of(rows[i].cells.begin(), rows[i].cells.end(),
                       [](const TableCell& cell) { return cell.mergedAbove; });
}

// The number of rows from this one that share cells.
std::size_t RowsFrom(const std::vector<TableRow>& rows, std::size_t index) {
    std::size_t first = index, end = index + 1;
    while (first > 0 && IsReferenceRow(rows[first - 1]) && Joins(rows, first))
        --first;
    while (end < rows.size() && Joins(rows, end))
        ++end;
    const bool together =
        end - first <= maxJoined && rows[end - 1].end - rows[first].start <= maxRowLength;
    return together ? end - first : 1;
}

std::vector<int> Edges(const ReferenceSettings& settings, const TableRow& row, int maxWidth) {
    std::vector<int> edges{0};
    for (const TableCell& cell : row.cells)
        edges.push_back(std::max(edges.back() + settings.Pixels(minCell),
                                 settings.Pixels(cell.rightEdge) - settings.Pixels(row.leftEdge)));
    const double scale = std::min(1.0, double(maxWidth) / edges.back());
    for (int& edge : edges)
        edge = int(std::lround(edge * scale));
    return edges;
}

// Merges a cell with the one above if position and width are the same.
void MergeUp(std::vector<Cell>& above, Cell& cell) {
    for (Cell& other : above) {
        if (other.hidden || other.left != cell.left || other.width != cell.width) continue;
        if (other.lastRow + 1 != cell.row) continue;
        other.lastRow = cell.row;
        cell.hidden = true;
        return;
    }
}

// Horizontal positions only.
void PlaceCells(const ReferenceSettings& settings, const TableRow& row, std::size_t index,
                std::vector<Cell>& cells) {
    const int maxWidth = std::max(1, settings.viewWidth - settings.Hairline());
    const std::vector<int> edges = Edges(settings, row, maxWidth);
    const int room = std::max(0, maxWidth - edges.back());
    const int offset = std::clamp(settings.Pixels(row.leftEdge), 0, room);
    std::vector<Cell> own;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        Cell cell{&row.cells[i], index, index};
        cell.width = edges[i + 1] - edges[i];
        cell.left =
            row.rightToLeft ? room - offset + edges.back() - edges[i + 1] : offset + edges[i];
        if (row.cells[i].mergedAbove) MergeUp(cells, cell);
        own.push_back(cell);
    }
    cells.insert(cells.end(), own.begin(), own.end());
}

// Lays out its paragraphs as if the row started at the cell's top.
void Fill(ReferenceBuilder& maker, const TableRow& row, Cell& cell) {
    const ReferenceSettings& settings = maker.settings;
    ReferenceText& whole = maker.whole;
    const int gap = std::min(
        std::clamp(settings.Pixels(row.cellGap), settings.Hairline(), 4 * settings.Pixels(minCell)),
        cell.width / 4);
    const int width = std::max(1, cell.width - 2 * gap), margin = settings.Pixels(cellMargin);
    int y = whole.height + margin;
    TextPos start = cell.cell->start;
    const TextPos cellEnd = cell.hidden ? start : cell.cell->end;
    const auto add = [&](TextPos end) {
        maker.Add({start, end, true, true, width, width}, {cell.left + gap, y},
                  Rect{cell.left, 0, cell.width, 0}, cell.hidden);
        y = whole.paragraphs.back().bottom;
        start = end + 1;
    };
    cell.first = whole.paragraphs.size();
    for (TextPos i = start; i < cellEnd; ++i)
        if (settings.text[std::size_t(i)] == u'\n' || settings.text[std::size_t(i)] == u'\a')
            add(i);
    if (whole.paragraphs.size() == cell.first) add(start);
    cell.end = whole.paragraphs.size();
    cell.height = y + margin - whole.height;
}

// The tops of the rows, and the bottom of the last one.
std::vector<int> Tops(const std::vector<Cell>& cells, std::size_t rows) {
    std::vector<int> tops{0};
    for (std::size_t row = 0; row < rows; ++row) {
        int bottom = tops.back();
        for (const Cell& cell : cells)
            if (cell.lastRow == row) bottom = std::max(bottom, tops[cell.row] + cell.height);
        tops.push_back(bottom);
    }
    return tops;
}

void MoveDown(ReferenceText& whole, ReferenceParagraph& paragraph, int by) {
    paragraph.origin.y += by;
    paragraph.top += by;
    paragraph.bottom += by;
    for (std::size_t i = 0; i < paragraph.lineCount; ++i) {
        ReferenceLine& line = whole.lines[paragraph.firstLine + i];
        for (int* y : {&line.top, &line.bottom, &line.inkTop, &line.inkBottom, &line.baseline})
            *y += by;
    }
}

// The first line starts at the cell's top, and the last one ends at its bottom.
void Settle(ReferenceText& whole, const Cell& cell, int number, int top, int bottom) {
    for (std::size_t i = cell.first; i < cell.end; ++i) {
        ReferenceParagraph& paragraph = whole.paragraphs[i];
        MoveDown(whole, paragraph, top);
        paragraph.cellNumber = number;
        paragraph.cell->top = whole.height + top;
        paragraph.cell->height = bottom - top;
    }
    const ReferenceParagraph& last = whole.paragraphs[cell.end - 1];
    whole.lines[whole.paragraphs[cell.first].firstLine].top = whole.height + top;
    whole.lines[last.firstLine + last.lineCount - 1].bottom = whole.height + bottom;
}
} // namespace

bool IsReferenceRow(const TableRow& row) {
    return !row.cells.empty() && row.end - row.start <= maxRowLength;
}

void AddReferenceRows(ReferenceBuilder& maker, std::size_t index) {
    const auto& rows = maker.settings.document->rows;
    const std::size_t count = RowsFrom(rows, index);
    std::vector<Cell> cells;
    for (std::size_t row = 0; row < count; ++row)
        PlaceCells(maker.settings, rows[index + row], row, cells);
    for (Cell& cell : cells)
        Fill(maker, rows[index + cell.row], cell);
    const std::vector<int> tops = Tops(cells, count);
    for (std::size_t i = 0; i < cells.size(); ++i)
        Settle(maker.whole, cells[i], int(i), tops[cells[i].row], tops[cells[i].lastRow + 1]);
    maker.at = rows[index + count - 1].end;
    maker.EndBlock(maker.at, tops.back());
}
