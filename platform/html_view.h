// The port of the HTML view: one page in a browser engine.
#pragma once

#include "platform/geometry.h"

#include <string>

// A front without an HTML engine has none of these; the core then says so when an HTML book is
// opened.
class HtmlView {
  public:
    virtual ~HtmlView() = default;

    virtual void SetBounds(const Rect&) = 0;
    virtual void SetVisible(bool) = 0;
};
