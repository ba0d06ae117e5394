// The style of HTML without any sheet of its author: the HTML Standard's "Rendering" as a sheet,
// with what browsers have beyond it. Made once.
#pragma once

#include "formats/css/css_sheet.h"

const CssSheet& DefaultCssSheet();
const CssSheet& QuirksCssSheet(); // after the default one, on pages in quirks mode
