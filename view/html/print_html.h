// Prints the page of an HTML book, zone by zone.
#pragma once

#include "view/html/loaded_page.h"
#include "view/html/page_files.h"
#include "view/picture_store.h"
#include "view/print_flow.h"

struct PrintedPage {
    const LoadedPage& page;
    const PageFiles& files;
    const std::vector<std::u16string>& sheets; // texts, of those for paper
    int zoom = 100;                            // per cent
    std::u16string title;
    PageRanges pageRanges;
};

// Letters, pictures and borders, on white. What is wider than the paper makes all of it smaller,
// down to half. `lines` draws on the device's canvas; nothing else may use it and `pictures` until
// then.
PrintEnd PrintHtml(const PrintedPage& page, LineLayout& lines, PictureStore& pictures,
                   PrintDevice& device);
