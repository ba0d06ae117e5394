// Reads style sheets and `style` attributes by css-syntax-3, with its recovery from errors: any
// text is a sheet.
#pragma once

#include "formats/css/css_sheet.h"

#include <string_view>

// What the rules are for.
struct CssMedium {
    float viewportWidth = 800, viewportHeight = 600; // CSS pixels
    float fontSize = 16;                             // that of `medium`
    bool isPrint = false;                            // rules for paper apply, and none for screens
};

struct CssReading {
    CssMedium medium;
    bool quirks = false;    // of the page: lengths without units, colours without "#"
    bool userAgent = false; // the default sheet, which has values of its own
};

CssSheet ReadCss(std::u16string_view text, const CssReading& reading = {});
CssBlock ReadCssBlock(std::u16string_view text, const CssReading& reading = {}); // of an attribute
