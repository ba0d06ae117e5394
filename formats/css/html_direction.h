// The `dir` attribute, with `auto`: the direction of the first letter that has one.
#pragma once

#include "formats/css/css_sheet.h"
#include "formats/html/html_tree.h"

void ReadDirectionHints(const HtmlTree& tree, HtmlNodeId element, CssBlock& block);
