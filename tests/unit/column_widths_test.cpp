// How a table of a page shares its width among its columns.
#include "view/page/column_widths.h"

#include <doctest/doctest.h>

namespace {
using Widths = std::vector<double>;

CellWidth Cell(std::size_t column, double min, double max) {
    CellWidth cell;
    cell.column = column;
    cell.min = min;
    cell.max = max;
    return cell;
}

CellWidth Fixed(std::size_t column, double min, double max, double fixed) {
    CellWidth cell = Cell(column, min, max);
    cell.fixed = fixed;
    return cell;
}

CellWidth Percent(std::size_t column, double min, double max, double percentage) {
    CellWidth cell = Cell(column, min, max);
    cell.percentage = percentage;
    return cell;
}

TableWidths Table(std::size_t columns, std::vector<CellWidth> cells, double available) {
    TableWidths table;
    table.columns = columns;
    table.cells = std::move(cells);
    table.available = available;
    return table;
}
} // namespace

TEST_CASE("column widths: with room for all no line is broken") {
    CHECK(ColumnWidths(Table(2, {Cell(0, 10, 50), Cell(1, 20, 100)}, 400)) == Widths{50, 100});
}

TEST_CASE("column widths: the widest cell of a column counts") {
    const auto widths =
        ColumnWidths(Table(2, {Cell(0, 10, 50), Cell(0, 30, 40), Cell(1, 5, 5)}, 400));
    CHECK(widths == Widths{50, 5});
    const auto narrow =
        ColumnWidths(Table(2, {Cell(0, 10, 50), Cell(0, 30, 40), Cell(1, 5, 5)}, 1));
    CHECK(narrow == Widths{30, 5});
}

TEST_CASE("column widths: with too little room each word has its line") {
    CHECK(ColumnWidths(Table(2, {Cell(0, 10, 50), Cell(1, 20, 100)}, 20)) == Widths{10, 20});
}

TEST_CASE("column widths: in between each column gets its share of what it lacks") {
    // 30 of words, 120 more asked for, 60 of them there.
    CHECK(ColumnWidths(Table(2, {Cell(0, 10, 50), Cell(1, 20, 100)}, 90)) == Widths{30, 60});
}

TEST_CASE("column widths: a wider table is shared by what the columns ask for") {
    TableWidths table = Table(2, {Cell(0, 10, 50), Cell(1, 20, 100)}, 400);
    table.fixed = 300;
    CHECK(ColumnWidths(table) == Widths{100, 200});
}

TEST_CASE("column widths: a fixed width holds unless a word is wider") {
    CHECK(ColumnWidths(Table(2, {Fixed(0, 10, 50, 80), Cell(1, 20, 100)}, 400)) == Widths{80, 100});
    CHECK(ColumnWidths(Table(2, {Fixed(0, 10, 50, 5), Cell(1, 20, 100)}, 400)) == Widths{10, 100});
    TableWidths wide = Table(2, {Fixed(0, 10, 50, 80), Cell(1, 20, 100)}, 400);
    wide.fixed = 400;
    CHECK(ColumnWidths(wide) == Widths{80, 320});
    // Rather than that a column without any cell of its own becomes wide.
    wide.cells.pop_back();
    CHECK(ColumnWidths(wide) == Widths{400, 0});
    wide.cells.push_back(Cell(1, 0, 0));
    CHECK(ColumnWidths(wide) == Widths{80, 320});
}

TEST_CASE("column widths: a percentage is of the table") {
    TableWidths table = Table(2, {Percent(0, 10, 50, 25), Cell(1, 20, 100)}, 400);
    table.fixed = 200;
    CHECK(ColumnWidths(table) == Widths{50, 150});
    table.fixed.reset();
    // So wide that a quarter of it has room for the first column.
    CHECK(ColumnWidths(table) == Widths{50, 150});
    // And so wide that the other half has room for the second.
    CHECK(ColumnWidths(Table(2, {Percent(0, 10, 20, 50), Cell(1, 20, 100)}, 400)) ==
          Widths{100, 100});
    // A hundred times its width is more than there is.
    CHECK(ColumnWidths(Table(2, {Percent(0, 10, 50, 1), Cell(1, 20, 100)}, 4000)) ==
          Widths{40, 3960});
}

TEST_CASE("column widths: a percentage outweighs a fixed width in the same column") {
    TableWidths table =
        Table(2, {Percent(0, 10, 50, 25), Fixed(0, 10, 50, 40), Fixed(1, 10, 50, 60)}, 400);
    table.fixed = 400;
    CHECK(ColumnWidths(table) == Widths{100, 300});
}

TEST_CASE("column widths: percentages are at most the whole table") {
    TableWidths table = Table(3, {Percent(0, 0, 10, 80), Percent(1, 0, 10, 80)}, 100);
    table.fixed = 100;
    CHECK(ColumnWidths(table) == Widths{80, 20, 0});
}

