// The style sheets that a page asks for, in its order.
#pragma once

#include "formats/css/css_reading.h"
#include "formats/css/css_sheet.h"
#include "formats/html/html_tree.h"

#include <string>
#include <vector>

struct CssPageSheet {
    HtmlNodeId node = noHtmlNode; // `style` or `link`
    std::u16string address;       // of a `link`, as it is written; whoever loads it decides
    std::u16string text;          // of a `style`
};

// Those that apply on this medium. Of sheets with titles, which readers choose between, only those
// with the first title.
std::vector<CssPageSheet> FindCssSheets(const HtmlTree& tree, const CssMedium& medium);

// A sheet's bytes: its mark, else its @charset, else the page's own code page.
std::u16string DecodeCss(std::string_view bytes, int pageCodePage);
