#include "view/page/table_layout.h"

#include "view/page/column_widths.h"
#include "view/page/table_grid.h"

#include <algorithm>
#include <numeric>

namespace {
// Of a table that is too long, whose rows decide about the widths of its columns.
constexpr std::size_t measuredParts = 4;

class TableLayouter {
  public:
    TableLayouter(PageLayouter& layouter, PageBoxId table)
        : layouter_(layouter), measure_(layouter.Measure()), table_(layouter.Box(table)),
          id_(table), grid_(GridOf(layouter.Boxes(), layouter.Content(), table)) {
        const bool collapse = table_.text->borderCollapse == CssBorderCollapse::Collapse;
        spacingX_ = collapse ? 0 : table_.text->borderSpacingX * measure_.Scale();
        spacingY_ = collapse ? 0 : table_.text->borderSpacingY * measure_.Scale();
    }

    // In a cell the percentages of the columns wait until the cell's width is known.
    WidthExtent Extent() {
        TableWidths widths = Widths(0);
        if (layouter_.Box(table_.parent).kind == PageBoxKind::Cell)
            for (CellWidth& cell : widths.cells)
                cell.percentage.reset();
        return ExtentOf(widths);
    }

    PageFragmentPtr LayOut(double containing) {
        auto fragment = std::make_shared<PageFragment>();
        const double insets = measure_.SideInsets(*table_.style, containing);
        const double room = containing - measure_.SideMargins(*table_.style, containing);
        containing_ = containing;
        PlaceColumns(table_.isTooLong ? SharedWidths(room - insets)
                                      : ColumnWidths(Widths(room - insets)));
        fragment->width = insets + (grid_.columns == 0 ? 0 : lefts_.back());
        AddCaptions(*fragment, CssCaptionSide::Top);
        AddRows(*fragment, room);
        AddCaptions(*fragment, CssCaptionSide::Bottom);
        return fragment;
    }

    // What the cells ask for.
    TableWidths Widths(double available) {
        TableWidths widths;
        widths.columns = grid_.columns;
        widths.spacing = spacingX_;
        widths.available =
            std::min(available, measure_.LimitWidth(*table_.style, containing_, available));
        const CssLength& width = table_.style->width;
        const double given = measure_.GivenWidth(*table_.style, containing_);
        if (given >= 0 && (available > 0 || width.kind == CssLength::Kind::Pixels))
            widths.fixed = given;
        for (const GridCell& column : grid_.columnBoxes)
            widths.cells.push_back(CellWidthOf(column, {}));
        for (const GridCell& cell : grid_.cells)
            widths.cells.push_back(CellWidthOf(cell, layouter_.ExtentOfBox(cell.box)));
        AddCaptionWidths(widths, available);
        return widths;
    }

  private:
    // The table is at least as wide as the longest word of a caption.
    void AddCaptionWidths(TableWidths& widths, double available) const {
        if (grid_.columns == 0) return;
        for (const PageBoxId caption : grid_.captions) {
            CellWidth all;
            all.span = grid_.columns;
            all.min = layouter_.ExtentOfBox(caption).min -
                      measure_.SideInsets(*table_.style, available) - 2 * spacingX_;
            all.max = all.min;
            widths.cells.push_back(all);
        }
    }

    // Of a table in parts: the columns of all of them, and those that only this one has.
    std::vector<double> SharedWidths(double available) {
        std::vector<double>& shared = layouter_.SharedColumns(table_.node, available);
        if (shared.empty()) shared = ColumnWidths(WidthsOfParts(available));
        std::vector<double> widths = shared;
        widths.resize(std::max(widths.size(), grid_.columns));
        for (const GridCell& cell : grid_.cells) {
            if (cell.column < shared.size()) continue;
            double& width = widths[cell.column];
            width = std::max(width, layouter_.ExtentOfBox(cell.box).min);
        }
        return widths;
    }

