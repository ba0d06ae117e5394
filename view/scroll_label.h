// The label beside the thumb of the scroll bar: how far the text is scrolled, and the heading
// above.
#pragma once

#include "platform/line_layout.h"
#include "view/geometry.h"
#include "view/view_style.h"

#include <string>

struct ScrollLabel {
    int percent = 0;
    std::u16string heading; // "" for none
    double share = 0;       // where the thumb is: 0 at the top, 1 at the bottom
};

// "12 %", or "12 % \u2013 CHAPTER IV".
std::u16string TextOf(const ScrollLabel& label);

// At the right edge of a view of that size. Of a long heading what fits in half the view.
void PaintScrollLabel(Canvas& canvas, LineLayout& lines, const SystemStyle& system,
                      const ScrollLabel& label, Size view);
