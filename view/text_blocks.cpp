#include "view/text_blocks.h"

#include "view/layout_cost.h"

#include "common/unicode.h"
#include "common/utf.h"

#include <algorithm>

namespace {
constexpr TextPos spaceSearch = 256; // UTF-16 units to search back from a cut for a space

bool ExtendsPrevious(char16_t unit) {
    return IsLowSurrogate(unit) || WordPartOf(unit) == WordPart::Mark || unit == u'\u200D';
}

// Over-long paragraphs are cut near multiples of the piece length, unless a paragraph break
// precedes within a piece length. So a cut is found locally, and is the same from every position.
bool HasCut(const TextSource& text, TextPos grid) {
    return grid > 0 && grid < text.Length() && text.LastBreak(grid - pieceLength, grid + 1) < 0;
}

// After the last space before the grid position, or else between two grapheme clusters.
TextPos CutBefore(const TextSource& text, TextPos grid) {
    const std::u16string before = text.Range(grid - spaceSearch, grid + 1);
    const std::size_t space = before.rfind(u' ', spaceSearch - 1);
    if (space != std::u16string::npos) return grid - spaceSearch + static_cast<TextPos>(space) + 1;
    TextPos cut = spaceSearch;
    while (cut > 0 && ExtendsPrevious(before[static_cast<std::size_t>(cut)]))
        --cut;
    return grid - spaceSearch + cut;
}

TextPos PieceStart(const TextSource& text, TextPos position) {
    const TextPos from = std::max(0, position - 2 * pieceLength - spaceSearch);
    const TextPos lineBreak = text.LastBreak(from, position);
    const TextPos start = lineBreak < 0 ? from : lineBreak + 1;
    const TextPos index = position / pieceLength;
    for (TextPos i = index + 1; i >= index - 1; --i) {
        const TextPos grid = i * pieceLength;
        if (!HasCut(text, grid)) continue;
        const TextPos cut = CutBefore(text, grid);
        if (cut <= position) return std::max(start, cut);
    }
    return start;
}

TextPos PieceEnd(const TextSource& text, TextPos position) {
    const TextPos lineBreak = text.FirstBreak(position, position + 2 * pieceLength + 1);
    const TextPos end = lineBreak < 0 ? text.Length() : lineBreak + 1;
    const TextPos index = position / pieceLength;
    for (TextPos i = index + 1; i <= index + 2; ++i) {
        const TextPos grid = i * pieceLength;
        if (!HasCut(text, grid)) continue;
        const TextPos cut = CutBefore(text, grid);
        if (cut > position) return std::min(end, cut);
    }
    return end;
}

using Rows = std::span<const TableRow>;

bool IsLaidOutAsRow(const TableRow& row) {
    return !row.cells.empty() && row.end - row.start <= maxRowLength;
}

// Whether the row shares a cell with the row above.
bool IsJoined(const std::vector<TableRow>& rows, std::size_t index) {
    if (index == 0 || index >= rows.size()) return false;
    const TableRow &above = rows[index - 1], &row = rows[index];
    return above.end == row.start && IsLaidOutAsRow(above) && IsLaidOutAsRow(row) &&
           std::any_of(row.cells.begin(), row.cells.end(),
                       [](const TableCell& cell) { return cell.mergedAbove; });
}

// The row with those that it shares cells with; the row alone if together they are too long.
Rows JoinedRows(const std::vector<TableRow>& rows, std::size_t index) {
    std::size_t first = index, last = index;
    const auto fits = [&] {
        return last - first < maxJoinedRows && rows[last].end - rows[first].start <= maxRowLength;
    };
    while (fits() && IsJoined(rows, first))
        --first;
    while (fits() && IsJoined(rows, last + 1))
        ++last;
    return fits() ? Rows(rows).subspan(first, last - first + 1) : Rows(rows).subspan(index, 1);
}

Rows RowsAt(const std::vector<TableRow>& rows, TextPos position) {
    const auto after = std::upper_bound(rows.begin(), rows.end(), position,
                                        [](TextPos at, const TableRow& r) { return at < r.start; });
    if (after == rows.begin()) return {};
    const auto row = after - 1;
    if (position >= row->end || !IsLaidOutAsRow(*row)) return {};
    return JoinedRows(rows, std::size_t(row - rows.begin()));
}
} // namespace

TextBlock BlockAt(const TextSource& text, const std::vector<TableRow>& rows, TextPos position) {
    const TextPos size = text.Length();
    if (position >= size) {
        if (size == 0 || text.UnitAt(size - 1) == u'\n') return {size, size, {}};
        position = size - 1;
    }
    if (const Rows joined = RowsAt(rows, position); !joined.empty())
        return {joined.front().start, joined.back().end, joined};
    return {PieceStart(text, position), PieceEnd(text, position), {}};
}

namespace {
// Limits for rows laid out as one block.
constexpr std::size_t maxCells = 1024;
constexpr TextPos maxCostlyRows = 4 * 1024;

bool IsTooCostly(const TextSource& text, const Document& document, Rows rows) {
    std::size_t cells = 0;
    for (const TableRow& row : rows)
        cells += row.cells.size();
    const TextPos start = rows.front().start, end = rows.back().end;
    return cells > maxCells ||
           (end - start > maxCostlyRows && CostlyUnits(text, document, start, end) > maxCostlyRows);
}

// The part of a block between the nearest cuts around the position.
TextBlock DensePart(const TextSource& text, const Document& document, const TextBlock& block,
                    TextPos position) {
    constexpr TextPos none = -1;
    const auto cutNear = [&](TextPos grid) {
        const bool within =
            grid - densePiece >= block.start && grid < block.end && text.UnitAt(grid) != u'\n';
        return within && IsDenseBefore(text, document, grid) ? CutBefore(text, grid) : none;
    };
    const TextPos next = (position / densePiece + 1) * densePiece;
    TextBlock part = block;
    for (TextPos grid = next; grid > block.start && part.start == block.start; grid -= densePiece)
        if (const TextPos cut = cutNear(grid); cut <= position)
            part.start = std::max(cut, part.start);
    for (TextPos grid = next; grid < block.end && part.end == block.end; grid += densePiece)
        if (const TextPos cut = cutNear(grid); cut > position) part.end = cut;
    return part;
}
} // namespace

TextBlock LayoutBlockAt(const TextSource& text, const Document& document, TextPos position) {
    TextBlock block = BlockAt(text, document.rows, position);
    if (block.rows.size() > 1 && IsTooCostly(text, document, block.rows)) {
        const auto row = std::find_if(block.rows.begin(), block.rows.end() - 1,
                                      [&](const TableRow& r) { return position < r.end; });
        block = {row->start, row->end,
                 block.rows.subspan(std::size_t(row - block.rows.begin()), 1)};
    }
    position = std::clamp(position, block.start, std::max(block.start, block.end - 1));
    if (!block.rows.empty() && !IsTooCostly(text, document, block.rows)) return block;
    if (!block.rows.empty()) block = {PieceStart(text, position), PieceEnd(text, position), {}};
    return DensePart(text, document, block, position);
}

bool IsLastBlock(const TextSource& text, const TextBlock& block) {
    return block.end == text.Length() && (block.start == block.end || !EndsParagraph(text, block));
}

bool StartsParagraph(const TextSource& text, const TextBlock& block) {
    return block.start == 0 || text.UnitAt(block.start - 1) == u'\n';
}

bool EndsParagraph(const TextSource& text, const TextBlock& block) {
    return block.end > block.start && text.UnitAt(block.end - 1) == u'\n';
}
