#include "view/page/collapsed_borders.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
// Edges that are decided on; a larger table keeps the borders of each cell.
constexpr std::size_t maxEdges = std::size_t{1} << 20;

// What a border is of. Later ones win over earlier ones.
enum class Owner : std::uint8_t { None, Table, Column, RowGroup, Row, Cell };

struct Edge {
    float width = 0;
    CssBorderStyle style = CssBorderStyle::None;
    Owner owner = Owner::None;
    bool whole = false; // the cell on one side has all of it
    CssColor color;
};

// One side of a cell, which may have several edges.
struct Side {
    Edge edge; // that wins
    bool uneven = false;
};
using Sides = std::array<Side, 4>;

int RankOf(CssBorderStyle style) {
    switch (style) {
    case CssBorderStyle::Double: return 8;
    case CssBorderStyle::Solid: return 7;
    case CssBorderStyle::Dashed: return 6;
    case CssBorderStyle::Dotted: return 5;
    case CssBorderStyle::Ridge: return 4;
    case CssBorderStyle::Outset: return 3;
    case CssBorderStyle::Groove: return 2;
    case CssBorderStyle::Inset: return 1;
    default: return 0;
    }
}

// Of two that are alike the first one: the upper one, and the one to the left.
bool Wins(const Edge& challenger, const Edge& edge) {
    if (edge.style == CssBorderStyle::Hidden) return false;
    if (challenger.style == CssBorderStyle::Hidden) return true;
    if (challenger.width != edge.width) return challenger.width > edge.width;
    const int rank = RankOf(challenger.style), other = RankOf(edge.style);
    return rank != other ? rank > other : challenger.owner > edge.owner;
}

Edge EdgeOf(const CssBoxStyle& style, CssSide side, Owner owner) {
    return {style.borderWidth[side], style.borderStyle[side], owner, false,
            style.borderColor[side]};
}

} // namespace

// The borders of a table between its rows and columns.
class CollapsedBorders::EdgeGrid {
  public:
    EdgeGrid(std::size_t rows, std::size_t columns)
        : rows_(rows), columns_(columns), above_((rows + 1) * columns),
          before_((columns + 1) * rows) {}

    // Around the cells from a row and a column up to others.
    struct Area {
        std::size_t top = 0, left = 0, bottom = 0, right = 0;
    };
    void Offer(const Area& area, const CssBoxStyle& style, Owner owner) {
        ForSides(area, [&](CssSide side, Edge& edge) {
            const Edge challenger = EdgeOf(style, side, owner);
            if (Wins(challenger, edge)) edge = challenger;
        });
    }
    Sides Around(const Area& area) {
        Sides around;
        std::array<bool, 4> known = {};
        ForSides(area, [&](CssSide side, const Edge& edge) {
            Side& own = around[side];
            own.uneven |=
                known[side] && (edge.width != own.edge.width || edge.style != own.edge.style ||
                                edge.color != own.edge.color);
            if (!known[side] || Wins(edge, own.edge)) own.edge = edge;
            known[side] = true;
        });
        return around;
    }
    // Leaves the edges of an uneven side to the cells beyond it, each of which has one.
    void LeaveUneven(const Area& area) {
        const Sides around = Around(area);
        const std::array<bool, 4> isInner{area.top > 0, area.right < columns_,
                                          area.bottom<rows_, area.left> 0};
        ForSides(area, [&](CssSide side, Edge& edge) {
            edge.whole |= around[side].uneven && isInner[side];
        });
    }
    Area All() const { return {0, 0, rows_, columns_}; }

  private:
    template <typename Visit>
    void ForSides(const Area& area, Visit visit) {
        for (std::size_t column = area.left; column < area.right; ++column) {
            visit(cssTop, above_[area.top * columns_ + column]);
            visit(cssBottom, above_[area.bottom * columns_ + column]);
        }
        for (std::size_t row = area.top; row < area.bottom; ++row) {
            visit(cssLeft, before_[row * (columns_ + 1) + area.left]);
            visit(cssRight, before_[row * (columns_ + 1) + area.right]);
        }
    }

    std::size_t rows_, columns_;
    std::vector<Edge> above_, before_;
};

