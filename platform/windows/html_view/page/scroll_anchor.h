// Keeps the top line of a page in place across a change of zoom or of the window's width.
#pragma once

#include "platform/windows/html_view/page/page_text.h"

class ScrollAnchor {
  public:
    // Before and after the change. At the top of the page, and on failure, nothing is restored.
    void Save(const PageDocument&, int topMargin);
    void Restore(PageDocument&);

  private:
    PageRange line_; // may be null
    int top_ = 0;    // of the line, relative to the view
    int scrollTop_ = 0;
};
