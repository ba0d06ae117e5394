// Caret movement by keys: positions in, positions out, without scrolling or selecting.
#pragma once

#include "view/text_layouts.h"

// Visual movement by a character or word: left is forward in a right-to-left paragraph.
TextPos CaretLeft(TextLayouts& layouts, TextPos position);
TextPos CaretRight(TextLayouts& layouts, TextPos position);
TextPos WordLeft(TextLayouts& layouts, TextPos position);
TextPos WordRight(TextLayouts& layouts, TextPos position);

// To the next line in the same table cell, or else to the next row or block, near `x`.
TextPos CaretUp(TextLayouts& layouts, TextPos position, int x);
TextPos CaretDown(TextLayouts& layouts, TextPos position, int x);

// To where the paragraph begins, or the one before; to where the next one begins, or the end.
TextPos ParagraphUp(TextLayouts& layouts, TextPos position);
TextPos ParagraphDown(TextLayouts& layouts, TextPos position);

TextPos CaretHome(TextLayouts& layouts, TextPos position);
TextPos CaretEnd(TextLayouts& layouts, TextPos position); // of the line

struct TextSpan {
    TextPos start = 0, end = 0;
};
TextSpan WordAround(TextLayouts& layouts, TextPos position);
TextSpan ParagraphAround(TextLayouts& layouts, TextPos position); // with its break
