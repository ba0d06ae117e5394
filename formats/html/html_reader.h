// Reads HTML into its tree by the rules of WHATWG's HTML Standard, with scripting off: any text is
// a page. XHTML is read as HTML.
#pragma once

#include "formats/html/html_tree.h"

#include <string>

// Line ends are unified in the text given; there is no byte-order mark.
HtmlTree ReadHtml(std::u16string text);
