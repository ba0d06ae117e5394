// What stands in the middle of a view that has no text.
#pragma once

#include "platform/line_layout.h"
#include "platform/text_view.h"
#include "view/geometry.h"
#include "view/view_style.h"

struct PlaceholderPaint {
    Size room;
    int margin = 0; // on both sides
    Color background = 0;
    Rect clip;
};

// Draws the text, and below it the link underlined; returns what the link covers, an empty
// rectangle where there is none.
Rect PaintPlaceholder(Canvas&, LineLayout&, const Placeholder&, const SystemStyle&,
                      const PlaceholderPaint&);
