// Where a key takes the caret. Positions in, positions out; nothing scrolls or selects here.
#pragma once

#include "platform/qt/text_view/layout/text_layouts.h"

// One character or word as it is seen: to the left is forward in a right-to-left paragraph.
TextPos CaretLeft(TextLayouts& layouts, TextPos position);
TextPos CaretRight(TextLayouts& layouts, TextPos position);
TextPos WordLeft(TextLayouts& layouts, TextPos position);
TextPos WordRight(TextLayouts& layouts, TextPos position);

// To the line above or below in the same table cell, else in the row or block above or below, near
// `x`.
TextPos CaretUp(TextLayouts& layouts, TextPos position, int x);
TextPos CaretDown(TextLayouts& layouts, TextPos position, int x);

TextPos CaretHome(TextLayouts& layouts, TextPos position);
TextPos CaretEnd(TextLayouts& layouts, TextPos position); // of the line

struct TextSpan {
    TextPos start = 0, end = 0;
};
TextSpan WordAround(TextLayouts& layouts, TextPos position);
TextSpan ParagraphAround(TextLayouts& layouts, TextPos position); // with its break
