// All style sheets of a page: those in it, those in files of its book's folder, and what these
// import.
#pragma once

#include "formats/css/css_page_sheets.h"
#include "formats/css/css_sheet.h"

#include <functional>
#include <optional>

// Reads a file by its path from the folder that the page is in, with "/" between its parts and
// without ".."; nothing if there is none that may be read. No other file is asked for.
using CssFileReader = std::function<std::optional<std::string>(const std::u16string& path)>;

struct CssLoading {
    CssReading reading;
    int pageCodePage = 65001; // of sheets that do not say their own
    CssFileReader readFile;   // null: no files
};

// In the order in which they hold: what a sheet imports stands before it.
std::vector<CssSheet> LoadCssSheets(const HtmlTree& tree, const CssLoading& loading);

// The path of what an address leads to from the folder of the file at `from`, itself from the
// page's folder; "" when it leads elsewhere, to another computer or above the page's folder.
std::u16string PathInFolder(std::u16string_view address, std::u16string_view from);
