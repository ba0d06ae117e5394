// Which columns and rows a grid has, those that are written and those that its items need besides,
// and in which cells the items stand.
#pragma once

#include "view/page/grid_placement.h"
#include "view/page/grid_tracks.h"

// Lengths in device pixels.
struct GridRoom {
    double width = -1; // for all columns with their gaps; negative where it is not known
    double columnGap = 0;
    double scale = 1; // of CSS pixels
};

struct GridCells {
    GridPlacement placement;
    std::size_t repetitions = 1; // of the columns that are there as often as they fit
    bool isStacked = false;      // one item below the other, in place of what is written
};

GridCells GridCellsOf(const CssRareStyle& grid, const GridRoom& room,
                      const std::vector<const CssRareStyle*>& items);
GridCells StackedGridCells(std::size_t items);

std::vector<GridTrackSize> GridColumnsOf(const CssRareStyle& grid, const GridCells& cells,
                                         const GridRoom& room);
// What is written is the least of rows: nothing is cut.
std::vector<GridTrackSize> GridRowsOf(const CssRareStyle& grid, const GridCells& cells,
                                      double scale);
