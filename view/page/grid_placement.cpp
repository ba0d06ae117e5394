#include "view/page/grid_placement.h"

#include "formats/css/css_limits.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace {
constexpr std::u16string_view startSuffix = u"-start", endSuffix = u"-end";

// One direction of a grid.
struct Axis {
    const CssGridTracks* tracks = nullptr;
    const CssGridAreas* areas = nullptr;
    bool isColumns = false;
    std::size_t count = 0;    // of tracks that are asked for
    std::size_t repeated = 0; // more than are written
};

std::int32_t LineOfArea(const CssGridArea& area, bool isColumns, bool isEnd) {
    if (isColumns) return isEnd ? area.columnEnd : area.column;
    return isEnd ? area.rowEnd : area.row;
}

// Of the area that it names, or of a line: itself, or that at its start or end.
std::optional<std::int32_t> NamedLine(const Axis& axis, std::u16string_view name, bool isEnd) {
    std::u16string_view areaName = name;
    bool areaEnd = isEnd;
    if (name.ends_with(startSuffix) || name.ends_with(endSuffix)) {
        areaEnd = name.ends_with(endSuffix);
        areaName.remove_suffix(areaEnd ? endSuffix.size() : startSuffix.size());
    }
    if (axis.areas)
        for (const CssGridArea& area : *axis.areas) {
            if (area.name == name) return LineOfArea(area, axis.isColumns, isEnd);
            if (area.name == areaName) return LineOfArea(area, axis.isColumns, areaEnd);
        }
    if (!axis.tracks) return std::nullopt;
    std::u16string withSuffix(name);
    withSuffix += isEnd ? endSuffix : startSuffix;
    for (const CssGridLine& line : axis.tracks->lines)
        if (line.name == name || line.name == withSuffix)
            return line.line + (std::uint32_t(line.line) >= axis.tracks->repeatEnd
                                    ? std::int32_t(axis.repeated)
                                    : 0);
    return std::nullopt;
}

std::optional<std::size_t> LineOf(const Axis& axis, const CssGridEdge& edge, bool isEnd) {
    std::optional<std::int32_t> line;
    if (edge.name)
        line = NamedLine(axis, edge.name->name, isEnd);
    else if (edge.line > 0)
        line = edge.line - 1;
    else if (edge.line < 0)
        line = std::int32_t(axis.count) + 1 + edge.line;
    if (!line) return std::nullopt;
    return std::size_t(std::clamp(*line, 0, std::int32_t(maxCssGridTracks)));
}

// Without a start it is somewhere, so long.
struct RequestedSpan {
    std::optional<std::size_t> start;
    std::size_t length = 1;
};

RequestedSpan RequestedSpanOn(const Axis& axis, const CssGridEdge& start, const CssGridEdge& end) {
    const auto first = LineOf(axis, start, false), last = LineOf(axis, end, true);
    RequestedSpan span;
    if (first && last) {
        span.start = std::min(*first, *last);
        span.length = std::max<std::size_t>(1, std::max(*first, *last) - *span.start);
        return span;
    }
    span.length = std::size_t(std::max({1, start.span, end.span}));
    if (first) span.start = first;
    if (last) {
        span.length = std::min(span.length, std::max<std::size_t>(1, *last));
        span.start = *last - std::min(*last, span.length);
    }
    return span;
}

// Goes from cell to cell along the tracks of one direction (`across`), and then to the next ones of
// the other. Both are told the same way for rows as for columns of a grid that flows in these.
class GridPlacer {
  public:
    struct Item {
        RequestedSpan across, along;
        GridSpan acrossAt, alongAt;
    };

    explicit GridPlacer(std::size_t across) : across_(across) {}

    void Run(std::vector<Item>& items) {
        for (const Item& item : items)
            across_ = std::max(across_, item.across.start.value_or(0) + item.across.length);
        for (Item& item : items)
            if (item.across.start && item.along.start) Put(item, *item.along.start);
        for (Item& item : items)
            if (!item.across.start && item.along.start) PutInTrack(item);
        for (Item& item : items)
            if (!item.along.start) PutAfter(item);
    }
    std::size_t Across() const { return across_; }

