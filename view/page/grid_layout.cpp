#include "view/page/grid_layout.h"

#include "formats/css/css_limits.h"
#include "view/page/flex_sizes.h"
#include "view/page/grid_tracks.h"
#include "view/page/item_layout.h"

#include <algorithm>
#include <cmath>

namespace {
class GridLayouter {
  public:
    // A negative width: it is not known.
    GridLayouter(PageLayouter& layouter, PageBoxId container, double width,
                 std::optional<InlineEdges> positioned)
        : layouter_(layouter), measure_(layouter.Measure()), container_(container),
          style_(*layouter.Box(container).style), grid_(*style_.rare), width_(width),
          layout_(layouter, container, std::max(0.0, width), positioned), items_(layout_.Items()) {
        columnGap_ = measure_.Length(grid_.columnGap, std::max(0.0, width));
        rowGap_ = measure_.Length(grid_.rowGap, 0);
        Place();
    }

    double Run(PageFragment& result) {
        std::vector<double> widths = ColumnWidths(width_);
        double all = columnGap_ * (double(widths.size()) - 1);
        for (const double width : widths)
            all += width;
        if (widths.size() > 1 && all > width_ + 1) {
            StackItems();
            widths = {width_};
        }
        columns_ = Places(widths, width_, columnGap_, grid_.justifyContent);
        LayOutItems();
        const double given = GivenHeight();
        const std::vector<double> heights = RowHeights(given);
        rows_ = Places(heights, 0, rowGap_, CssJustifyContent::Start);
        for (std::size_t i = 0; i < items_.size(); ++i)
            PlaceItem(i, result);
        return std::max(given, rows_.empty() ? 0 : rows_.back().left + rows_.back().width);
    }

    // Items may stand one below the other, unless a column has a width of its own.
    WidthExtent Extent() {
        WidthExtent extent;
        for (const PageBoxId item : items_)
            extent.min = std::max(extent.min, layouter_.ExtentOfBox(item).min);
        for (const double width : ColumnWidths(-1))
            extent.max += width;
        if (placement_.columns > 1) extent.max += columnGap_ * double(placement_.columns - 1);
        extent.max = std::max(extent.min, extent.max);
        return extent;
    }

  private:
    void Place() {
        std::size_t columns = 0, repeated = 0;
        if (const CssGrid* written = grid_.gridColumns) {
            repetitions_ = Repetitions(*written);
            repeated = (repetitions_ - 1) * RepeatedTracks(*written);
            columns = written->tracks.size() + repeated;
        }
        std::vector<const CssRareStyle*> styles;
        for (const PageBoxId item : items_)
            styles.push_back(layouter_.Box(item).style->rare);
        placement_ = PlaceGridItems(grid_, columns, repeated, styles);
        if (grid_.gridColumns && grid_.gridColumns->collapsesEmpty) DropEmptyRepetitions();
    }

    static std::size_t RepeatedTracks(const CssGrid& grid) {
        return grid.repeatEnd - grid.repeatStart;
    }

    // As many as fit; one where the width is not known.
    std::size_t Repetitions(const CssGrid& written) const {
        if (!written.Repeats() || width_ <= 0) return 1;
        double others = 0, once = 0;
        for (std::size_t i = 0; i < written.tracks.size(); ++i) {
            const GridTrackSize size = GridTrackSizeOf(written.tracks[i], width_, measure_.Scale());
            const double least = std::max(size.base, size.maxByContent ? 0 : size.limit);
            (i >= written.repeatStart && i < written.repeatEnd ? once : others) +=
                (size.shares > 0 ? size.base : least) + columnGap_;
        }
        const double fitting = (width_ + columnGap_ - others) / std::max(once, 1.0);
        const double most =
            double(maxCssGridTracks) / double(std::max<std::size_t>(1, written.tracks.size()));
        return std::size_t(std::clamp(std::floor(fitting), 1.0, std::max(1.0, most)));
    }

