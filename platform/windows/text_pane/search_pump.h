// Keeps the window drawn during a long search.
#pragma once

#include "platform/windows/base/win32.h"

// Escape, and what closes the window, end the search; other keys and the mouse do nothing. To be
// asked often.
class SearchPump {
  public:
    bool GoesOn();

  private:
    ULONGLONG last_ = GetTickCount64();
    bool cancelled_ = false;
};