  private:
    bool IsFree(std::size_t across, std::size_t along, const Item& item) const {
        const std::size_t end = std::min(along + item.along.length, taken_.size());
        for (std::size_t i = along; i < end; ++i)
            for (std::size_t j = across; j < across + item.across.length; ++j)
                if (taken_[i][j]) return false;
        return true;
    }

    // At that place across, from there on along.
    void Put(Item& item, std::size_t along) {
        const std::size_t across = item.across.start.value_or(0);
        while (!IsFree(across, along, item))
            ++along;
        Take(item, across, along);
    }

    void Take(Item& item, std::size_t across, std::size_t along) {
        item.acrossAt = {across, across + item.across.length};
        item.alongAt = {along, along + item.along.length};
        while (taken_.size() < item.alongAt.end)
            taken_.emplace_back(across_, false);
        for (std::size_t i = along; i < item.alongAt.end; ++i)
            for (std::size_t j = across; j < item.acrossAt.end; ++j)
                taken_[i][j] = true;
    }

    void PutInTrack(Item& item) {
        for (std::size_t along = *item.along.start;; ++along)
            for (std::size_t across = 0; across + item.across.length <= across_; ++across)
                if (IsFree(across, along, item)) return Take(item, across, along);
    }

    // Not before the one that was placed last.
    void PutAfter(Item& item) {
        if (item.across.start) {
            if (*item.across.start < cursorAcross_) ++cursorAlong_;
            cursorAcross_ = *item.across.start;
            Put(item, cursorAlong_);
            cursorAlong_ = item.alongAt.start;
            return;
        }
        for (;; ++cursorAlong_, cursorAcross_ = 0)
            for (; cursorAcross_ + item.across.length <= across_; ++cursorAcross_)
                if (IsFree(cursorAcross_, cursorAlong_, item))
                    return Take(item, cursorAcross_, cursorAlong_);
    }

    std::size_t across_;
    std::vector<std::vector<bool>> taken_;
    std::size_t cursorAcross_ = 0, cursorAlong_ = 0;
};

std::size_t AreaTracks(const CssGridAreas* areas, bool isColumns) {
    std::int32_t tracks = 0;
    if (areas)
        for (const CssGridArea& area : *areas)
            tracks = std::max(tracks, isColumns ? area.columnEnd : area.rowEnd);
    return std::size_t(tracks);
}
} // namespace

GridPlacement PlaceGridItems(const CssRareStyle& grid, std::size_t columns, std::size_t repeated,
                             const std::vector<const CssRareStyle*>& items) {
    const std::size_t rows = grid.gridRows ? grid.gridRows->tracks.size() : 0;
    const Axis across{grid.gridColumns, grid.gridAreas, true,
                      std::max(columns, AreaTracks(grid.gridAreas, true)), repeated};
    const Axis along{grid.gridRows, grid.gridAreas, false,
                     std::max(rows, AreaTracks(grid.gridAreas, false)), 0};
    const bool flowsInColumns = grid.gridFlow == CssGridFlow::Columns;
    std::vector<GridPlacer::Item> placed;
    placed.reserve(items.size());
    for (const CssRareStyle* item : items) {
        const RequestedSpan x = RequestedSpanOn(across, item->columnStart, item->columnEnd);
        const RequestedSpan y = RequestedSpanOn(along, item->rowStart, item->rowEnd);
        placed.push_back(flowsInColumns ? GridPlacer::Item{y, x, {}, {}}
                                        : GridPlacer::Item{x, y, {}, {}});
    }
    GridPlacer placer(std::max<std::size_t>(1, flowsInColumns ? along.count : across.count));
    placer.Run(placed);
    GridPlacement placement;
    placement.columns = across.count;
    placement.rows = along.count;
    for (const GridPlacer::Item& item : placed) {
        const GridItemPlace place = flowsInColumns ? GridItemPlace{item.alongAt, item.acrossAt}
                                                   : GridItemPlace{item.acrossAt, item.alongAt};
        placement.columns = std::max(placement.columns, place.columns.end);
        placement.rows = std::max(placement.rows, place.rows.end);
        placement.items.push_back(place);
    }
    return placement;
}
