// Boxes that stand beside text far before their own, such as a list of links that a page has at
// its end and its style at its side.
#pragma once

#include "view/page/page_box.h"

#include <vector>

struct SideBox {
    enum class Kind : std::uint8_t {
        Positioned,
        Item,  // of a flex or grid container, beside one that is too long to be laid out with it
        Float, // after another float that is as long
    };
    Kind kind = Kind::Positioned;
    PageBoxId box = noPageBox;
    PageBoxId leaf = noPageBox;      // that it is written in, of the page's flow
    PageBoxId container = noPageBox; // whose top it is placed relative to; noPageBox for the page's
    int height = 0;                  // about so many lines
};

// The first ones in a page that stand somewhere below the top of a box of the flow. Of each,
// the top of that box may have to be laid out before its own text is: there are at most some.
std::vector<SideBox> SideBoxesOf(const PageBoxes& boxes);

// An item of a flex or grid container, both too long to be laid out as one: it is of the flow.
bool IsLongItem(const PageBoxes& boxes, PageBoxId id);
