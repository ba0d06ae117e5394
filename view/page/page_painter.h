// Paints laid-out boxes of a page.
#pragma once

#include "view/geometry.h"
#include "view/page/page_fragment.h"
#include "view/view_style.h"

#include <functional>

struct PagePaint {
    const PageBoxes& boxes;
    double scale = 1; // device pixels of one of CSS
    Color text = 0;   // of what has no colour of its own
    Rect clip;        // nothing is drawn outside
    // The picture of a box; false if it cannot be drawn.
    std::function<bool(Canvas&, PageBoxId, const Rect&)> drawPicture;
    // What is selected of a content.
    std::function<UnitSpan(const InlineContent&)> selectedUnits;
    SelectionColors selection;
    bool backgrounds = true; // of boxes
};

// With the fragment's top left corner there, in the canvas's pixels.
void PaintFragment(Canvas& canvas, const PagePaint& paint, const PageFragment& fragment,
                   double left, double top);
