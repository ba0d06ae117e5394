// What the reading of style sheets depends on.
#pragma once

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
