// The texts of all style sheets of a page: those in it, those that it links to, and what these
// import.
#pragma once

#include "formats/css/css_page_sheets.h"

#include <functional>

// The bytes after an address as a page could have it, relative to that page; "" where nothing may
// be read. Who reads decides what may be: nothing here is a path.
using CssFileReader = std::function<std::string(std::u16string_view address)>;

// In the order in which they hold: what a sheet imports stands before it.
std::vector<std::u16string> LoadCssTexts(const HtmlTree& tree, const CssMedium& medium,
                                         int pageCodePage, const CssFileReader& read);

// An address in the file at another one, as the page would write it; "" where that is not possible.
std::u16string AddressFrom(std::u16string_view file, std::u16string_view address);
