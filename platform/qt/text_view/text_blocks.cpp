#include "platform/qt/text_view/text_blocks.h"

#include <QChar>

#include <algorithm>

namespace {
constexpr TextPos spaceSearch = 256; // how far back from a cut a space is looked for

bool StaysWithPrevious(char16_t unit) {
    return QChar::isLowSurrogate(unit) || QChar::isMark(unit) || unit == u'\u200D';
}

// Over-long paragraphs are cut near the multiples of the piece length that have no paragraph break
// in the piece length before them. So a cut is found by looking at its surroundings only, and is
// the same from wherever one comes.
bool HasCut(const TextSource& text, TextPos grid) {
    return grid > 0 && grid < text.Length() && text.LastBreak(grid - pieceLength, grid + 1) < 0;
}

// After the last space before the grid position, else where no character is torn from its marks.
TextPos CutBefore(const TextSource& text, TextPos grid) {
    const std::u16string before = text.Range(grid - spaceSearch, grid + 1);
    const std::size_t space = before.rfind(u' ', spaceSearch - 1);
    if (space != std::u16string::npos) return grid - spaceSearch + static_cast<TextPos>(space) + 1;
    TextPos cut = spaceSearch;
    while (cut > 0 && StaysWithPrevious(before[static_cast<std::size_t>(cut)]))
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

const TableRow* RowAt(const std::vector<TableRow>& rows, TextPos position) {
    auto row = std::upper_bound(rows.begin(), rows.end(), position,
                                [](TextPos at, const TableRow& r) { return at < r.start; });
    if (row == rows.begin()) return nullptr;
    --row;
    const bool shown = position < row->end && !row->cells.empty();
    return shown && row->end - row->start <= longestRow ? &*row : nullptr;
}
} // namespace

TextBlock BlockAt(const TextSource& text, const std::vector<TableRow>& rows, TextPos position) {
    const TextPos size = text.Length();
    if (position >= size) {
        if (size == 0 || text.UnitAt(size - 1) == u'\n') return {size, size, nullptr};
        position = size - 1;
    }
    if (const TableRow* row = RowAt(rows, position)) return {row->start, row->end, row};
    return {PieceStart(text, position), PieceEnd(text, position), nullptr};
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
