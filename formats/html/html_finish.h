// What is done to a tree when all of it is there.
#pragma once

#include "formats/html/html_tree_writer.h"

// Elements deeper than `maxHtmlDepth` become empty, each before what stood in it.
void LimitHtmlDepth(HtmlTreeWriter& writer);

// A `selectedcontent` in a `select` shows what is in the option that is chosen.
void FillSelectedContent(HtmlTreeWriter& writer);
