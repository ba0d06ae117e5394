// Reads the properties of grids and their items.
#include "formats/css/css_grid.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_shorthands.h"
#include "formats/css/css_style_values.h"

#include <algorithm>
#include <cmath>

namespace {

using Kind = CssToken::Kind;
using P = CssProperty;

constexpr CssKeyword breadths[] = {
    {u"auto", 0}, {u"min-content", cssMinContent}, {u"max-content", cssMaxContent}};
constexpr CssLonghand breadth{u"", P::GridTemplateColumns, cssLength | cssPercent, breadths};

std::optional<CssValue> ReadBreadth(CssShorthandReader& reader, bool takesShare) {
    const CssToken& token = reader.tokens.Peek();
    if (token.Is(Kind::Dimension) && CssEqual(token.unit, u"fr")) {
        if (!takesShare || token.number < 0) return std::nullopt;
        return CssValue::Number(reader.tokens.Next().number);
    }
    return ReadCssValue(breadth, reader.tokens, reader.reading, reader.block);
}

bool ReadMinMax(CssShorthandReader reader, CssGridTrack& track) {
    const auto min = ReadBreadth(reader, false);
    if (!min || !reader.tokens.Take(Kind::Comma)) return false;
    const auto max = ReadBreadth(reader, true);
    if (!max || !reader.tokens.AtEnd()) return false;
    track = {*min, *max};
    return true;
}

bool ReadTrack(CssShorthandReader& reader, CssGridTrack& track) {
    const CssToken& token = reader.tokens.Peek();
    const bool isMinMax = token.IsFunction(u"minmax");
    if (isMinMax || token.IsFunction(u"fit-content")) {
        reader.tokens.Next();
        CssTokenStream arguments = reader.tokens.Arguments();
        CssShorthandReader within{arguments, reader.reading, reader.block};
        if (isMinMax) return ReadMinMax(within, track);
        const auto most = ReadBreadth(within, false);
        if (!most || most->kind == CssValue::Kind::Keyword) return false;
        track = {CssValue::OfKeyword(0), *most, true};
        return true;
    }
    const auto both = ReadBreadth(reader, true);
    if (!both) return false;
    // What has a share is at least as wide as its content.
    const bool isShare = both->kind == CssValue::Kind::Number;
    track = {isShare ? CssValue::OfKeyword(0) : *both, *both};
    return true;
}

// [name name]
bool ReadLineNames(CssTokenStream& tokens, std::size_t line, std::vector<CssGridLine>& lines) {
    tokens.Next();
    CssTokenStream names = tokens.Arguments();
    while (!names.AtEnd()) {
        const CssToken& name = names.Next();
        if (!name.Is(Kind::Ident)) return false;
        if (lines.size() < maxCssGridLines)
            lines.push_back({std::u16string(name.text), std::int32_t(line)});
    }
    return true;
}

bool ReadTracks(CssShorthandReader& reader, CssGrid& grid, bool isRepeated);

void Repeat(const CssGrid& part, std::size_t times, CssGrid& grid) {
    for (std::size_t i = 0; i < times && grid.tracks.size() < maxCssGridTracks; ++i) {
        for (const CssGridLine& line : part.lines)
            if (grid.lines.size() < maxCssGridLines)
                grid.lines.push_back({line.name, line.line + std::int32_t(grid.tracks.size())});
        grid.tracks.insert(grid.tracks.end(), part.tracks.begin(), part.tracks.end());
    }
}

// A number, or as often as they fit, and tracks.
bool ReadRepeat(CssShorthandReader& reader, CssGrid& grid) {
    reader.tokens.Next();
    CssTokenStream arguments = reader.tokens.Arguments();
    CssShorthandReader within{arguments, reader.reading, reader.block};
    const CssToken times = arguments.Next();
    CssGrid part;
    if (!arguments.Take(Kind::Comma) || !ReadTracks(within, part, true)) return false;
    if (times.Is(Kind::Number) && times.isInteger && times.number >= 1) {
        Repeat(part, std::size_t(times.number), grid);
        return true;
    }
    const bool collapses = times.IsIdent(u"auto-fit");
    if ((!collapses && !times.IsIdent(u"auto-fill")) || grid.Repeats()) return false;
    grid.collapsesEmpty = collapses;
    grid.repeatStart = std::uint32_t(grid.tracks.size());
    Repeat(part, 1, grid);
    grid.repeatEnd = std::uint32_t(grid.tracks.size());
    return true;
}

// Up to a slash or the end. At least one.
bool ReadTracks(CssShorthandReader& reader, CssGrid& grid, bool isRepeated) {
    while (!reader.tokens.AtEnd() && !reader.tokens.Peek().IsDelim(u'/')) {
        const CssToken& token = reader.tokens.Peek();
        CssGridTrack track;
        if (token.Is(Kind::OpenSquare)) {
            if (!ReadLineNames(reader.tokens, grid.tracks.size(), grid.lines)) return false;
        } else if (token.IsFunction(u"repeat")) {
            if (isRepeated || !ReadRepeat(reader, grid)) return false;
        } else if (!ReadTrack(reader, track)) {
            return false;
        } else if (grid.tracks.size() < maxCssGridTracks) {
            grid.tracks.push_back(track);
        }
    }
    return !grid.tracks.empty();
}

void Add(CssShorthandReader& reader, P property, CssGrid grid) {
    reader.Add(property, CssValue::OfIndex(CssValue::Kind::Grid, reader.block.grids.size()));
    reader.block.grids.push_back(std::move(grid));
}

// `none` for an empty one.
void AddGiven(CssShorthandReader& reader, P property, CssGrid grid) {
    if (grid.empty())
        reader.Add(property, CssValue::OfKeyword(0));
    else
        Add(reader, property, std::move(grid));
}

// A row of areas: names, and dots for cells of none. Each area is a rectangle.
bool AddAreas(std::u16string_view row, std::size_t number, std::size_t& columns, CssGrid& grid) {
    std::size_t column = 0;
    const auto isAfter = [&](const CssGridArea& area) {
        return area.rowEnd != std::int32_t(number) + 1;
    };
    for (std::size_t at = 0; at < row.size();) {
        std::size_t end = at;
        while (end < row.size() && !IsCssSpace(row[end]))
            ++end;
        if (end > at) {
            const std::u16string_view name = row.substr(at, end - at);
            const auto x = std::int32_t(column++), y = std::int32_t(number);
            const auto known = std::ranges::find(grid.areas, name, &CssGridArea::name);
            if (name.front() == u'.') {
                at = end;
                continue;
            }
            if (known == grid.areas.end())
                grid.areas.push_back({std::u16string(name), x, y, x + 1, y + 1});
            else if (known->rowEnd == y + 1 && known->columnEnd == x && known->row == y)
                ++known->columnEnd;
            else if (known->rowEnd == y && known->column == x)
                known->rowEnd = y + 1;
            else if (isAfter(*known) || x < known->column || x >= known->columnEnd)
                return false;
        }
        at = end + 1;
        if (column > maxCssGridTracks || grid.areas.size() > maxCssGridLines) return false;
    }
    if (number > 0 && column != columns) return false;
    columns = column;
    return column > 0;
}

// Rows of areas, each with a track after it or not.
bool ReadAreas(CssShorthandReader& reader, CssGrid& areas, CssGrid* rows) {
    std::size_t columns = 0, number = 0;
    while (!reader.tokens.AtEnd() && !reader.tokens.Peek().IsDelim(u'/')) {
        if (rows && reader.tokens.Peek().Is(Kind::OpenSquare)) {
            if (!ReadLineNames(reader.tokens, number, rows->lines)) return false;
            continue;
        }
        const CssToken row = reader.tokens.Next();
        if (!row.Is(Kind::String) || number >= maxCssGridTracks) return false;
        if (!AddAreas(row.text, number++, columns, areas)) return false;
        CssGridTrack track{CssValue::OfKeyword(0), CssValue::OfKeyword(0)};
        const CssToken& next = reader.tokens.Peek();
        const bool hasTrack = rows && !reader.tokens.AtEnd() && !next.Is(Kind::String) &&
                              !next.Is(Kind::OpenSquare) && !next.IsDelim(u'/');
        if (hasTrack && !ReadTrack(reader, track)) return false;
        if (rows) rows->tracks.push_back(track);
    }
    return number > 0;
}

// A number of a line or of tracks, a name, or `auto`.
bool ReadPlace(CssShorthandReader& reader, CssValue& place, CssGrid& named) {
    place = CssValue::OfKeyword(0);
    if (reader.tokens.TakeIdent(u"auto")) return true;
    bool isSpan = false, hasNumber = false;
    float number = 1;
    while (!reader.tokens.AtEnd() && !reader.tokens.Peek().IsDelim(u'/')) {
        const CssToken& token = reader.tokens.Next();
        if (token.IsIdent(u"span") && !isSpan) {
            isSpan = true;
        } else if (token.Is(Kind::Number) && token.isInteger && !hasNumber) {
            hasNumber = true;
            number = token.number;
        } else if (token.Is(Kind::Ident) && named.name.empty()) {
            named.name = token.text;
        } else {
            return false;
        }
    }
    if ((!isSpan && !hasNumber && named.name.empty()) || number == 0) return false;
    if (isSpan && number < 0) return false;
    const auto limit = float(maxCssGridTracks);
    place = CssValue::Number(std::clamp(number, -limit, limit));
    place.keyword = isSpan ? cssGridSpan : 0;
    if (isSpan || hasNumber) named.name.clear(); // the first track or line, of any name
    return true;
}

void AddPlace(CssShorthandReader& reader, P property, const CssValue& place, const CssGrid& named) {
    if (named.name.empty())
        reader.Add(property, place);
    else
        Add(reader, property, named);
}

} // namespace

