#include "platform/windows/text_pane/search_pump.h"

namespace {
constexpr ULONGLONG interval = 50; // milliseconds

bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
           (message >= WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK) ||
           message == WM_SYSCOMMAND; // a menu
}

bool Cancels(const MSG& message) {
    const bool escape = message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    const bool closes = message.message == WM_SYSCOMMAND && (message.wParam & 0xFFF0) == SC_CLOSE;
    const bool closeButton = message.message == WM_NCLBUTTONDOWN && message.wParam == HTCLOSE;
    return escape || closes || closeButton || message.message == WM_CLOSE ||
           message.message == WM_QUIT;
}
} // namespace

bool SearchPump::GoesOn() {
    const ULONGLONG now = GetTickCount64();
    if (cancelled_ || now - last_ < interval) return !cancelled_;
    last_ = now;
    MSG message = {};
    while (!cancelled_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        cancelled_ = Cancels(message);
        if (message.message == WM_QUIT)
            PostQuitMessage(static_cast<int>(message.wParam));
        else if (cancelled_ && message.message != WM_KEYDOWN) // what closes is for the main loop
            PostMessageW(message.hwnd, message.message, message.wParam, message.lParam);
        else if (!IsInput(message.message))
            DispatchMessageW(&message);
    }
    return !cancelled_;
}
