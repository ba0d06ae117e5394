// The column of a text: how wide its paragraphs are in a view that is wider than the eye likes.
#pragma once

#include "view/block_layout.h"

// The width in pixels of a line of so many average letters, in the font of most of the text; and of
// the lines of a plain text that was broken for a wider page, which would be broken twice.
int ColumnWidth(const LayoutContext& context, int letters);

// Where a block is put. Pixels, from the left edge of the view's room.
struct BlockPlace {
    int left = 0, width = 1;
};

// In the middle of the room: the column, but for pictures and tables that need more.
BlockPlace PlaceOfParagraph(const LayoutContext& context, const ParagraphPart& part);
BlockPlace PlaceOfRows(const LayoutContext& context, std::span<const TableRow> rows);
