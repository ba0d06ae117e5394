// The place, size and state of the main window.
#include "platform/shared/call_handler.h"
#include "platform/windows/window/win_window.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double twipsPerInch = 1440;
constexpr int defaultWidth = 860, defaultHeight = 960; // pixels at 96 dpi

Rect ToRect(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

std::vector<Rect> WorkAreas() {
    std::vector<Rect> screens;
    const auto add = [](HMONITOR monitor, HDC, RECT*, LPARAM found) -> BOOL {
        MONITORINFO info = {};
        info.cbSize = sizeof info;
        if (GetMonitorInfoW(monitor, &info))
            reinterpret_cast<std::vector<Rect>*>(found)->push_back(ToRect(info.rcWork));
        return TRUE;
    };
    EnumDisplayMonitors(nullptr, nullptr, add, reinterpret_cast<LPARAM>(&screens));
    return screens;
}

} // namespace

// A comfortable width for reading, in the middle of the screen.
void WinWindow::SetDefaultBounds() {
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const Rect available = ToRect(work);
    const int dpi = WindowDpi(Handle());
    const int width = std::min(MulDiv(defaultWidth, dpi, USER_DEFAULT_SCREEN_DPI),
                               MulDiv(available.width, 9, 10));
    const int height = std::min(MulDiv(defaultHeight, dpi, USER_DEFAULT_SCREEN_DPI),
                                MulDiv(available.height, 9, 10));
    Move({available.left + (available.width - width) / 2,
          available.top + (available.height - height) / 2, width, height});
}

WindowState WinWindow::State() const {
    if (!open_) return initialState_;
    if (IsIconic(Handle())) return WindowState::Minimized;
    return IsZoomed(Handle()) ? WindowState::Maximized : WindowState::Normal;
}

void WinWindow::SetState(WindowState state) {
    if (!open_) {
        initialState_ = state;
        return;
    }
    if (state == State()) return; // ShowWindow would activate a normal window
    constexpr int commands[] = {SW_SHOWNORMAL, SW_MINIMIZE, SW_MAXIMIZE};
    ShowWindow(Handle(), commands[static_cast<int>(state)]);
}

Rect WinWindow::Bounds() const {
    RECT bounds = {};
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    // GetWindowRect of a minimised window is off-screen.
    if (IsIconic(Handle()) && GetWindowPlacement(Handle(), &placement))
        bounds = placement.rcNormalPosition;
    else
        GetWindowRect(Handle(), &bounds);
    return RequestedBounds(instead_, ToRect(bounds));
}

void WinWindow::Move(const Rect& bounds) {
    const double scale = static_cast<double>(WindowDpi(Handle())) / USER_DEFAULT_SCREEN_DPI;
    const Rect shown = ReachablePlace(bounds, WorkAreas(), scale);
    instead_.reset();
    if (shown != bounds) instead_ = {bounds, shown};
    SetWindowPos(Handle(), nullptr, shown.left, shown.top, shown.width, shown.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

int WinWindow::InnerWidth() const {
    RECT inner = {};
    GetClientRect(Handle(), &inner);
    return inner.right;
}

int WinWindow::InnerHeight() const {
    RECT inner = {};
    GetClientRect(Handle(), &inner);
    return inner.bottom;
}

double WinWindow::TwipsPerPixelX() const {
    return twipsPerInch / WindowDpi(Handle());
}

double WinWindow::TwipsPerPixelY() const {
    return TwipsPerPixelX(); // Windows has one DPI for both axes
}

void WinWindow::HandlePosChanged() {
    const ReportedState now = {Bounds(), InnerWidth(), InnerHeight(), State()};
    if (std::exchange(reported_, now) != now) CallHandler(events_.onResize);
}

void WinWindow::HandleDpiChanged(const RECT& suggested) {
    if (font_) ApplySystemFont();
    Move(ToRect(suggested));
    CallHandler(events_.onResize); // even when the rectangle is unchanged
}
