// A page from its file, with what is needed to lay it out.
#pragma once

#include "formats/css/css_page_styles.h"
#include "formats/html/html_reader.h"
#include "view/page/page_flow.h"
#include "view/page/page_text.h"

#include <QString>

#include <filesystem>

// Every box of it is placed, also where nothing of it would be seen.
struct LaidOutPage {
    LaidOutPage(const std::filesystem::path& file, LineLayout& system, double width);

    QString PicturePath(const PageBox& picture) const; // empty without one

    std::filesystem::path folder;
    HtmlTree tree;
    CssMedium medium;
    std::vector<CssSheet> sheets;
    CssPageStyles styles;
    PageBoxes boxes;
    PageFonts fonts;
    PageText text;
    PageLayouter layouter;
    PageFlow flow;
};
