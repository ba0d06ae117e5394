// Pages that would show next to nothing of their text, or all of it in one place, because they wait
// for a script or stand on sheets of their own.
#pragma once

#include "formats/css/css_page_styles.h"

#include <string>

// Units of a page's text that a reader reads.
struct PageTextShares {
    std::size_t all = 0;
    std::size_t hidden = 0;     // by styles
    std::size_t positioned = 0; // in elements that take no room in the flow
};
PageTextShares TextSharesOf(const HtmlTree& tree, const CssPageStyles& styles);

// A style sheet after those of the page that shows what is hidden if that is the larger part, and
// that lays out what is positioned in the flow if that is the larger part; "" for most pages.
std::u16string RepairingSheet(const PageTextShares& shares);
