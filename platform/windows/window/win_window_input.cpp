// Keys and mouse of the main window and of all that is in it, before they are dispatched.
#include "platform/shared/call_handler.h"
#include "platform/windows/window/win_window.h"

namespace {

bool IsPress(UINT message) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_NCLBUTTONDOWN: // of a scroll bar
    case WM_MOUSEWHEEL: return true;
    default: return false;
    }
}

} // namespace

void WinWindow::ReportKeyDown(int keyCode, int shift) {
    CallHandler(events_.onKeyDown, keyCode, shift);
}

bool WinWindow::PreTranslateMessage(MSG& message) {
    const bool ours = Handle() && (message.hwnd == Handle() || IsChild(Handle(), message.hwnd));
    if (!ours) return false;
    if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) {
        if (windowed_) ShowMenuBarForKey(message);
        const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN ||
                           message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
        if (!isKey) return false;
        if (normalizeKey) normalizeKey(message);
        input_.HandleKey(message, events_);
        return translateKey && Handle() && translateKey(message);
    }
    const bool moved = message.message == WM_MOUSEMOVE || message.message == WM_NCMOUSEMOVE;
    if (moved && windowed_) FollowPointer(message);
    if (IsPress(message.message)) CallHandler(events_.onMouse);
    if (message.message != WM_MOUSEWHEEL) return false;
    if (GET_KEYSTATE_WPARAM(message.wParam) & MK_CONTROL) {
        input_.HandleZoomWheel(message, events_);
        return true;
    }
    const HWND focus = GetFocus(); // before Windows 10 the wheel goes there anyway
    if (!IsChild(ViewArea(), message.hwnd) && IsChild(ViewArea(), focus)) message.hwnd = focus;
    return false;
}

void RunMessageLoop(WinWindow& window) {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (window.PreTranslateMessage(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}
