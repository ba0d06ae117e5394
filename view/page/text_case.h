// The letters of a text as `text-transform` shows them (CSS Text 3, 2.1), unit by unit.
#pragma once

#include "formats/css/css_style_values.h"

#include <string_view>

// `before` is what is shown before the unit in its block.
char16_t TransformedUnit(char16_t unit, CssTextTransform transform, std::u16string_view before);
