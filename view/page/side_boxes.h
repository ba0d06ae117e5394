// Boxes that stand beside text far before their own, such as a list of links that a page has at
// its end and its style at its side.
#pragma once

#include "view/page/page_box.h"

#include <vector>

struct SideBox {
    PageBoxId box = noPageBox;
    PageBoxId lines = noPageBox;     // that it is written in, of the page's flow
    PageBoxId container = noPageBox; // whose top it is told from; noPageBox for the page's
    int height = 0;                  // about so many lines
};

// The first ones in a page that say where below the top of a box of the flow they stand. Of each,
// the top of that box may have to be laid out before its own text is: there are at most some.
std::vector<SideBox> SideBoxesOf(const PageBoxes& boxes);