std::u16string CssKeyOf(const CssGrid& grid) {
    std::u16string key = grid.name;
    const auto addNumber = [&](std::uint32_t number) {
        key += char16_t(number);
        key += char16_t(number >> 16);
    };
    const auto addValue = [&](const CssValue& value) {
        addNumber(std::uint32_t(value.kind) << 16 | value.keyword);
        addNumber(value.kind == CssValue::Kind::Keyword ? 0 : value.index);
    };
    key += u'\uFFFF';
    for (const CssGridTrack& track : grid.tracks) {
        addValue(track.min);
        addValue(track.max);
        key += track.fits ? u'f' : u'-';
    }
    addNumber(grid.repeatStart);
    addNumber(grid.repeatEnd);
    key += grid.collapsesEmpty ? u'c' : u'-';
    for (const CssGridLine& line : grid.lines) {
        key += line.name;
        key += u'\uFFFF';
        addNumber(std::uint32_t(line.line));
    }
    for (const CssGridArea& area : grid.areas) {
        key += area.name;
        key += u'\uFFFF';
        for (const std::int32_t line : {area.column, area.row, area.columnEnd, area.rowEnd})
            addNumber(std::uint32_t(line));
    }
    return key;
}

bool ReadCssGridTracks(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    CssGrid grid;
    if (!reader.tokens.TakeIdent(u"none") && !ReadTracks(reader, grid, false)) return false;
    AddGiven(reader, properties[0], std::move(grid));
    return true;
}

