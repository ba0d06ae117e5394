// The line at the top of a page, held while the page is laid out anew: in another size, or in a
// window of another width.
#pragma once

#include "platform/windows/html_view/page/page_text.h"

class ScrollAnchor {
  public:
    // Before and after. At its start, and without an answer, a page stays where the engine has it.
    void Save(const PageDocument&, int topMargin);
    void Restore(PageDocument&);

  private:
    PageRange line_; // null for none
    int top_ = 0;    // of the line, from the upper edge of the view
    int scrollTop_ = 0;
};
