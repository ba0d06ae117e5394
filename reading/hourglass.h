// The pointer of long work.
#pragma once

#include "platform/text_view.h"

// The view shows the hourglass while one lives.
class Hourglass {
  public:
    explicit Hourglass(TextView& view) : view_(view) { view_.SetCursorShape(CursorShape::Wait); }
    ~Hourglass() { view_.SetCursorShape(CursorShape::Default); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    TextView& view_;
};
