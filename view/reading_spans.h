// Paragraphs, lines and stretches of one style, as they are read aloud.
#pragma once

#include "view/caret_moves.h"
#include "view/text_layouts.h"

// With its break. A paragraph of a table cell, whose row's own break belongs to the last cell.
TextSpan ReadingParagraphAt(TextLayouts& layouts, TextPos position);
TextSpan ReadingLineAt(TextLayouts& layouts, TextPos position); // up to the next one
TextSpan StyleSpanAt(const LayoutContext& context, TextPos position);
