// A page in stretches that can be laid out one without the other.
#pragma once

#include "view/page/page_box.h"
#include "view/page/page_weights.h"
#include "view/page/side_boxes.h"

#include <vector>

// From after the zone before up to the end of its last leaf. Ends of blocks after that leaf
// belong to the next zone; those after the last leaf of all to the last one.
struct PageZone {
    PageBoxId lastLeaf = noPageBox;
    PageBoxId end = noPageBox; // after that leaf
    std::uint32_t units = 0;   // of its texts
    PageWeight weight = 0;
    bool endsBelowFloats = false;
};

// There is at least one. A zone ends after a leaf that has a height, and not soon after floats,
// which stand beside what follows: the same zones at all widths. Where a page has too much without
// such a leaf, a zone ends below its floats. Where something stands at the side of the text, as
// much of the text as that is high is in the same zone.
std::vector<PageZone> ZonesOf(const PageBoxes& boxes, const std::vector<SideBox>& sides = {});

// The one in which a box begins.
std::size_t ZoneOf(const std::vector<PageZone>& zones, PageBoxId box);