    // What some of them ask for, from the first to the last.
    TableWidths WidthsOfParts(double available) {
        std::vector<PageBoxId> parts;
        for (PageBoxId box = layouter_.Boxes().FirstChild(table_.parent); box != noPageBox;
             box = layouter_.Box(box).nextSibling)
            if (layouter_.Box(box).node == table_.node) parts.push_back(box);
        TableWidths all;
        const std::size_t looked = std::min(parts.size(), measuredParts);
        for (std::size_t i = 0; i < looked; ++i) {
            const std::size_t part = looked == 1 ? 0 : i * (parts.size() - 1) / (looked - 1);
            TableLayouter one(layouter_, parts[part]);
            one.containing_ = containing_;
            TableWidths widths = one.Widths(available);
            widths.columns = std::max(widths.columns, all.columns);
            widths.cells.insert(widths.cells.end(), all.cells.begin(), all.cells.end());
            all = std::move(widths);
        }
        return all;
    }

    CellWidth CellWidthOf(const GridCell& cell, WidthExtent extent) const {
        const CssBoxStyle& style = *layouter_.Box(cell.box).style;
        CellWidth width;
        width.column = cell.column;
        width.span = cell.columns;
        width.min = extent.min;
        width.max = extent.max;
        if (style.width.kind == CssLength::Kind::Percent)
            width.percentage = style.width.value;
        else if (style.width.kind == CssLength::Kind::Pixels)
            width.fixed = measure_.GivenWidth(style, 0) + measure_.SideInsets(style, 0);
        return width;
    }

    // From the left edge of the table's content, or from the right one where the table's direction
    // is from right to left.
    void PlaceColumns(const std::vector<double>& widths) {
        double left = spacingX_;
        for (const double width : widths) {
            lefts_.push_back(left);
            left += width + spacingX_;
        }
        lefts_.push_back(left);
    }
    double Width(const GridCell& cell) const {
        return lefts_[cell.column + cell.columns] - spacingX_ - lefts_[cell.column];
    }
    double Left(const GridCell& cell) const {
        const double near = lefts_[cell.column];
        const bool rightToLeft = table_.text->direction == CssDirection::RightToLeft;
        return rightToLeft ? lefts_.back() - near - Width(cell) : near;
    }

    PageFragmentPtr LayOutCell(const GridCell& cell) {
        const double width = Width(cell);
        const double insets = measure_.SideInsets(*layouter_.Box(cell.box).style, width);
        return layouter_.LayOutBlock(cell.box, std::max(0.0, width - insets), width);
    }

    double CellHeight(const GridCell& cell, const PageFragment& layout) const {
        const CssBoxStyle& style = *layouter_.Box(cell.box).style;
        const double given = measure_.GivenHeight(style);
        if (given < 0) return layout.height;
        // In quirks mode it is that of the border box (quirks.spec.whatwg.org).
        if (layouter_.Box(cell.box).dropsQuirkyMargins) return std::max(layout.height, given);
        const BoxInsets insets = measure_.Insets(style, Width(cell));
        return std::max(layout.height, insets.Top() + given + insets.Bottom());
    }

    // Each row as high as its highest cell; one over several rows makes the last of them higher.
    std::vector<double> RowHeights(const std::vector<PageFragmentPtr>& layouts) const {
        std::vector<double> heights;
        for (const PageBoxId row : grid_.rows)
            heights.push_back(std::max(0.0, measure_.GivenHeight(*layouter_.Box(row).style)));
        for (std::size_t i = 0; i < grid_.cells.size(); ++i) {
            const GridCell& cell = grid_.cells[i];
            if (cell.rows == 1)
                heights[cell.row] = std::max(heights[cell.row], CellHeight(cell, *layouts[i]));
        }
        for (std::size_t i = 0; i < grid_.cells.size(); ++i) {
            const GridCell& cell = grid_.cells[i];
            if (cell.rows == 1) continue;
            const auto first = heights.begin() + std::ptrdiff_t(cell.row);
            const auto last = first + std::ptrdiff_t(cell.rows) - 1;
            const double others = std::accumulate(first, last, spacingY_ * double(cell.rows - 1));
            *last = std::max(*last, CellHeight(cell, *layouts[i]) - others);
        }
        return heights;
    }

