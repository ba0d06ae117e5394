// Paints backgrounds and borders of boxes.
#pragma once

#include "formats/css/css_style.h"
#include "platform/canvas.h"

struct BoxPaint {
    Canvas& canvas;
    Rect clip;        // nothing is drawn outside
    double scale = 1; // device pixels of one of CSS
    bool backgrounds = true;
};

void FillBox(const BoxPaint& paint, const Rect& box, CssColor color);
// Within the box, on the sides that are shown: a box that continues elsewhere has none there.
// The upper one has a gap there, in pixels of the canvas.
void PaintBorders(const BoxPaint& paint, const CssBoxStyle& style, const Rect& box,
                  const CssSides<bool>& shown = {true, true, true, true}, int gapLeft = 0,
                  int gapRight = 0);
