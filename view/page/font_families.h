// The family that a list of `font-family` means on this system: the first one that is installed
// (CSS Fonts 3, 5.2).
#pragma once

#include "formats/css/css_value.h"
#include "platform/line_layout.h"

// The system's family for serifs where none of the list is there, as in browsers.
std::u16string FamilyOf(const CssFontFamilies& list, LineLayout& system);
