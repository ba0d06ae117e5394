// A laid-out block: one paragraph, or the cells of table rows.
#pragma once

#include "view/paragraph_layout.h"
#include "view/text_blocks.h"

#include <vector>

struct CellLayout {
    Rect box; // relative to the block
    const TableCell* cell = nullptr;
    const TableCell* lowest = nullptr; // the last of the merged cells; usually itself
    bool hidden = false;               // merged with the cell above
};

struct BlockLayout {
    TextBlock block;
    int height = 0, width = 0;
    std::vector<CellLayout> cells;           // of table rows only
    std::vector<ParagraphLayout> paragraphs; // never empty, by ascending start
};

struct LineRef {
    std::size_t paragraph = 0;
    int line = 0;
    bool operator==(const LineRef&) const = default;
};

BlockLayout LayOutBlock(const LayoutContext& context, const TextBlock& block);
BlockLayout LayOutRows(const LayoutContext& context, const TextBlock& block); // of a block of rows

LineRef LineOf(const BlockLayout& layout,
               TextPos position); // the nearest one, for a hidden character
TextPos LineStart(const BlockLayout& layout, LineRef line);
TextPos LineEnd(const BlockLayout& layout, LineRef line); // without the paragraph break

// Lines tile the height of the block, so that scrolling by lines skips nothing: the first line of a
// block or cell starts at its top. In a table row lines of adjacent cells overlap.
int LineTop(const BlockLayout& layout, LineRef line);
int LineBottom(const BlockLayout& layout, LineRef line);
int CellBottom(const BlockLayout& layout, std::size_t cell);
LineRef LineAtHeight(const BlockLayout& layout, int y); // the lowest line that starts at or above y

// What is found at a point: the nearest caret position, or the character.
enum class HitTest { Caret, Character };
TextPos PositionAt(const BlockLayout& layout, Point point, HitTest means = HitTest::Caret);
TextPos PositionInLine(const BlockLayout& layout, LineRef line, int x,
                       HitTest means = HitTest::Caret);
int CaretX(const BlockLayout& layout, LineRef line,
           TextPos position); // the position must be in the line
Rect CaretBox(const BlockLayout& layout, TextPos position);
Rect CharacterBox(const BlockLayout& layout, TextPos position);
