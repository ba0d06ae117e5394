// Values of the properties of grids: tracks, areas, and the lines between tracks (CSS Grid 1).
#pragma once

#include "formats/css/css_value.h"

#include <cstdint>
#include <string>
#include <vector>

// A column or a row between a smallest and a largest size: a length, a percentage, a number of
// shares in what is left (only the largest), or one of the keywords of widths.
struct CssGridTrack {
    CssValue min, max;
    bool fits = false; // fit-content(): by its content, up to `max`
};

struct CssGridLine {
    std::u16string name;
    std::int32_t line = 0; // the first one is 0
};

struct CssGridArea {
    std::u16string name;
    std::int32_t column = 0, row = 0, columnEnd = 0, rowEnd = 0; // lines, the first one is 0
};

// What is too long for a declaration, of any of the properties.
struct CssGrid {
    std::vector<CssGridTrack> tracks;
    // Of `tracks`: those that are there as often as they fit. None in most grids.
    std::uint32_t repeatStart = 0, repeatEnd = 0;
    bool collapsesEmpty = false; // of the repeated: auto-fit
    std::vector<CssGridLine> lines;
    std::vector<CssGridArea> areas;
    std::u16string name; // of an area or a line, that an item goes to

    bool empty() const { return tracks.empty() && areas.empty() && name.empty(); }
    bool Repeats() const { return repeatEnd > repeatStart; }
};

std::u16string CssKeyOf(const CssGrid& grid); // equal for equal ones
