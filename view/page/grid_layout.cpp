#include "view/page/grid_layout.h"

#include "view/page/grid_cells.h"
#include "view/page/item_layout.h"
#include "view/page/side_boxes.h"

#include <algorithm>
#include <cmath>

namespace {
using TrackPlaces = std::vector<FlexPlace>;

TrackPlaces PlacesOf(const std::vector<double>& sizes, double room, double gap,
                     CssJustifyContent justify) {
    std::vector<FlexSize> tracks;
    tracks.reserve(sizes.size());
    for (const double size : sizes)
        tracks.push_back({size, size, size, 0, 0});
    return tracks.empty() ? TrackPlaces{} : FlexPlaces(tracks, room, gap, justify);
}

FlexPlace PlaceOf(const TrackPlaces& tracks, GridSpan span) {
    const FlexPlace &first = tracks[span.start], &last = tracks[span.end - 1];
    return {first.left, last.left + last.width - first.left};
}

bool Meet(GridSpan a, GridSpan b) {
    return a.start < b.end && b.start < a.end;
}

double SumOf(const std::vector<double>& sizes, double gap) {
    double sum = sizes.empty() ? 0 : gap * double(sizes.size() - 1);
    for (const double size : sizes)
        sum += size;
    return sum;
}

class GridLayouter {
  public:
    // A negative width: it is not known.
    GridLayouter(PageLayouter& layouter, PageBoxId container, double width,
                 std::optional<InlineEdges> positioned)
        : layouter_(layouter), measure_(layouter.Measure()), container_(container),
          style_(*layouter.Box(container).style), grid_(*style_.rare),
          layout_(layouter, container, std::max(0.0, width), positioned),
          items_(layout_.Items()), room_{width,
                                         measure_.Length(grid_.columnGap, std::max(0.0, width)),
                                         measure_.Scale()},
          rowGap_(measure_.Length(grid_.rowGap, 0)) {}

    // Columns by the widths of the items, then the items in these, then rows by their heights.
    double Run(PageFragment& result) {
        GridCells cells = Cells();
        std::vector<double> widths = ColumnWidths(cells);
        if (widths.size() > 1 && SumOf(widths, room_.columnGap) > room_.width + 1) {
            cells = StackedGridCells(items_.size());
            widths = {room_.width};
        }
        const TrackPlaces columns =
            PlacesOf(widths, room_.width, room_.columnGap, grid_.justifyContent);
        std::vector<Item> items = LaidOut(cells, columns);
        const double given = GivenHeight();
        const TrackPlaces rows =
            PlacesOf(RowHeights(cells, items, given), 0, rowGap_, CssJustifyContent::Start);
        for (std::size_t i = 0; i < items.size(); ++i)
            Place(std::move(items[i]), PlaceOf(rows, cells.placement.items[i].rows), result);
        return std::max(given, rows.empty() ? 0 : rows.back().left + rows.back().width);
    }

    std::vector<ItemPlace> RowOf(PageBoxId id) {
        const GridCells cells = Cells();
        const std::vector<double> widths = ColumnWidths(cells);
        if (SumOf(widths, room_.columnGap) > room_.width + 1) return {};
        const TrackPlaces columns =
            PlacesOf(widths, room_.width, room_.columnGap, grid_.justifyContent);
        const auto& placed = cells.placement.items;
        const auto own = placed[std::size_t(std::ranges::find(items_, id) - items_.begin())];
        std::vector<ItemPlace> row;
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const bool isBeside =
                !Meet(placed[i].columns, own.columns) && Meet(placed[i].rows, own.rows);
            if (items_[i] != id && !isBeside) continue;
            FlexPlace place = PlaceOf(columns, placed[i].columns);
            if (layouter_.Box(container_).text->direction == CssDirection::RightToLeft)
                place.left = room_.width - place.left - place.width;
            row.push_back({items_[i], place});
        }
        return row;
    }

    // Items may stand one below the other, unless a column has a width of its own.
    WidthExtent Extent() {
        WidthExtent extent;
        for (const PageBoxId item : items_)
            extent.min = std::max(extent.min, layouter_.ExtentOfBox(item).min);
        extent.max = std::max(extent.min, SumOf(ColumnWidths(Cells()), room_.columnGap));
        return extent;
    }

  private:
    struct Item {
        PageBoxId box = noPageBox;
        FlexPlace column; // or several of them
        PageFragmentPtr fragment;
    };

    GridCells Cells() const {
        std::vector<const CssRareStyle*> styles;
        for (const PageBoxId item : items_)
            styles.push_back(layouter_.Box(item).style->rare);
        return GridCellsOf(grid_, room_, styles);
    }

