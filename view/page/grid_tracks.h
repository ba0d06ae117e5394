// How wide the columns of a grid are, or how high its rows (CSS Grid 1, 11), in device pixels.
#pragma once

#include "view/page/grid_placement.h"
#include "view/page/width_extent.h"

struct GridTrackSize {
    double base = 0, limit = 0; // of those without shares
    double shares = 0;          // in what is left
    // What the content of items says: to `base` the narrowest or the widest, and to `limit`.
    bool minByContent = false, minIsWidest = false;
    bool minIsAuto = false; // by content, but for items that may be narrower
    bool maxByContent = false, maxIsNarrowest = false;
    double maxLimit = 1e9; // by fit-content()
    bool stretches = false;
};

// A percentage is of `whole`; where that is negative it is `auto`.
GridTrackSize GridTrackSizeOf(const CssGridTrack& track, double whole, double scale);

struct GridContent {
    GridSpan span;
    WidthExtent extent; // of the margin box
    double autoMin = 0; // the narrowest where the track leaves that to the item
};

// `room` is for all tracks with their gaps; where it is negative, as much as they ask for.
std::vector<double> GridTrackSizes(std::vector<GridTrackSize> tracks,
                                   const std::vector<GridContent>& items, double room, double gap);
