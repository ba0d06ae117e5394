#include "platform/windows/window/center.h"

#include <algorithm>

void CenterOver(HWND window, HWND owner) {
    MONITORINFO screen = {};
    screen.cbSize = sizeof screen;
    const HWND anchor = owner ? owner : window;
    if (!GetMonitorInfoW(MonitorFromWindow(anchor, MONITOR_DEFAULTTONEAREST), &screen)) return;
    RECT place = screen.rcWork, size = {};
    if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &place);
    GetWindowRect(window, &size);
    const LONG width = size.right - size.left, height = size.bottom - size.top;
    const RECT& work = screen.rcWork;
    const auto inside = [](LONG middle, LONG length, LONG low, LONG high) {
        return std::max(low, std::min(middle - length / 2, high - length));
    };
    SetWindowPos(window, nullptr,
                 inside((place.left + place.right) / 2, width, work.left, work.right),
                 inside((place.top + place.bottom) / 2, height, work.top, work.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