namespace {
// Of a border of an odd width the cell below or to the right has the larger part, within the table
// as at its edges.
float CellPart(CssSide side, const Side& of) {
    const float width = of.edge.width;
    if (of.edge.whole) return of.uneven ? 0 : width;
    return side == cssTop || side == cssLeft ? std::ceil(width / 2) : std::floor(width / 2);
}

void SetBorder(CssBoxStyle& style, CssSide side, const Edge& edge, float width) {
    style.borderWidth[side] = width;
    style.borderStyle[side] = width > 0 ? edge.style : CssBorderStyle::None;
    style.borderColor[side] = width > 0 ? edge.color : CssColor{};
}

CollapsedBorders::EdgeGrid::Area AreaOf(const GridCell& cell, const TableGrid& grid) {
    return {cell.row, cell.column, cell.row + cell.rows,
            std::min(cell.column + cell.columns, grid.columns)};
}

// The columns from left to right as they are seen.
TableGrid Mirrored(TableGrid grid) {
    for (std::vector<GridCell>* cells : {&grid.cells, &grid.columnBoxes})
        for (GridCell& cell : *cells)
            cell.column = grid.columns - std::min(cell.column + cell.columns, grid.columns);
    return grid;
}

template <typename WidthOf>
void SetBorders(CssBoxStyle& style, const Sides& around, WidthOf widthOf) {
    for (const CssSide side : {cssTop, cssRight, cssBottom, cssLeft})
        SetBorder(style, side, around[side].edge, widthOf(side, around[side]));
}
} // namespace

void CollapsedBorders::Apply(PageBoxId table, const TableGrid& grid) {
    if (boxes_[table].text->direction == CssDirection::RightToLeft)
        ApplyVisual(table, Mirrored(grid));
    else
        ApplyVisual(table, grid);
}

void CollapsedBorders::ApplyVisual(PageBoxId table, const TableGrid& grid) {
    const std::size_t rows = grid.rows.size(), columns = grid.columns;
    if (rows == 0 || columns == 0 || rows + 1 > maxEdges / (columns + 1)) return;
    EdgeGrid edges(rows, columns);
    OfferAll(edges, table, grid);
    for (const GridCell& cell : grid.cells)
        if (cell.rows > 1 || cell.columns > 1) edges.LeaveUneven(AreaOf(cell, grid));
    for (const GridCell& cell : grid.cells)
        Change(cell.box, [&, around = edges.Around(AreaOf(cell, grid))](CssBoxStyle& style) {
            SetBorders(style, around, CellPart);
        });
    const auto remove = [](CssBoxStyle& style) {
        SetBorders(style, {}, [](CssSide, const Side&) { return 0.0f; });
    };
    for (const PageBoxId row : grid.rows) {
        Change(row, remove);
        if (boxes_[row].parent != table) Change(boxes_[row].parent, remove);
    }
    Change(table, [&, around = edges.Around(edges.All())](CssBoxStyle& style) {
        style.padding = CssBoxStyle{}.padding;
        SetBorders(style, around,
                   [](CssSide side, const Side& of) { return of.edge.width - CellPart(side, of); });
    });
}

void CollapsedBorders::OfferAll(EdgeGrid& edges, PageBoxId table, const TableGrid& grid) const {
    const std::size_t rows = grid.rows.size(), columns = grid.columns;
    for (const GridCell& cell : grid.cells)
        edges.Offer(AreaOf(cell, grid), *boxes_[cell.box].style, Owner::Cell);
    for (std::size_t row = 0; row < rows; ++row)
        edges.Offer({row, 0, row + 1, columns}, *boxes_[grid.rows[row]].style, Owner::Row);
    for (std::size_t row = 0, end = 0; row < rows; row = end) {
        const PageBoxId group = boxes_[grid.rows[row]].parent;
        end = row + 1;
        while (end < rows && boxes_[grid.rows[end]].parent == group)
            ++end;
        if (group == table) continue;
        edges.Offer({row, 0, end, columns}, *boxes_[group].style, Owner::RowGroup);
    }
    for (const GridCell& column : grid.columnBoxes)
        edges.Offer({0, column.column, rows, std::min(column.column + column.columns, columns)},
                    *boxes_[column.box].style, Owner::Column);
    edges.Offer(edges.All(), *boxes_[table].style, Owner::Table);
}

template <typename Do>
void CollapsedBorders::Change(PageBoxId box, Do work) {
    CssBoxStyle style = *boxes_[box].style;
    work(style);
    boxes_[box].style = styles_.Find(style).value;
}
