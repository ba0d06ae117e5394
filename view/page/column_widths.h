// How wide the columns of a table are (CSS Tables 3, "Distributing Width to Columns").
#pragma once

#include "view/page/width_extent.h"

#include <cstddef>
#include <optional>
#include <vector>

// What a cell asks for, with its padding and borders. Device pixels.
struct CellWidth {
    std::size_t column = 0, span = 1;
    double min = 0, max = 0; // of its text: each word in a line, and no line broken
    // As its style says. A percentage is of the table.
    std::optional<double> fixed, percentage;
};

struct TableWidths {
    std::size_t columns = 0;
    std::vector<CellWidth> cells; // also of `col` elements, which have no text
    double spacing = 0;           // around each column
    double available = 0;         // for the table, with its spacing
    std::optional<double> fixed;  // as its style says; it becomes wider if its words are
};

// One for each column, without spacing.
std::vector<double> ColumnWidths(const TableWidths& table);

// With its spacing.
WidthExtent ExtentOf(const TableWidths& table);
