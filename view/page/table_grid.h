// Which cells of a table stand in which rows and columns (CSS 2.1, 17.5; HTML, "Forming a table").
#pragma once

#include "view/page/page_layouter.h"

struct GridCell {
    PageBoxId box = noPageBox;
    std::size_t row = 0, column = 0, rows = 1, columns = 1;
};

struct TableGrid {
    std::size_t columns = 0;
    std::vector<PageBoxId> rows;       // in the order that they are shown in
    std::vector<GridCell> cells;       // row by row
    std::vector<GridCell> columnBoxes; // of `col` elements
    std::vector<PageBoxId> captions;
};

TableGrid GridOf(const PageBoxes& boxes, PageNumbers& numbers, PageBoxId table);
