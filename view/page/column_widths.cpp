#include "view/page/column_widths.h"

#include <algorithm>
#include <functional>

namespace {
struct Column {
    double min = 0, max = 0;
    double percentage = 0; // 0 for none
    bool fixed = false;    // its max is what its style says
    bool hasCell = false;  // of its own
};
using Columns = std::vector<Column>;
using Measure = std::function<double(const Column&)>;

double Sum(const Columns& columns, std::size_t from, std::size_t to, const Measure& measure) {
    double sum = 0;
    for (std::size_t i = from; i < to; ++i)
        sum += measure(columns[i]);
    return sum;
}

void AddCell(Column& column, const CellWidth& cell) {
    column.hasCell = true;
    column.min = std::max(column.min, cell.min);
    if (cell.percentage) column.percentage = std::max(column.percentage, *cell.percentage);
    if (cell.fixed && !column.fixed) { // the texts of other cells do not widen it
        column.fixed = true;
        column.max = std::max(column.min, *cell.fixed);
    } else if (cell.fixed) {
        column.max = std::max(column.max, *cell.fixed);
    } else if (!column.fixed) {
        column.max = std::max(column.max, cell.max);
    }
    column.max = std::max(column.max, column.min);
}

double Spacing(const TableWidths& table) {
    return table.columns == 0 ? 0 : table.spacing * static_cast<double>(table.columns + 1);
}

// What a table asks for whose columns leave others no room by their percentages: wider than any.
constexpr double unlimitedWidth = 1e6;

// The greatest width that a table of these columns asks for: so wide that no percentage leaves its
// column, or the rest of the columns, too little.
double MaxWidth(const Columns& columns) {
    double max = 0, rest = 0, percentages = 0;
    for (const Column& column : columns) {
        max += column.max;
        percentages += column.percentage;
        if (column.percentage == 0) rest += column.max;
    }
    double asked = max;
    for (const Column& column : columns)
        if (column.percentage > 0) asked = std::max(asked, column.max * 100 / column.percentage);
    if (percentages > 0 && rest > 0)
        asked = percentages < 100 ? std::max(asked, rest * 100 / (100 - percentages))
                                  : std::max(asked, unlimitedWidth);
    return asked;
}

// Whose width is shared, which decides who gets the rest when every column has its greatest width.
enum class Sharing { OfTable, OfSpanningWidth, OfSpanningText };

// The rest goes to columns without a width of their own, else to those of fixed width, else to
// all. Those without a cell of their own get of a
// table only what no other wants. The text of a cell over several columns
// widens none of fixed width, as the texts of the columns' own cells do not.
void ShareRest(std::vector<double>& widths, const Columns& columns, double rest, Sharing sharing) {
    const bool fixedToo = sharing != Sharing::OfSpanningText;
    const std::function<bool(const Column&)> groups[] = {
        [](const Column& c) { return !c.fixed && c.percentage == 0 && c.max > 0; },
        [&](const Column& c) {
            return !c.fixed && c.percentage == 0 && (c.hasCell || sharing != Sharing::OfTable);
        },
        [&](const Column& c) { return c.fixed && c.percentage == 0 && fixedToo; },
        [](const Column& c) { return c.percentage > 0; },
        [&](const Column& c) { return !c.fixed || fixedToo; }};
    for (const auto& isIn : groups) {
        double weights = 0;
        std::size_t count = 0;
        for (const Column& column : columns)
            if (isIn(column)) weights += column.max, ++count;
        if (count == 0) continue;
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (isIn(columns[i]))
                widths[i] += weights > 0 ? rest * columns[i].max / weights
                                         : rest / static_cast<double>(count);
        return;
    }
}

std::vector<double> Distributed(const Columns& columns, double width, Sharing sharing) {
    const double minPercent = width / 100;
    const auto percent = [&](const Column& c) {
        return std::max(c.min, c.percentage * minPercent);
    };
    // Each guess gives more columns what they ask for; the width lies between two of them.
    const Measure guesses[] = {
        [](const Column& c) { return c.min; },
        [&](const Column& c) { return c.percentage > 0 ? percent(c) : c.min; },
        [&](const Column& c) { return c.percentage > 0 ? percent(c)
                                      : c.fixed        ? c.max
                                                       : c.min; },
        [&](const Column& c) { return c.percentage > 0 ? percent(c) : c.max; }};
    std::vector<double> widths(columns.size());
    const Measure* below = &guesses[0];
    double sumBelow = Sum(columns, 0, columns.size(), *below);
    for (const Measure& guess : guesses) {
        const double sum = Sum(columns, 0, columns.size(), guess);
        if (sum > width) {
            const double share =
                sum > sumBelow ? std::clamp((width - sumBelow) / (sum - sumBelow), 0.0, 1.0) : 0;
            for (std::size_t i = 0; i < columns.size(); ++i)
                widths[i] = (*below)(columns[i]) * (1 - share) + guess(columns[i]) * share;
            return widths;
        }
        below = &guess;
        sumBelow = sum;
    }
    for (std::size_t i = 0; i < columns.size(); ++i)
        widths[i] = (*below)(columns[i]);
    ShareRest(widths, columns, width - sumBelow, sharing);
    return widths;
}

// What a cell over several columns asks for as a percentage goes to those that ask for none, by
// their greatest widths or evenly if they have none.
void AddSpanningPercentage(Columns& columns, const CellWidth& cell) {
    double rest = cell.percentage.value_or(0);
    double weights = 0;
    std::size_t count = 0;
    for (const Column& column : columns) {
        rest -= column.percentage;
        if (column.percentage == 0) weights += column.max, ++count;
    }
    if (rest <= 0) return;
    for (Column& column : columns)
        if (column.percentage == 0)
            column.percentage =
                weights > 0 ? rest * column.max / weights : rest / static_cast<double>(count);
}

void AddSpanningCell(Columns& columns, const CellWidth& cell, double spacing) {
    const auto from = columns.begin() + std::ptrdiff_t(cell.column);
    const auto to =
        columns.begin() + std::ptrdiff_t(std::min(columns.size(), cell.column + cell.span));
    Columns spanned(from, to);
    AddSpanningPercentage(spanned, cell);
    const double between = spacing * static_cast<double>(spanned.size() - 1);
    const double max = std::max(cell.min, cell.fixed.value_or(cell.max));
    const auto mins =
        Distributed(spanned, std::max(0.0, cell.min - between), Sharing::OfSpanningWidth);
    for (std::size_t i = 0; i < spanned.size(); ++i)
        spanned[i].min = std::max(spanned[i].min, mins[i]);
    const auto maxs = Distributed(spanned, std::max(0.0, max - between),
                                  cell.fixed ? Sharing::OfSpanningWidth : Sharing::OfSpanningText);
    for (std::size_t i = 0; i < spanned.size(); ++i)
        spanned[i].max = std::max({spanned[i].max, spanned[i].min, maxs[i]});
    std::copy(spanned.begin(), spanned.end(), from);
}

Columns Measured(const TableWidths& table) {
    Columns columns(table.columns);
    std::vector<const CellWidth*> spanning;
    for (const CellWidth& cell : table.cells) {
        if (cell.column >= columns.size()) continue;
        if (cell.span <= 1)
            AddCell(columns[cell.column], cell);
        else
            spanning.push_back(&cell);
    }
    // The narrower spans first, so that a wide one finds what they have widened.
    std::stable_sort(spanning.begin(), spanning.end(),
                     [](const CellWidth* a, const CellWidth* b) { return a->span < b->span; });
    for (const CellWidth* cell : spanning)
        AddSpanningCell(columns, *cell, table.spacing);
    double percentages = 0; // together at most the whole table
    for (Column& column : columns) {
        column.percentage = std::clamp(column.percentage, 0.0, 100.0 - percentages);
        percentages += column.percentage;
    }
    return columns;
}
} // namespace

std::vector<double> ColumnWidths(const TableWidths& table) {
    const Columns columns = Measured(table);
    const double spacing = Spacing(table);
    const double min = Sum(columns, 0, columns.size(), [](const Column& c) { return c.min; });
    const double asked = table.fixed ? *table.fixed - spacing
                                     : std::min(MaxWidth(columns), table.available - spacing);
    return Distributed(columns, std::max(min, asked), Sharing::OfTable);
}

WidthExtent ExtentOf(const TableWidths& table) {
    const Columns columns = Measured(table);
    const double spacing = Spacing(table);
    const double min =
        spacing + Sum(columns, 0, columns.size(), [](const Column& c) { return c.min; });
    const double max = spacing + MaxWidth(columns);
    if (table.fixed) return {std::max(min, *table.fixed), std::max(min, *table.fixed)};
    return {min, std::max(min, max)};
}
