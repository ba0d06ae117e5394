// Tables whose cells share their borders (CSS 2.1, 17.6.2).
//
// Whose border is drawn between two cells does not depend on how large they are. So it is decided
// on the boxes: each cell gets its part of the borders around it as its own ones.
#pragma once

#include "formats/css/css_pool.h"
#include "view/page/page_box.h"
#include "view/page/table_grid.h"

class CollapsedBorders {
  public:
    CollapsedBorders(std::vector<PageBox>& boxes, CssPool<CssBoxStyle>& styles)
        : boxes_(boxes), styles_(styles) {}

    void Apply(PageBoxId table, const TableGrid& grid);

    class EdgeGrid;

  private:
    void ApplyVisual(PageBoxId table, const TableGrid& grid); // its columns from left to right
    void OfferAll(EdgeGrid& edges, PageBoxId table, const TableGrid& grid) const;
    template <typename Do>
    void Change(PageBoxId box, Do work);

    std::vector<PageBox>& boxes_;
    CssPool<CssBoxStyle>& styles_;
};
