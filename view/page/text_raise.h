// Where a text stands that is in inline elements: how far above the baseline of its lines (CSS 2.1,
// 10.8.1).
#pragma once

#include "view/page/page_fonts.h"

// By which raised and lowered text stands away from the baseline, of the font's size around it, and
// a pixel of CSS more, as in browsers; fonts say it, but line layout does not tell.
constexpr double Superscript(double fontSize, double pixel) {
    return fontSize / 3 + pixel;
}
constexpr double Subscript(double fontSize, double pixel) {
    return fontSize / 5 + pixel;
}

// Lengths in device pixels.
struct TextPlace {
    double raise = 0;                // for which its line makes room
    double shift = 0;                // upwards as well, for which it does not
    std::optional<Color> background; // that it stands on
};

// Adds what one inline element does, from the innermost one outwards.
void AddOwnPlace(CssStyle element, CssStyle parent, PageFonts& fonts, TextPlace& place);
