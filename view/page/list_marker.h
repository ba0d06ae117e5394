// What stands before an item of a list (CSS Counter Styles 3, 6 and 7).
#pragma once

#include "formats/css/css_style.h"

#include <string>

// "1." or a bullet; "" for none. Numbers that a system of letters does not have are decimal.
std::u16string CounterText(CssListStyleType type, int number); // without what stands after it
std::u16string ListMarker(CssListStyleType type, int number);