    // Of auto-fit: those after the last item.
    void DropEmptyRepetitions() {
        std::size_t used = 1;
        for (const GridItemPlace& place : placement_.items)
            used = std::max(used, place.columns.end);
        const std::size_t repeated = RepeatedTracks(*grid_.gridColumns);
        while (repetitions_ > 1 && placement_.columns >= used + repeated) {
            placement_.columns -= repeated;
            --repetitions_;
        }
    }

    static GridTrackSize AutoTrack() {
        return GridTrackSizeOf({CssValue::OfKeyword(0), CssValue::OfKeyword(0)}, -1, 1);
    }

    // The tracks of one direction: those that are written, and those that items need besides.
    std::vector<GridTrackSize> Tracks(const CssGrid* written, const CssGrid* others,
                                      std::size_t repetitions, std::size_t count,
                                      double whole) const {
        std::vector<GridTrackSize> tracks;
        const auto add = [&](const CssGrid& grid, std::size_t from, std::size_t to) {
            for (std::size_t i = from; i < to && tracks.size() < count; ++i)
                tracks.push_back(GridTrackSizeOf(grid.tracks[i], whole, measure_.Scale()));
        };
        if (written) {
            add(*written, 0, written->repeatStart);
            for (std::size_t i = 0; written->Repeats() && i < repetitions; ++i)
                add(*written, written->repeatStart, written->repeatEnd);
            add(*written, written->repeatEnd, written->tracks.size());
        }
        while (tracks.size() < count) {
            if (others && !others->tracks.empty())
                add(*others, 0, others->tracks.size());
            else
                tracks.push_back(AutoTrack());
        }
        return tracks;
    }

    std::vector<double> ColumnWidths(double room) {
        std::vector<GridContent> contents;
        for (std::size_t i = 0; i < items_.size(); ++i)
            contents.push_back({placement_.items[i].columns, layouter_.ExtentOfBox(items_[i])});
        return GridTrackSizes(Tracks(grid_.gridColumns, grid_.gridAutoColumns, repetitions_,
                                     placement_.columns, room),
                              contents, room, columnGap_);
    }

    void StackItems() {
        placement_.columns = 1;
        placement_.rows = items_.size();
        for (std::size_t i = 0; i < items_.size(); ++i)
            placement_.items[i] = {{0, 1}, {i, i + 1}};
        isStacked_ = true;
    }

    // Where each track stands.
    static std::vector<FlexPlace> Places(const std::vector<double>& sizes, double room, double gap,
                                         CssJustifyContent justify) {
        std::vector<FlexSize> tracks;
        for (const double size : sizes)
            tracks.push_back({size, size, size, 0, 0});
        return tracks.empty() ? std::vector<FlexPlace>{} : FlexPlaces(tracks, room, gap, justify);
    }

    static FlexPlace Of(const std::vector<FlexPlace>& tracks, GridSpan span) {
        const FlexPlace &first = tracks[span.start], &last = tracks[span.end - 1];
        return {first.left, last.left + last.width - first.left};
    }

    CssAlignItems Justification(PageBoxId item) const {
        const CssAlignItems own = layouter_.Box(item).style->rare->justifySelf;
        return own == CssAlignItems::Auto ? grid_.justifyItems : own;
    }

    // As wide as its columns, or as its content.
    void LayOutItems() {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const PageBoxId item = items_[i];
            const CssBoxStyle& style = *layouter_.Box(item).style;
            const FlexPlace place = Of(columns_, placement_.items[i].columns);
            const bool fills = Justification(item) == CssAlignItems::Stretch &&
                               !style.margin[cssLeft].IsAuto() && !style.margin[cssRight].IsAuto();
            double width = place.width;
            const double given = measure_.GivenWidth(style, place.width);
            const double sides = layout_.Sides(item);
            if (given >= 0)
                width = given + sides;
            else if (!fills)
                width = std::min(width, std::ceil(layouter_.ExtentOfBox(item).max));
            width = measure_.LimitWidth(style, place.width, std::max(0.0, width - sides)) + sides;
            fragments_.push_back(layout_.LayOut(item, place.left, width));
        }
    }

