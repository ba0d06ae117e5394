// The look of the text view: every setting holds for the whole text.
#pragma once

#include "common/geometry.h"

struct MainForm;

constexpr Color defaultTextColor = 0x000000, defaultBackColor = 0xFFFFFF;

// With `noRestore` the caller scrolls afterwards; else caret and top line stay where they are.
void ApplyFont(MainForm&, bool noRestore); // the form's view font
void ApplyTextColor(MainForm&, Color, bool noRestore);
// `index` as the items of the alignment menu; others count as 0.
void ApplyAlignment(MainForm&, int index, bool noRestore);
void SetWordWrap(MainForm&, bool wrap);
