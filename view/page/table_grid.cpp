#include "view/page/table_grid.h"

#include <algorithm>

namespace {
// HTML's own limits of `colspan` and `rowspan`, and of the columns that cells can make.
constexpr int maxColumnSpan = 1000, maxRowSpan = 65534;
constexpr std::size_t maxColumns = 4096;

class GridBuilder {
  public:
    GridBuilder(const PageBoxes& boxes, PageNumbers& numbers) : boxes_(boxes), numbers_(numbers) {}

    TableGrid Build(PageBoxId table) {
        // The head is shown first and the foot last, wherever they are written.
        for (const CssDisplay shown :
             {CssDisplay::TableHeaderGroup, CssDisplay::None, CssDisplay::TableFooterGroup})
            AddGroups(table, shown);
        return std::move(grid_);
    }

  private:
    std::size_t Span(PageBoxId box, HtmlName attribute, int max) const {
        return std::size_t(std::clamp(numbers_.Number(box, attribute).value_or(1), 1, max));
    }

    template <typename Visit>
    void ForChildren(PageBoxId parent, Visit visit) const {
        for (PageBoxId child = boxes_.FirstChild(parent); child != noPageBox;
             child = boxes_[child].nextSibling)
            visit(child);
    }

    static CssDisplay ShownWith(const PageBox& box) {
        const CssDisplay display = box.style->display;
        const bool edge =
            box.kind == PageBoxKind::RowGroup &&
            (display == CssDisplay::TableHeaderGroup || display == CssDisplay::TableFooterGroup);
        return edge ? display : CssDisplay::None;
    }

    void AddGroups(PageBoxId table, CssDisplay shown) {
        ForChildren(table, [&](PageBoxId child) {
            if (ShownWith(boxes_[child]) != shown) return;
            switch (boxes_[child].kind) {
            case PageBoxKind::RowGroup:
                ForChildren(child, [&](PageBoxId row) { AddRow(row); });
                EndGroup();
                break;
            case PageBoxKind::Row: AddRow(child); break;
            case PageBoxKind::Column: AddColumn(child); break;
            case PageBoxKind::Columns: AddColumns(child); break;
            case PageBoxKind::Caption: grid_.captions.push_back(child); break;
            default: break;
            }
        });
        EndGroup();
    }

    void AddColumns(PageBoxId columns) {
        if (boxes_.FirstChild(columns) == noPageBox) return AddColumn(columns);
        ForChildren(columns, [&](PageBoxId column) { AddColumn(column); });
    }

    void AddColumn(PageBoxId box) {
        GridCell column;
        column.box = box;
        column.column = nextColumn_;
        column.columns = Span(box, HtmlName::Span, maxColumnSpan);
        nextColumn_ += column.columns;
        if (nextColumn_ > maxColumns) return;
        grid_.columns = std::max(grid_.columns, nextColumn_);
        grid_.columnBoxes.push_back(column);
    }

    void AddRow(PageBoxId row) {
        if (boxes_[row].text->visibility == CssVisibility::Collapse) return;
        const std::size_t number = grid_.rows.size();
        grid_.rows.push_back(row);
        std::size_t column = 0;
        ForChildren(row, [&](PageBoxId cell) {
            while (column < takenUntil_.size() && takenUntil_[column] > number)
                ++column;
            column = AddCell(cell, number, column);
        });
    }

    // The column after it.
    std::size_t AddCell(PageBoxId box, std::size_t row, std::size_t column) {
        GridCell cell{box, row, column, 1, Span(box, HtmlName::Colspan, maxColumnSpan)};
        cell.rows = Span(box, HtmlName::Rowspan, maxRowSpan);
        const std::size_t end = column + cell.columns;
        if (end > maxColumns) return column;
        if (takenUntil_.size() < end) takenUntil_.resize(end);
        for (std::size_t i = column; i < end; ++i)
            takenUntil_[i] = std::max(takenUntil_[i], row + cell.rows);
        grid_.columns = std::max(grid_.columns, end);
        grid_.cells.push_back(cell);
        return end;
    }

    // No cell reaches out of its group.
    void EndGroup() {
        const std::size_t end = grid_.rows.size();
        for (auto cell = grid_.cells.rbegin(); cell != grid_.cells.rend(); ++cell) {
            if (cell->row < groupStart_) break;
            cell->rows = std::min(cell->rows, end - cell->row);
        }
        takenUntil_.clear();
        groupStart_ = end;
    }

    const PageBoxes& boxes_;
    PageNumbers& numbers_;
    TableGrid grid_;
    std::vector<std::size_t> takenUntil_; // of each column: the row after the cell that spans it
    std::size_t nextColumn_ = 0, groupStart_ = 0;
};
} // namespace

TableGrid GridOf(const PageBoxes& boxes, PageNumbers& numbers, PageBoxId table) {
    return GridBuilder(boxes, numbers).Build(table);
}
