// Text units for screen readers.
#pragma once

#include "view/caret_moves.h"

#include <QString>

enum class TextUnit { Character, Word, Sentence, Line, Paragraph };

// Units of one kind tile the text: each ends where the next one starts, so a word includes the
// spaces behind it and a paragraph its break. Lines are those on the screen. Table cells have
// paragraphs of their own, and an over-long paragraph is split as it is laid out. At the text's end
// it is the last unit, or an empty one behind a final break; for characters always an empty one.
TextSpan UnitAt(TextLayouts& layouts, TextPos position, TextUnit unit);

// As many units as the text has there. Line breaks become line feeds and ends of cells tabs.
QString AccessibleTextOf(const TextSource& text, bool plain, TextSpan span);
