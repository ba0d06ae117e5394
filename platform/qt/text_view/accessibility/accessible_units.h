// The stretches of a text that a screen reader asks for: what is said between two keys.
#pragma once

#include "platform/qt/text_view/caret_moves.h"

#include <QString>

enum class TextUnit { Character, Word, Sentence, Line, Paragraph };

// Those of one kind tile the text: each goes up to where the next one begins, so a word has the
// blanks behind it and a paragraph its break. Lines are those of the screen. A cell of a table has
// paragraphs of its own, and an over-long paragraph is told in the pieces that it is laid out in.
// At the text's end it is the last stretch, but an empty one behind a last break; of characters it
// is always the empty one.
TextSpan UnitAt(TextLayouts& layouts, TextPos position, TextUnit unit);

// As many units as the text has there, with what stands for a break or for the end of a cell as a
// listener knows it: a line feed, a tab.
QString ToldText(const LayoutContext& context, TextSpan span);
