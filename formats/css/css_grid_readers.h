// What the properties of grids have in common when they are read. Each reads up to a slash or the
// end, and is false for what is wrong.
#pragma once

#include "formats/css/css_shorthands.h"

bool ReadCssGridTrack(CssShorthandReader& reader, CssGridTrack& track);
// [name name], at that line.
bool ReadCssGridLineNames(CssTokenStream& tokens, std::size_t line,
                          std::vector<CssGridLine>& lines);
// At least one.
bool ReadCssGridTrackList(CssShorthandReader& reader, CssGridTracks& tracks);
// Strings, one for each row. With `rows` each may have names of lines around it and a track after.
bool ReadCssGridAreaRows(CssShorthandReader& reader, CssGridAreas& areas, CssGridTracks* rows);

// `none` for empty ones.
void AddCssGridTracks(CssShorthandReader& reader, CssProperty property, CssGridTracks tracks);
void AddCssGridAreas(CssShorthandReader& reader, CssProperty property, CssGridAreas areas);

inline bool AtCssGridEnd(CssTokenStream& tokens) {
    return tokens.AtEnd() || tokens.Peek().IsDelim(u'/');
}
