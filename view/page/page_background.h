// What colour text of a page stands on.
#pragma once

#include "common/geometry.h"
#include "view/page/page_box.h"

// What is less than half opaque is not drawn.
bool IsDrawn(CssColor color);

// That is seen behind what stands in a box; white where the page says nothing.
Color BackgroundOf(const PageBoxes& boxes, PageBoxId box);
