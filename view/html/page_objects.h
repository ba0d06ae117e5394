// The headings, links, lists, tables and pictures of a page, for assistive technology.
#pragma once

#include "formats/css/css_page_styles.h"
#include "view/html/loaded_page.h"
#include "view/reading_object.h"

// What its styles do not display is left out, and pictures that say that they show nothing.
ReadingObjects PageObjects(const LoadedPage& page, const CssPageStyles& styles);

// The link that a node is in, or is; noHtmlNode for none.
HtmlNodeId LinkAround(const HtmlTree& tree, HtmlNodeId node);
