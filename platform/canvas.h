// What a view paints on. All lengths are device pixels, from the view's top left corner.
#pragma once

#include "common/geometry.h"

class Canvas {
  public:
    virtual ~Canvas() = default;
    virtual void FillRect(const Rect&, Color) = 0;
    // Half of the colour over half of what is there.
    virtual void TintRect(const Rect&, Color) = 0;
};
