#include "platform/qt/text_view/text_blocks.h"

#include <QChar>

#include <algorithm>
#include <string_view>

namespace {
constexpr TextPos spaceSearch = 256; // how far back from a cut a space is looked for

TextPos Size(const Document& document) {
    return static_cast<TextPos>(document.text.size());
}

// The part of the text between two positions, each moved into the text.
std::u16string_view Part(const Document& document, TextPos from, TextPos to) {
    from = std::max(from, 0);
    to = std::min(to, Size(document));
    return std::u16string_view(document.text).substr(from, std::max(0, to - from));
}

bool StaysWithPrevious(char16_t unit) {
    return QChar::isLowSurrogate(unit) || QChar::isMark(unit) || unit == u'\u200D';
}

// Over-long paragraphs are cut near the multiples of the piece length that have no paragraph break
// in the piece length before them. So a cut is found by looking at its surroundings only, and is
// the same from wherever one comes.
bool HasCut(const Document& document, TextPos grid) {
    return grid > 0 && grid < Size(document) &&
           Part(document, grid - pieceLength, grid + 1).rfind(u'\n') == std::u16string_view::npos;
}

// After the last space before the grid position, else where no character is torn from its marks.
TextPos CutBefore(const Document& document, TextPos grid) {
    const auto space = Part(document, grid - spaceSearch, grid).rfind(u' ');
    if (space != std::u16string_view::npos)
        return grid - spaceSearch + static_cast<TextPos>(space) + 1;
    TextPos cut = grid;
    while (cut > grid - spaceSearch && StaysWithPrevious(document.text[cut]))
        --cut;
    return cut;
}

TextPos PieceStart(const Document& document, TextPos position) {
    const TextPos from = std::max(0, position - 2 * pieceLength - spaceSearch);
    const auto lineBreak = Part(document, from, position).rfind(u'\n');
    const TextPos start =
        lineBreak == std::u16string_view::npos ? from : from + static_cast<TextPos>(lineBreak) + 1;
    const TextPos index = position / pieceLength;
    for (TextPos i = index + 1; i >= index - 1; --i) {
        const TextPos grid = i * pieceLength;
        if (!HasCut(document, grid)) continue;
        const TextPos cut = CutBefore(document, grid);
        if (cut <= position) return std::max(start, cut);
    }
    return start;
}

TextPos PieceEnd(const Document& document, TextPos position) {
    const auto lineBreak = Part(document, position, position + 2 * pieceLength + 1).find(u'\n');
    const TextPos end = lineBreak == std::u16string_view::npos
                            ? Size(document)
                            : position + static_cast<TextPos>(lineBreak) + 1;
    const TextPos index = position / pieceLength;
    for (TextPos i = index + 1; i <= index + 2; ++i) {
        const TextPos grid = i * pieceLength;
        if (!HasCut(document, grid)) continue;
        const TextPos cut = CutBefore(document, grid);
        if (cut > position) return std::min(end, cut);
    }
    return end;
}

const TableRow* RowAt(const Document& document, TextPos position) {
    auto row = std::upper_bound(document.rows.begin(), document.rows.end(), position,
                                [](TextPos at, const TableRow& r) { return at < r.start; });
    if (row == document.rows.begin()) return nullptr;
    --row;
    const bool shown = position < row->end && !row->cells.empty();
    return shown && row->end - row->start <= longestRow ? &*row : nullptr;
}
} // namespace

TextBlock BlockAt(const Document& document, TextPos position) {
    const TextPos size = Size(document);
    if (position >= size) {
        if (size == 0 || document.text.back() == u'\n') return {size, size, nullptr};
        position = size - 1;
    }
    if (const TableRow* row = RowAt(document, position)) return {row->start, row->end, row};
    return {PieceStart(document, position), PieceEnd(document, position), nullptr};
}

bool IsLastBlock(const Document& document, const TextBlock& block) {
    return block.end == Size(document) &&
           (block.start == block.end || !EndsParagraph(document, block));
}

bool StartsParagraph(const Document& document, const TextBlock& block) {
    return block.start == 0 || document.text[block.start - 1] == u'\n';
}

bool EndsParagraph(const Document& document, const TextBlock& block) {
    return block.end > block.start && document.text[block.end - 1] == u'\n';
}
