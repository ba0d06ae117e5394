// The names by which pages declare their charset.
#pragma once

#include <string_view>

// The code page of a label of WHATWG's Encoding Standard, in any case and with blanks around; 0 for
// any other. What says UTF-16 in ASCII is UTF-8, as that standard's users do with declarations.
int HtmlLabelCodePage(std::string_view label);
