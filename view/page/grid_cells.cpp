#include "view/page/grid_cells.h"

#include "formats/css/css_limits.h"

#include <algorithm>
#include <cmath>

namespace {
// The least that it takes.
double MinSizeOf(const GridTrackSize& track) {
    if (track.shares > 0 || track.maxByContent) return track.base;
    return std::max(track.base, track.limit);
}

// As many as fit; one where the width is not known.
std::size_t RepetitionsIn(const CssGridTracks& written, const GridRoom& room) {
    if (!written.Repeats() || room.width <= 0) return 1;
    double others = 0, once = 0;
    for (std::size_t i = 0; i < written.tracks.size(); ++i) {
        const GridTrackSize size = GridTrackSizeOf(written.tracks[i], room.width, room.scale);
        const bool isRepeated = i >= written.repeatStart && i < written.repeatEnd;
        (isRepeated ? once : others) += MinSizeOf(size) + room.columnGap;
    }
    const double fitting = (room.width + room.columnGap - others) / std::max(once, 1.0);
    const double maxTracks = double(maxCssGridTracks) / double(written.tracks.size());
    return std::size_t(std::clamp(std::floor(fitting), 1.0, std::max(1.0, maxTracks)));
}

// Of auto-fit: those after the last item.
void DropEmptyRepetitions(std::size_t repeated, GridCells& cells) {
    std::size_t used = 1;
    for (const GridItemPlace& place : cells.placement.items)
        used = std::max(used, place.columns.end);
    while (cells.repetitions > 1 && cells.placement.columns >= used + repeated) {
        cells.placement.columns -= repeated;
        --cells.repetitions;
    }
}

GridTrackSize AutoTrack() {
    return GridTrackSizeOf({CssValue::OfKeyword(0), CssValue::OfKeyword(0)}, -1, 1);
}

// So many tracks of one direction.
class TrackList {
  public:
    TrackList(std::size_t count, double whole, double scale)
        : count_(count), whole_(whole), scale_(scale) {}

    void AddWritten(const CssGridTracks& written, std::size_t repetitions) {
        Add(written, 0, written.repeatStart);
        for (std::size_t i = 0; written.Repeats() && i < repetitions; ++i)
            Add(written, written.repeatStart, written.repeatEnd);
        Add(written, written.repeatEnd, written.tracks.size());
    }

    // Over and over, up to the count.
    std::vector<GridTrackSize> FilledWith(const CssGridTracks* others) && {
        while (others && !others->empty() && tracks_.size() < count_)
            Add(*others, 0, others->tracks.size());
        tracks_.resize(count_, AutoTrack());
        return std::move(tracks_);
    }

  private:
    void Add(const CssGridTracks& written, std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to && tracks_.size() < count_; ++i)
            tracks_.push_back(GridTrackSizeOf(written.tracks[i], whole_, scale_));
    }

    const std::size_t count_;
    const double whole_, scale_;
    std::vector<GridTrackSize> tracks_;
};
} // namespace

GridCells GridCellsOf(const CssRareStyle& grid, const GridRoom& room,
                      const std::vector<const CssRareStyle*>& items) {
    GridCells cells;
    const CssGridTracks* written = grid.gridColumns;
    if (!written) {
        cells.placement = PlaceGridItems(grid, 0, 0, items);
        return cells;
    }
    cells.repetitions = RepetitionsIn(*written, room);
    const std::size_t added = (cells.repetitions - 1) * written->RepeatedTracks();
    cells.placement = PlaceGridItems(grid, written->tracks.size() + added, added, items);
    if (written->collapsesEmpty) DropEmptyRepetitions(written->RepeatedTracks(), cells);
    return cells;
}

GridCells StackedGridCells(std::size_t items) {
    GridCells cells;
    cells.isStacked = true;
    cells.placement.columns = 1;
    cells.placement.rows = items;
    for (std::size_t i = 0; i < items; ++i)
        cells.placement.items.push_back({{0, 1}, {i, i + 1}});
    return cells;
}

std::vector<GridTrackSize> GridColumnsOf(const CssRareStyle& grid, const GridCells& cells,
                                         const GridRoom& room) {
    TrackList tracks(cells.placement.columns, room.width, room.scale);
    if (grid.gridColumns) tracks.AddWritten(*grid.gridColumns, cells.repetitions);
    return std::move(tracks).FilledWith(grid.gridAutoColumns);
}

std::vector<GridTrackSize> GridRowsOf(const CssRareStyle& grid, const GridCells& cells,
                                      double scale) {
    TrackList list(cells.placement.rows, -1, scale);
    if (grid.gridRows && !cells.isStacked) list.AddWritten(*grid.gridRows, 1);
    auto tracks = std::move(list).FilledWith(cells.isStacked ? nullptr : grid.gridAutoRows);
    for (GridTrackSize& track : tracks)
        track.minByContent = true;
    return tracks;
}
