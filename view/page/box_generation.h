// Which elements of a page make boxes, and whether these stand in lines.
#pragma once

#include "formats/css/css_page_styles.h"
#include "formats/html/html_tree.h"

// Whether an element stands for something that is not shown. What is in it is for programs that
// know it even less.
bool IsNotShown(const HtmlNode& node);
// By its style: not displayed, or cut off to a point that only screen readers come by.
bool IsNotShown(const CssBoxStyle& style);
// Whether what stands before or after what is in an element is a box, and no part of its lines.
inline bool HasOwnBox(CssStyle generated) {
    return generated.box && generated.box->display != CssDisplay::Inline &&
           generated.box->display != CssDisplay::Contents;
}
// A float, a block in a line, or a box out of the flow.
bool IsInLines(const CssBoxStyle& style);
