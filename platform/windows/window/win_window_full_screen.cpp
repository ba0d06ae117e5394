// The main window over the whole screen. Its menu bar is the window's own: to show it makes the
// inside lower.
#include "platform/shared/call_handler.h"
#include "platform/windows/window/win_window.h"

#include <utility>

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
        RestoreBeneath();
    reported_ = {};
    HandlePosChanged();
}

void WinWindow::EnterFullScreen() {
    Beneath beneath = {};
    beneath.placement.length = sizeof beneath.placement;
    GetWindowPlacement(Handle(), &beneath.placement);
    beneath.instead = instead_;
    beneath.menu = GetMenu(Handle());
    beneath_ = beneath; // before the window tells of its change
    const RECT screen = ScreenOf(Handle());
    SetMenu(Handle(), nullptr);
    SetWindowLongPtrW(Handle(), GWL_STYLE,
                      GetWindowLongPtrW(Handle(), GWL_STYLE) & ~LONG_PTR(WS_OVERLAPPEDWINDOW));
    SetWindowPos(Handle(), HWND_TOP, screen.left, screen.top, screen.right - screen.left,
                 screen.bottom - screen.top, SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
}

void WinWindow::RestoreBeneath() {
    const Beneath beneath = *beneath_;
    SetWindowLongPtrW(Handle(), GWL_STYLE,
                      GetWindowLongPtrW(Handle(), GWL_STYLE) | WS_OVERLAPPEDWINDOW);
    SetMenu(Handle(), beneath.menu);
    SetWindowPlacement(Handle(), &beneath.placement);
    SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
    instead_ = beneath.instead;
    beneath_.reset();
}

// An open menu takes the messages of the mouse itself.
void WinWindow::FollowPointer(const MSG& message) {
    const bool shown = GetMenu(Handle()) != nullptr, atEdge = message.pt.y <= ScreenOf(Handle()).top;
    if (atEdge && !shown) SetMenu(Handle(), beneath_->menu);
    if (!atEdge && shown) SetMenu(Handle(), nullptr);
}

// Comes back when the menu is closed.
LRESULT WinWindow::OpenMenuByKey(HWND window, WPARAM wParam, LPARAM lParam) {
    if (beneath_) SetMenu(window, beneath_->menu);
    const LRESULT result = DefWindowProcW(window, WM_SYSCOMMAND, wParam, lParam);
    if (beneath_ && Handle()) SetMenu(window, nullptr);
    return result;
}
