// A page from its source to its boxes, on the headless line layout: a letter of 16 pixels is 8
// wide, and its line 16 high.
#pragma once

#include "formats/css/css_page_sheets.h"
#include "formats/css/css_page_styles.h"
#include "formats/html/html_reader.h"
#include "platform/none/none_line_layout.h"
#include "view/page/page_box_builder.h"
#include "view/page/page_flow.h"
#include "view/page/page_text.h"

#include <string>

struct PageSample {
    HtmlTree tree;
    std::vector<CssSheet> sheets; // of its `style` elements
    CssPageStyles styles;
    PageBoxes boxes;
    NoneLineLayout system;
    PageFonts fonts;
    PageText text;
    PageLayouter layouter;
    PageFlow flow;

    // In quirks mode margins of the first paragraphs go, so there is a doctype.
    explicit PageSample(const std::u16string& body, const PageLimits& limits = {},
                        const std::u16string& start = u"<!DOCTYPE html><body style='margin:0'>")
        : tree(ReadHtml(start + body)), sheets(SheetsOf(tree)), styles(StylePage(tree, sheets, {})),
          boxes(BoxesOf(tree, styles, limits)), fonts(system, styles, 1, 96),
          text(tree, styles, boxes, fonts), layouter(boxes, text, system, 1), flow(layouter) {}

    // Boxes as "Block(Lines[one two] Table(...))".
    std::string Boxes() { return BoxText(rootPageBox); }
    // Lines in pixels, as "0,16 one two|0,32 three".
    std::string Lines(double width);

  private:
    static std::vector<CssSheet> SheetsOf(const HtmlTree& tree);
    std::string BoxText(PageBoxId id);
    void AddLines(const PageFragment& fragment, double left, double top, std::string& lines);
};
