// Reads style sheets and `style` attributes by css-syntax-3, with its recovery from errors: any
// text is a sheet.
#pragma once

#include "formats/css/css_reading.h"
#include "formats/css/css_sheet.h"

#include <string_view>

CssSheet ReadCss(std::u16string_view text, const CssReading& reading = {});
CssBlock ReadCssBlock(std::u16string_view text, const CssReading& reading = {}); // of an attribute
