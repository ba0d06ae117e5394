// In which columns and rows of a grid each item stands (CSS Grid 1, 8). No two of them share a
// cell: where a page lays one over another, the later one goes further down.
#pragma once

#include "formats/css/css_rare_style.h"

#include <cstddef>
#include <vector>

// Tracks from one up to another.
struct GridSpan {
    std::size_t start = 0, end = 1;
    std::size_t Length() const { return end - start; }
};

struct GridItemPlace {
    GridSpan columns, rows;
};

struct GridPlacement {
    std::vector<GridItemPlace> items; // in their order
    std::size_t columns = 0, rows = 0;
};

// `columns`: of the grid itself, repeated ones as often as they fit; `repeated` more than are
// written.
GridPlacement PlaceGridItems(const CssRareStyle& grid, std::size_t columns, std::size_t repeated,
                             const std::vector<const CssRareStyle*>& items);
