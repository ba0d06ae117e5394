// Lays out a table of a page (CSS 2.1, 17.5 and 17.6).
#pragma once

#include "view/page/page_layouter.h"

// With its captions and without its margins; at most as wide as `containing` leaves room, unless
// its words are.
PageFragmentPtr LayOutTable(PageLayouter& layouter, PageBoxId table, double containing);
// Of its content, without its borders.
WidthExtent TableExtentOf(PageLayouter& layouter, PageBoxId table);