    double GivenHeight() const {
        const double given = measure_.GivenHeight(style_);
        return given >= 0 ? given : measure_.LimitHeight(style_, 0);
    }

    // What is written is the least: nothing is cut.
    std::vector<double> RowHeights(double given) const {
        std::vector<GridTrackSize> tracks =
            isStacked_ ? std::vector<GridTrackSize>(placement_.rows, AutoTrack())
                       : Tracks(grid_.gridRows, grid_.gridAutoRows, 1, placement_.rows, -1);
        for (GridTrackSize& track : tracks)
            track.minByContent = true;
        std::vector<GridContent> contents;
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const double height = layout_.Height(items_[i], *fragments_[i]);
            contents.push_back({placement_.items[i].rows, {height, height}});
        }
        return GridTrackSizes(std::move(tracks), contents, given > 0 ? given : -1, rowGap_);
    }

    void PlaceItem(std::size_t i, PageFragment& result) {
        const PageBoxId item = items_[i];
        const FlexPlace column = Of(columns_, placement_.items[i].columns);
        const FlexPlace row = Of(rows_, placement_.items[i].rows);
        const double free = column.width - layout_.Width(item, *fragments_[i]);
        double left = column.left + std::max(0.0, free) * FreeShare(item);
        if (layouter_.Box(container_).text->direction == CssDirection::RightToLeft)
            left = width_ - left - layout_.Width(item, *fragments_[i]);
        double top = row.left;
        const double freeBelow = row.width - layout_.Height(item, *fragments_[i]);
        switch (layout_.Alignment(item)) {
        case CssAlignItems::Center: top += freeBelow / 2; break;
        case CssAlignItems::End: top += freeBelow; break;
        case CssAlignItems::Stretch:
            fragments_[i] = layout_.StretchedTo(item, fragments_[i], row.width);
            break;
        default: break;
        }
        layout_.Place(item, fragments_[i], left, top, result);
    }

    double FreeShare(PageBoxId item) const {
        const CssBoxStyle& style = *layouter_.Box(item).style;
        const bool autoLeft = style.margin[cssLeft].IsAuto(),
                   autoRight = style.margin[cssRight].IsAuto();
        if (autoLeft || autoRight) return autoLeft && autoRight ? 0.5 : autoLeft ? 1 : 0;
        switch (Justification(item)) {
        case CssAlignItems::Center: return 0.5;
        case CssAlignItems::End: return 1;
        default: return 0;
        }
    }

    PageLayouter& layouter_;
    const BoxMeasure& measure_;
    const PageBoxId container_;
    const CssBoxStyle& style_;
    const CssRareStyle& grid_;
    const double width_;
    ItemLayout layout_;
    const std::vector<PageBoxId> items_;
    double columnGap_ = 0, rowGap_ = 0;
    std::size_t repetitions_ = 1; // of the columns that are there as often as they fit
    GridPlacement placement_;
    bool isStacked_ = false;
    std::vector<FlexPlace> columns_, rows_;
    std::vector<PageFragmentPtr> fragments_; // of the items
};
} // namespace

bool IsGridContainer(const PageBox& box) {
    return box.style->innerLayout == CssInnerLayout::Grid && box.kind == PageBoxKind::Block;
}

double LayOutGrid(PageLayouter& layouter, PageBoxId container, double width,
                  std::optional<InlineEdges> positioned, PageFragment& result) {
    return GridLayouter(layouter, container, width, positioned).Run(result);
}

WidthExtent GridExtentOf(PageLayouter& layouter, PageBoxId container) {
    return GridLayouter(layouter, container, -1, {}).Extent();
}
