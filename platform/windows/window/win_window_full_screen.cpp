// The main window over the whole screen. Its menu bar is the window's own: to show it makes the
// inside lower.
#include "platform/shared/call_handler.h"
#include "platform/windows/window/win_window.h"
#include "platform/windows/window/window_messages.h"

namespace {

RECT ScreenOf(HWND window) {
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcMonitor;
}

} // namespace

void WinWindow::SetFullScreen(bool on) {
    if (!open_ || on == IsFullScreen()) return;
    if (on)
        EnterFullScreen();
    else
        LeaveFullScreen();
    reported_ = {};
    HandlePosChanged();
}

void WinWindow::EnterFullScreen() {
    WindowedState windowed = {};
    windowed.placement.length = sizeof windowed.placement;
    GetWindowPlacement(Handle(), &windowed.placement);
    windowed.instead = instead_;
    windowed.menu = GetMenu(Handle());
    windowed_ = windowed; // before the window reports its change
    const RECT screen = ScreenOf(Handle());
    SetMenu(Handle(), nullptr);
    SetWindowLongPtrW(Handle(), GWL_STYLE,
                      GetWindowLongPtrW(Handle(), GWL_STYLE) & ~LONG_PTR(WS_OVERLAPPEDWINDOW));
    SetWindowPos(Handle(), HWND_TOP, screen.left, screen.top, screen.right - screen.left,
                 screen.bottom - screen.top, SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
}

void WinWindow::LeaveFullScreen() {
    const WindowedState windowed = *windowed_;
    SetWindowLongPtrW(Handle(), GWL_STYLE,
                      GetWindowLongPtrW(Handle(), GWL_STYLE) | WS_OVERLAPPEDWINDOW);
    SetMenu(Handle(), windowed.menu);
    SetWindowPlacement(Handle(), &windowed.placement);
    SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
    instead_ = windowed.instead;
    windowed_.reset();
}

// At the upper edge is a border; what is not within a window's client area may be the menu bar. An
// open menu takes the messages of the mouse itself.
void WinWindow::FollowPointer(const MSG& message) {
    constexpr int edge = 3; // pixels
    if (message.pt.y < ScreenOf(Handle()).top + edge)
        ShowMenuBar(true);
    else if (message.message == WM_MOUSEMOVE)
        ShowMenuBar(false);
}

void WinWindow::ShowMenuBar(bool shown) const {
    if (windowed_ && shown != (GetMenu(Handle()) != nullptr))
        SetMenu(Handle(), shown ? windowed_->menu : nullptr);
}

// Before the key that opens a menu is dispatched: the window that has the keyboard looks for the
// menu itself. Posted for when the key has opened none.
void WinWindow::ShowMenuBarForKey(const MSG& message) const {
    const bool alone = message.message == WM_SYSKEYUP && message.wParam == VK_MENU;
    if (!alone && message.message != WM_SYSCHAR) return;
    ShowMenuBar(true);
    PostMessageW(Handle(), MenuBarLeftMessage, 0, 0);
}