    std::vector<double> ColumnWidths(const GridCells& cells) {
        std::vector<GridContent> contents;
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const WidthExtent extent = ExtentOf(items_[i]);
            contents.push_back(
                {cells.placement.items[i].columns, extent, MinOf(items_[i], extent)});
        }
        return GridTrackSizes(GridColumnsOf(grid_, cells, room_), contents, room_.width,
                              room_.columnGap);
    }

    WidthExtent ExtentOf(PageBoxId item) {
        return IsLongItem(layouter_.Boxes(), item) ? layouter_.LongItemExtent(item)
                                                   : layouter_.ExtentOfBox(item);
    }

    // Of the margin box, in a track that leaves it to the item.
    double MinOf(PageBoxId item, const WidthExtent& extent) const {
        if (!layout_.MayBeNarrow(item)) return extent.min;
        const CssBoxStyle& style = *layouter_.Box(item).style;
        return std::min(extent.min, measure_.LimitWidth(style, std::max(0.0, room_.width), 0) +
                                        layout_.Sides(item));
    }

    CssAlignItems Justification(PageBoxId item) const {
        const CssAlignItems own = layouter_.Box(item).style->rare->justifySelf;
        return own == CssAlignItems::Auto ? grid_.justifyItems : own;
    }

    std::vector<Item> LaidOut(const GridCells& cells, const TrackPlaces& columns) {
        std::vector<Item> items;
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const FlexPlace column = PlaceOf(columns, cells.placement.items[i].columns);
            const double width = WidthOf(items_[i], column.width);
            items.push_back({items_[i], column, layout_.LayOut(items_[i], column.left, width)});
        }
        return items;
    }

    // As wide as its columns, or as its content.
    double WidthOf(PageBoxId item, double columnWidth) {
        const CssBoxStyle& style = *layouter_.Box(item).style;
        const bool fills = Justification(item) == CssAlignItems::Stretch &&
                           !style.margin[cssLeft].IsAuto() && !style.margin[cssRight].IsAuto();
        double width = columnWidth;
        const double given = measure_.GivenWidth(style, columnWidth);
        const double sides = layout_.Sides(item);
        if (given >= 0)
            width = given + sides;
        else if (!fills)
            width = std::min(width, std::ceil(layouter_.ExtentOfBox(item).max));
        return measure_.LimitWidth(style, columnWidth, std::max(0.0, width - sides)) + sides;
    }

    double GivenHeight() const {
        const double given = measure_.GivenHeight(style_);
        return given >= 0 ? given : measure_.LimitHeight(style_, 0);
    }

    std::vector<double> RowHeights(const GridCells& cells, const std::vector<Item>& items,
                                   double given) const {
        std::vector<GridContent> contents;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const double height = layout_.Height(items[i].box, *items[i].fragment);
            contents.push_back({cells.placement.items[i].rows, {height, height}, height});
        }
        return GridTrackSizes(GridRowsOf(grid_, cells, room_.scale), contents,
                              given > 0 ? given : -1, rowGap_);
    }

    void Place(Item item, FlexPlace row, PageFragment& result) const {
        const double width = layout_.Width(item.box, *item.fragment);
        const double free = std::max(0.0, item.column.width - width);
        double left = item.column.left + free * FreeShare(item.box);
        if (layouter_.Box(container_).text->direction == CssDirection::RightToLeft)
            left = room_.width - left - width;
        double top = row.left;
        const double freeBelow = row.width - layout_.Height(item.box, *item.fragment);
        switch (layout_.Alignment(item.box)) {
        case CssAlignItems::Center: top += freeBelow / 2; break;
        case CssAlignItems::End: top += freeBelow; break;
        case CssAlignItems::Stretch:
            item.fragment = layout_.StretchedTo(item.box, item.fragment, row.width);
            break;
        default: break;
        }
        layout_.Place(item.box, item.fragment, left, top, result);
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
    ItemLayout layout_;
    const std::vector<PageBoxId> items_;
    const GridRoom room_;
    const double rowGap_;
};
} // namespace

double LayOutGrid(PageLayouter& layouter, PageBoxId container, double width,
                  std::optional<InlineEdges> positioned, PageFragment& result) {
    return GridLayouter(layouter, container, width, positioned).Run(result);
}

std::vector<ItemPlace> GridRowOf(PageLayouter& layouter, PageBoxId container, double width,
                                 PageBoxId item) {
    return GridLayouter(layouter, container, width, {}).RowOf(item);
}

WidthExtent GridExtentOf(PageLayouter& layouter, PageBoxId container) {
    return GridLayouter(layouter, container, -1, {}).Extent();
}
