#include "platform/windows/window/win_input.h"

#include "platform/windows/base/handler.h"

namespace {

// As of the message being handled, not of this moment.
int ShiftMaskNow() {
    const auto held = [](int key, int mask) { return GetKeyState(key) < 0 ? mask : 0; };
    return held(VK_SHIFT, ShiftKey) | held(VK_CONTROL, CtrlKey) | held(VK_MENU, AltKey);
}

} // namespace

void WinInput::Key(const MSG& message, const WindowEvents& events) {
    const int code = static_cast<int>(message.wParam), shift = ShiftMaskNow();
    if (code == VK_F4 && shift == AltKey) return; // the system closes the window
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
        heldKey_ = {code, shift};
        CallHandler(events.onKeyDown, code, shift);
    } else {
        // "Ctrl and +" is that also for a hand that lets Ctrl go first.
        const int heldShift = code == heldKey_.code ? heldKey_.shift : 0;
        CallHandler(events.onKeyUp, code, shift | heldShift);
    }
}

void WinInput::Zoom(const MSG& message, const WindowEvents& events) {
    zoomRest_ += GET_WHEEL_DELTA_WPARAM(message.wParam);
    const int steps = zoomRest_ / WHEEL_DELTA;
    zoomRest_ -= steps * WHEEL_DELTA;
    if (steps != 0) CallHandler(events.onZoom, steps);
}
