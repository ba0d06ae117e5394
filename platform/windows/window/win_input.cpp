#include "platform/windows/window/win_input.h"

#include "platform/shared/call_handler.h"

int ShiftState() {
    const auto held = [](int key, int mask) { return GetKeyState(key) < 0 ? mask : 0; };
    return held(VK_SHIFT, ShiftKey) | held(VK_CONTROL, CtrlKey) | held(VK_MENU, AltKey);
}

void WinInput::HandleKey(const MSG& message, const WindowEvents& events) {
    const int code = static_cast<int>(message.wParam), shift = ShiftState();
    if (code == VK_F4 && shift == AltKey) return; // the system closes the window
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
        heldKey_ = {code, shift};
        CallHandler(events.onKeyDown, code, shift);
    } else {
        // Ctrl may be released before the other key.
        const int heldShift = code == heldKey_.code ? heldKey_.shift : 0;
        CallHandler(events.onKeyUp, code, shift | heldShift);
    }
}

void WinInput::HandleZoomWheel(const MSG& message, const WindowEvents& events) {
    zoomRemainder_ += GET_WHEEL_DELTA_WPARAM(message.wParam);
    const int steps = zoomRemainder_ / WHEEL_DELTA;
    zoomRemainder_ -= steps * WHEEL_DELTA;
    if (steps != 0) CallHandler(events.onZoom, steps);
}
