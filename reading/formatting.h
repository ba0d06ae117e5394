// How the text view shows the whole text: every setting holds for all of it.
#pragma once

#include "common/menu_model.h"
#include "platform/text_view.h"
#include "platform/window.h"

// What is in force, between record and view.
struct TextFormat {
    ViewFont font;
    Color textColor = 0; // also while a file's own colours show
};

constexpr Color defaultTextColor = 0x000000, defaultBackColor = 0xFFFFFF;

// Whether caret and top line stay where they are, or the caller scrolls afterwards.
enum class Scrolling { Restore, Leave };

void ApplyFont(TextView&, const ViewFont&, Scrolling);
// With `keepFileColors` the text keeps the colours that its file gives it.
void ApplyTextColor(TextView&, Color, bool keepFileColors, Scrolling);
// `index` as the items of the alignment menu, where it becomes the checked one; others count as 0.
void ApplyAlignment(TextView&, MenuArray& alignItems, int index, Scrolling);
// The item is checked while lines are wrapped.
void SetWordWrap(TextView&, const Window&, MenuItem& wrapItem, bool wrap);
// Likewise while wrapped lines are no longer than the eye follows well.
void SetColumn(TextView&, MenuItem& columnItem, bool on);
// And while lines that a plain text broke for their width alone flow on.
void SetUnwrapped(TextView&, MenuItem& unwrapItem, bool on);
