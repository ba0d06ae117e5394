// The boxes that a flow of blocks puts one below the other, without looking into them.
#pragma once

#include "view/page/page_box.h"

// Whether a box in the flow is laid out by itself: floats and margins do not go through it.
bool StandsAlone(const PageBox& box);
// Or is one of lines, or has nothing in it.
bool IsFlowLeaf(const PageBoxes& boxes, PageBoxId id);