bool ReadCssGridAreas(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    CssGrid grid;
    if (!reader.tokens.TakeIdent(u"none") && !ReadAreas(reader, grid, nullptr)) return false;
    AddGiven(reader, properties[0], std::move(grid));
    return true;
}

// Rows and columns, rows of areas and columns, or one of them by `auto-flow` (`grid` alone).
bool ReadCssGridTemplate(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    CssGrid rows, columns, areas;
    bool flowsInColumns = false;
    const auto takeFlow = [&] {
        const bool flows = reader.tokens.TakeIdent(u"auto-flow");
        if (flows) reader.tokens.TakeIdent(u"dense");
        return flows;
    };
    if (!reader.tokens.TakeIdent(u"none")) {
        const bool isFlow = takeFlow();
        const bool isArea =
            reader.tokens.Peek().Is(Kind::String) || reader.tokens.Peek().Is(Kind::OpenSquare);
        if (isArea && !isFlow ? !ReadAreas(reader, areas, &rows)
                              : !ReadTracks(reader, rows, false) && !isFlow)
            return false;
        if (reader.tokens.Peek().IsDelim(u'/')) {
            reader.tokens.Next();
            flowsInColumns = !isFlow && takeFlow();
            if (!ReadTracks(reader, columns, false) && !flowsInColumns) return false;
        } else if (!isArea) {
            return false;
        }
    }
    AddGiven(reader, P::GridTemplateRows, std::move(rows));
    AddGiven(reader, P::GridTemplateColumns, std::move(columns));
    AddGiven(reader, P::GridTemplateAreas, std::move(areas));
    if (properties.size() > 3)
        reader.Add(P::GridAutoFlow,
                   CssValue::Of(flowsInColumns ? CssGridFlow::Columns : CssGridFlow::Rows));
    return true;
}

// From one line to another, for each axis; what is missing has the name of the start.
bool ReadCssGridPlace(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    std::vector<CssValue> places;
    std::vector<CssGrid> names;
    do {
        CssValue place;
        CssGrid named;
        if (places.size() == properties.size() || !ReadPlace(reader, place, named)) return false;
        places.push_back(place);
        names.push_back(std::move(named));
        if (reader.tokens.AtEnd()) break;
    } while (reader.tokens.Next().IsDelim(u'/'));
    if (!reader.tokens.AtEnd()) return false;
    while (places.size() < properties.size()) {
        // Row and column start, and then their ends.
        const std::size_t from = places.size() > 2 ? places.size() - 2 : 0;
        const CssGrid named = names[from];
        places.push_back(CssValue::OfKeyword(0));
        names.push_back(named);
    }
    for (std::size_t i = 0; i < properties.size(); ++i)
        AddPlace(reader, properties[i], places[i], names[i]);
    return true;
}

bool ReadCssGridFlow(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    bool flowsInColumns = false;
    for (int count = 0; !reader.tokens.AtEnd(); ++count) {
        const CssToken& word = reader.tokens.Next();
        flowsInColumns = flowsInColumns || word.IsIdent(u"column");
        if (count == 2 ||
            !(word.IsIdent(u"row") || word.IsIdent(u"column") || word.IsIdent(u"dense")))
            return false;
    }
    reader.Add(properties[0],
               CssValue::Of(flowsInColumns ? CssGridFlow::Columns : CssGridFlow::Rows));
    return true;
}
