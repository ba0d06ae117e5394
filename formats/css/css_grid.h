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

// The columns or the rows that a page writes, and the names of lines between them.
struct CssGridTracks {
    std::vector<CssGridTrack> tracks;
    // Of `tracks`: those that are there as often as they fit. None in most grids.
    std::uint32_t repeatStart = 0, repeatEnd = 0;
    bool collapsesEmpty = false; // of the repeated: auto-fit
    std::vector<CssGridLine> lines;

    bool empty() const { return tracks.empty(); }
    bool Repeats() const { return repeatEnd > repeatStart; }
    std::uint32_t RepeatedTracks() const { return repeatEnd - repeatStart; }
};

struct CssGridArea {
    std::u16string name;
    std::int32_t column = 0, row = 0, columnEnd = 0, rowEnd = 0; // lines, the first one is 0
};
using CssGridAreas = std::vector<CssGridArea>;

// Of an area or a line, that an item goes to.
struct CssGridName {
    std::u16string name;
    bool empty() const { return name.empty(); }
};

// Texts that are equal for equal ones.
std::u16string CssKeyOf(const CssGridTracks& tracks);
std::u16string CssKeyOf(const CssGridAreas& areas);
inline const std::u16string& CssKeyOf(const CssGridName& name) {
    return name.name;
}
