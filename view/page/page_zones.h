// A page in stretches that can be laid out one without the other.
#pragma once

#include "view/page/page_box.h"
#include "view/page/page_weights.h"

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
// such a leaf, a zone ends below its floats.
std::vector<PageZone> ZonesOf(const PageBoxes& boxes);