    void AddRows(PageFragment& fragment, double room) {
        std::vector<PageFragmentPtr> layouts;
        for (const GridCell& cell : grid_.cells)
            layouts.push_back(LayOutCell(cell));
        const std::vector<double> heights = RowHeights(layouts);
        BoxInsets insets = measure_.Insets(*table_.style, room);
        if (table_.continues) insets.borderTop = insets.paddingTop = 0;
        if (table_.isContinued) insets.borderBottom = insets.paddingBottom = 0;
        const double top = fragment.height + insets.Top();
        std::vector<double> tops; // of each row, and after the last
        double at = top + (heights.empty() || table_.continues ? 0 : spacingY_);
        for (const double height : heights) {
            tops.push_back(at);
            at += height + spacingY_;
        }
        tops.push_back(at);
        const double given = table_.isTooLong ? 0 : measure_.GivenHeight(*table_.style);
        const double bottom = std::max(at, top + given);
        PlaceTableBox(fragment, fragment.height, bottom + insets.Bottom() - fragment.height);
        PlaceRowBoxes(fragment, tops, heights, room);
        if (const std::size_t head = HeadRows(); head > 0 && head < heights.size()) {
            fragment.headTop = tops[0];
            fragment.headBottom = tops[head];
        }
        const double left = measure_.InsetLeft(*table_.style, room);
        for (std::size_t i = 0; i < layouts.size(); ++i) {
            const GridCell& cell = grid_.cells[i];
            const std::size_t last = cell.row + cell.rows - 1;
            const double height = tops[last] + heights[last] - tops[cell.row];
            const double shift = ContentShift(cell.box, height - layouts[i]->height);
            fragment.parts.push_back(
                {left + Left(cell), tops[cell.row], Stretched(layouts[i], height, shift)});
        }
        fragment.height = bottom + insets.Bottom();
    }

    std::size_t HeadRows() const {
        std::size_t rows = 0;
        while (rows < grid_.rows.size() &&
               layouter_.Box(layouter_.Box(grid_.rows[rows]).parent).style->display ==
                   CssDisplay::TableHeaderGroup)
            ++rows;
        return rows;
    }

    void PlaceTableBox(PageFragment& fragment, double top, double height) const {
        if (HasVisibleBox(table_))
            fragment.boxes.push_back(
                {id_, 0, top, fragment.width, height, table_.continues, table_.isContinued});
    }

    void PlaceRowBoxes(PageFragment& fragment, const std::vector<double>& tops,
                       const std::vector<double>& heights, double room) const {
        const double left = measure_.InsetLeft(*table_.style, room) + spacingX_;
        const double width =
            fragment.width - measure_.SideInsets(*table_.style, room) - 2 * spacingX_;
        for (std::size_t i = 0; i < grid_.rows.size(); ++i)
            for (const PageBoxId box : {layouter_.Box(grid_.rows[i]).parent, grid_.rows[i]})
                if (box != id_ && HasVisibleBox(layouter_.Box(box)))
                    fragment.boxes.push_back({box, left, tops[i], width, heights[i], false, false});
    }

    // Where `vertical-align` puts the content of a cell that is so much lower than its row.
    double ContentShift(PageBoxId cell, double free) const {
        switch (layouter_.Box(cell).style->verticalAlign) {
        case CssVerticalAlign::Middle: return free / 2;
        case CssVerticalAlign::Bottom: return free;
        default: return 0;
        }
    }

    void AddCaptions(PageFragment& fragment, CssCaptionSide side) {
        for (const PageBoxId caption : grid_.captions) {
            const PageBox& box = layouter_.Box(caption);
            if (box.text->captionSide != side) continue;
            const double width = fragment.width;
            const double content = width - measure_.SideInsets(*box.style, width) -
                                   measure_.SideMargins(*box.style, width);
            PageFragmentPtr part = layouter_.LayOutBlock(caption, std::max(0.0, content), width);
            fragment.height += measure_.Margin(*box.style, cssTop, width);
            const double height = part->height;
            fragment.parts.push_back(
                {measure_.Margin(*box.style, cssLeft, width), fragment.height, std::move(part)});
            fragment.height += height + measure_.Margin(*box.style, cssBottom, width);
        }
    }

    PageLayouter& layouter_;
    const BoxMeasure& measure_;
    const PageBox& table_;
    const PageBoxId id_;
    const TableGrid grid_;
    double containing_ = 0; // the width that percentages are of; 0 while it is not known
    double spacingX_ = 0, spacingY_ = 0;
    std::vector<double> lefts_; // of each column as if from left to right, and after the last
};
} // namespace

PageFragmentPtr LayOutTable(PageLayouter& layouter, PageBoxId table, double containing) {
    return TableLayouter(layouter, table).LayOut(containing);
}

WidthExtent TableExtentOf(PageLayouter& layouter, PageBoxId table) {
    return TableLayouter(layouter, table).Extent();
}
