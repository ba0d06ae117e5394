// The directions of inline elements as Unicode's controls in their text (CSS Writing Modes 3, 2.4).
#pragma once

#include "formats/css/css_page_styles.h"

#include <string_view>

// Before what is in the element, and after it; "" for most.
std::u16string_view OpeningControls(CssStyle element);
std::u16string_view ClosingControls(CssStyle element);
