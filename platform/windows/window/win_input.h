// Keys and the wheel, as the main window sees them before the view that has the keyboard does.
#pragma once

#include "platform/window.h"
#include "platform/windows/base/win32.h"

class WinInput {
  public:
    // `message` is a key's. Tells the form of it.
    void Key(const MSG& message, const WindowEvents&);
    // `message` is the wheel's, turned with Ctrl held. Tells the form of whole notches.
    void Zoom(const MSG& message, const WindowEvents&);

  private:
    struct {
        int code = 0, shift = 0;
    } heldKey_;        // the key that went down last
    int zoomRest_ = 0; // a turn of less than a notch
};
