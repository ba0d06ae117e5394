// The label beside the scroll bar of a page: how far it is scrolled, and under which heading.
#pragma once

#include "view/html/page_viewport.h"
#include "view/pane_window.h"
#include "view/view_style.h"

class PageScrollLabel {
  public:
    explicit PageScrollLabel(PaneWindow& window) : window_(window) {}

    void Forget(); // before another page is shown
    void Show();   // until its timer hides it
    void Hide();
    // Where it is shown. By estimates where what is above has not been measured.
    void Paint(Canvas& canvas, LineLayout& lines, const SystemStyle& system,
               const PageViewport& view, PageScroller& scroller);

  private:
    PaneWindow& window_;
    std::optional<std::vector<Heading>> headings_; // read when they are asked for first
    bool isShown_ = false;
};