TEST_CASE("column widths: a spanning cell widens the columns that have no width of their own") {
    CellWidth wide = Cell(0, 90, 150);
    wide.span = 2;
    CHECK(ColumnWidths(Table(2, {Fixed(0, 10, 50, 50), Cell(1, 20, 20), wide}, 400)) ==
          Widths{50, 100});
    CHECK(ColumnWidths(Table(2, {Cell(0, 10, 50), Cell(1, 20, 25), wide}, 400)) == Widths{100, 50});
    // The narrower one first, wherever it stands: so the wider one finds enough room.
    CellWidth wider = Cell(0, 90, 160);
    wider.span = 3;
    CHECK(ColumnWidths(Table(3, {Cell(2, 10, 10), wider, wide}, 400)) == Widths{75, 75, 10});
}

TEST_CASE("column widths: the text of a spanning cell widens no columns of fixed width") {
    CellWidth text = Cell(0, 30, 900);
    text.span = 2;
    const CellWidth left = Fixed(0, 10, 50, 80), right = Fixed(1, 20, 50, 60);
    CHECK(ColumnWidths(Table(2, {left, right, text}, 400)) == Widths{80, 60});
    CellWidth width = text;
    width.fixed = 280;
    CHECK(ColumnWidths(Table(2, {left, right, width}, 400)) == Widths{160, 120});
    // Its longest word has room all the same.
    CellWidth word = Cell(0, 280, 280);
    word.span = 2;
    CHECK(ColumnWidths(Table(2, {left, right, word}, 400)) == Widths{160, 120});
    CHECK(ColumnWidths(Table(2, {left, text}, 400)) == Widths{80, 320});
}

TEST_CASE(
    "column widths: the longest word of a spanning cell widens a column whose own text breaks") {
    CellWidth word = Cell(0, 150, 150);
    word.span = 2;
    TableWidths table = Table(2, {Cell(0, 100, 100), Cell(1, 20, 300), word}, 400);
    CHECK(ExtentOf(table).min == 150);
    table.fixed = 150;
    CHECK(ColumnWidths(table) == Widths{100, 50});
}

TEST_CASE("column widths: the percentage of a spanning cell goes to columns that have none") {
    CellWidth half = Cell(0, 10, 10);
    half.span = 2;
    half.percentage = 60;
    TableWidths table =
        Table(3, {Percent(0, 5, 10, 20), Cell(1, 5, 10), Cell(2, 5, 10), half}, 200);
    table.fixed = 200;
    CHECK(ColumnWidths(table) == Widths{40, 80, 80});
    half.percentage = 50;
    table.cells = {Cell(0, 5, 10), Cell(1, 5, 30), Cell(2, 5, 10), half};
    CHECK(ColumnWidths(table) == Widths{25, 75, 100});
}

TEST_CASE(
    "column widths: a spanning cell asks for what its columns would in a table of its width") {
    CellWidth wide = Cell(0, 150, 150);
    wide.span = 2;
    // A fixed width counts as it is, not as its words.
    CHECK(ColumnWidths(Table(2, {Fixed(0, 7, 50, 50), Cell(1, 8, 8), wide}, 400)) ==
          Widths{50, 100});
    CHECK(ColumnWidths(Table(2, {Percent(0, 7, 7, 20), Cell(1, 8, 8), wide}, 400)) ==
          Widths{30, 120});
    CHECK(ColumnWidths(Table(2, {Fixed(0, 7, 50, 50), Cell(1, 0, 0), wide}, 400)) ==
          Widths{50, 100});
    // Between words and lines each has its share of what it lacks, as in narrow tables.
    CHECK(ColumnWidths(Table(2, {Cell(0, 20, 80), Cell(1, 60, 120), wide}, 0)) == Widths{55, 95});
}

TEST_CASE("column widths: a column of the whole width leaves no table narrower than its room") {
    CellWidth whole = Cell(1, 20, 100);
    whole.percentage = 100;
    CHECK(ColumnWidths(Table(2, {Cell(0, 10, 50), whole}, 400)) == Widths{10, 390});
    CHECK(ColumnWidths(Table(2, {whole}, 400)) == Widths{0, 100});
}

TEST_CASE("column widths: spacing is around each column") {
    TableWidths table = Table(2, {Cell(0, 10, 50), Cell(1, 20, 100)}, 400);
    table.spacing = 4;
    CHECK(ExtentOf(table).min == 42);
    CHECK(ExtentOf(table).max == 162);
    table.fixed = 212;
    const Widths widths = ColumnWidths(table);
    CHECK(widths[0] + widths[1] == doctest::Approx(200));
}

TEST_CASE("column widths: a table without columns, and cells outside of it") {
    CHECK(ColumnWidths(Table(0, {}, 100)).empty());
    CHECK(ExtentOf(Table(0, {}, 100)).max == 0);
    CHECK(ColumnWidths(Table(1, {Cell(0, 1, 2), Cell(7, 50, 60)}, 100)) == Widths{2});
    CellWidth beyond = Cell(0, 5, 9);
    beyond.span = 1000;
    CHECK(ColumnWidths(Table(1, {beyond}, 100)) == Widths{9});
}
