// Keeps the top line of a page in place across a change of zoom or of the window's width.
#pragma once

#include "platform/windows/html_view/page/page_text.h"

class ScrollAnchor {
  public:
    // The caret position whose line is kept, or would be; null at the top of the page, and on
    // failure. Unless the page was scrolled meanwhile, it stays the same: taking the start of its
    // present line instead would drift back with every change.
    PageRange Line(const PageDocument&, int topMargin) const;

    // Before and after the change. Without a line nothing is restored.
    void Save(const PageDocument&, int topMargin);
    void Restore(PageDocument&);
    // A line that was brought to its place.
    void Set(const PageDocument&, const PageRange& line);

  private:
    bool Holds(const PageDocument&) const;

    PageRange line_; // may be null
    int top_ = 0;    // of the line, relative to the view
    int scrollTop_ = 0;
};
