// The column of a text: how wide its paragraphs are in a view that is wider than the eye likes.
#pragma once

#include "view/paragraph_layout.h"

// Of samples of a plain text the longest lines that were broken for the width of a page.
std::vector<std::u16string> PageLines(const TextSource& text);

// The width in pixels of a line of so many average letters, in the font of most of the text; or of
// the longest of the page's lines, which would be broken twice.
int ColumnWidth(const LayoutContext& context, int letters,
                std::span<const std::u16string> pageLines);

// Where a block is put. Pixels, from the left edge of the view's room.
struct BlockPlace {
    int left = 0, width = 1;
};

// In the middle of the room: the column, but for pictures and tables that need more.
BlockPlace PlaceOfParagraph(const LayoutContext& context, const ParagraphPart& part);
BlockPlace PlaceOfRows(const LayoutContext& context, std::span<const TableRow> rows);
