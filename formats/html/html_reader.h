// Reads HTML into its tree by the rules of WHATWG's HTML Standard, with scripting off: any text is
// a page. XHTML is read as HTML, as browsers do with files named so.
#pragma once

#include "formats/html/html_tree.h"

#include <string>
#include <string_view>

// Line ends are unified in the text given; there is no byte-order mark.
HtmlTree ReadHtml(std::u16string text);

struct HtmlFile {
    HtmlTree tree;
    int codePage = 0; // of DecodeHtml
};
// The bytes are given up as soon as they are decoded: a page may have a hundred megabytes of
// pictures in its text.
HtmlFile ReadHtmlFile(std::string bytes, int bookCodePage, int systemCodePage);
