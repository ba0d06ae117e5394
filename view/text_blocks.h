// The blocks in which a text is laid out: a paragraph, a table row, or a piece of an over-long
// paragraph. Rows that share merged cells are one block.
//
// A block is found from the text around a position, without an index: nothing has to be built when
// a book is opened, and a gigabyte of empty lines takes no memory.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"

#include <span>

struct TextBlock {
    TextPos start = 0, end = 0;     // `end` is after the paragraph break
    std::span<const TableRow> rows; // empty for a paragraph; refers to the document
};

// Longer paragraphs are cut into pieces of at most twice this length. A piece is laid out like a
// paragraph: its last line may be short and is not justified.
constexpr TextPos pieceLength = 16 * 1024;

// Longer texts are truncated: positions, and sums of them, must fit in 32 bits.
constexpr TextPos maxTextLength = 0x7FFFFFFF - 4 * pieceLength;

// A longer row is laid out as paragraphs, cell by cell. If rows that share cells are longer or more
// than this together, each is a block of its own.
constexpr TextPos maxRowLength = 32 * 1024;
constexpr std::size_t maxJoinedRows = 256;

// The block that contains `position`, which must be within the text or at its end. After a final
// paragraph break (and in an empty text) there is an empty block.
TextBlock BlockAt(const TextSource& text, const std::vector<TableRow>& rows, TextPos position);

// The block to lay out: that of `BlockAt`, or a part of it if it is too costly. A dense text is cut
// into 2 to 4 K units; the cells of a row with thousands of cells or runs are placed below each
// other.
TextBlock LayoutBlockAt(const TextSource& text, const Document& document, TextPos position);

bool IsLastBlock(const TextSource& text, const TextBlock& block);

// Whether the block starts or ends with its paragraph, which a piece of an over-long one need not.
bool StartsParagraph(const TextSource& text, const TextBlock& block);
bool EndsParagraph(const TextSource& text, const TextBlock& block);
