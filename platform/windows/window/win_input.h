// Keyboard and wheel messages, before the focused view gets them.
#pragma once

#include "platform/window.h"
#include "platform/windows/base/win32.h"

int ShiftState(); // the ShiftMask at the time of the message being handled

class WinInput {
  public:
    // Raises onKeyDown or onKeyUp for a key message.
    void HandleKey(const MSG& message, const WindowEvents&);
    // Raises onZoom for whole notches of WM_MOUSEWHEEL with Ctrl.
    void HandleZoomWheel(const MSG& message, const WindowEvents&);

  private:
    struct {
        int code = 0, shift = 0;
    } heldKey_;             // the last key pressed
    int zoomRemainder_ = 0; // wheel delta of less than a notch
};
