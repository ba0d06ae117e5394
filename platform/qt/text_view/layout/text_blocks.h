// The blocks that a text is laid out in: a paragraph, a table row, or a piece of an over-long
// paragraph. Rows that share a cell merged from one to the next are one block.
//
// A block is found by looking at the text around a position, never by an index of the whole text,
// so nothing is built when a book is opened and a gigabyte of empty lines costs no memory.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"

#include <span>

struct TextBlock {
    TextPos start = 0, end = 0;     // `end` is past the paragraph break
    std::span<const TableRow> rows; // none for a paragraph; observed in the document
};

// Paragraphs longer than this are cut into pieces of at most twice this length. A piece is laid out
// like a paragraph of its own: its last line may be short and is not justified.
constexpr TextPos pieceLength = 16 * 1024;

// Longer texts are cut off: positions, and what is computed with them, must fit in 32 bits.
constexpr TextPos maxTextLength = 0x7FFFFFFF - 4 * pieceLength;

// A longer row is shown as paragraphs, cell after cell. Rows that share cells and are longer or
// more than this together stand each by itself.
constexpr TextPos maxRowLength = 32 * 1024;
constexpr std::size_t maxJoinedRows = 256;

// The block that holds `position`, which must be in the text or at its end. After a last paragraph
// break (and in an empty text) there is one more block, an empty one.
TextBlock BlockAt(const TextSource& text, const std::vector<TableRow>& rows, TextPos position);

// The block that is laid out at once. Where that of `BlockAt` would be too much work it is a part
// of it: in a dense text of 2 to 4 K units, in a row with thousands of cells or runs its cells one
// below the other.
TextBlock LayoutBlockAt(const TextSource& text, const Document& document, TextPos position);

bool IsLastBlock(const TextSource& text, const TextBlock& block);

// Whether a paragraph starts or ends where the block does: not so inside an over-long one.
bool StartsParagraph(const TextSource& text, const TextBlock& block);
bool EndsParagraph(const TextSource& text, const TextBlock& block);
