// A block laid out: one paragraph, or the cells of table rows side by side.
#pragma once

#include "platform/qt/text_view/layout/paragraph_layout.h"
#include "platform/qt/text_view/layout/text_blocks.h"

#include <QRect>

#include <vector>

struct CellLayout {
    QRect box; // in the block
    const TableCell* cell = nullptr;
    const TableCell* lowest = nullptr; // of those merged into it; usually itself
    bool hidden = false;               // merged into the cell above
};

struct BlockLayout {
    TextBlock block;
    int height = 0, width = 0;
    std::vector<CellLayout> cells;           // none but in table rows
    std::vector<ParagraphLayout> paragraphs; // never empty, by ascending start
};

struct LineRef {
    std::size_t paragraph = 0;
    int line = 0;
    bool operator==(const LineRef&) const = default;
};

BlockLayout LayOutBlock(const LayoutContext& context, const TextBlock& block);

LineRef LineOf(const BlockLayout& layout, TextPos position); // the nearest, for a hidden character
TextPos LineStart(const BlockLayout& layout, LineRef line);
TextPos LineEnd(const BlockLayout& layout, LineRef line); // without the paragraph break

// The lines of a block tile its height, so that scrolling by lines leaves no part out: the first
// line of a block or a cell begins at its top. In a table row they overlap where cells are side by
// side.
int LineTop(const BlockLayout& layout, LineRef line);
int LineBottom(const BlockLayout& layout, LineRef line);
int CellBottom(const BlockLayout& layout, std::size_t cell);
LineRef LineAtHeight(const BlockLayout& layout, int y); // the lowest line that begins at or above y

// The caret position nearest to a point, or the character there; and where the caret at a position
// and the character behind it are drawn.
using PointMeans = QTextLine::CursorPosition;
TextPos PositionAt(const BlockLayout& layout, QPoint point,
                   PointMeans means = QTextLine::CursorBetweenCharacters);
TextPos PositionInLine(const BlockLayout& layout, LineRef line, int x,
                       PointMeans means = QTextLine::CursorBetweenCharacters);
int CaretX(const BlockLayout& layout, LineRef line, TextPos position); // of a place in the line
QRect CaretBox(const BlockLayout& layout, TextPos position);
QRect CharacterBox(const BlockLayout& layout, TextPos position);
