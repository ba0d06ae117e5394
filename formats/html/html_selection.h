// The source of a part of a page.
#pragma once

#include "formats/html/html_page_text.h"

#include <string>

// What stands between two of the page's characters, in copies of the elements around it, which
// decide what it looks like: well formed, whatever the page's own source was like. "" for nothing.
std::u16string HtmlSourceOf(const HtmlTree& tree, const HtmlCountedText& counted, TextPos start,
                            TextPos end);
