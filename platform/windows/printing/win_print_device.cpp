#include "platform/windows/printing/win_print_device.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double margin = 20 / 25.4; // inches from the paper's edges

// What a printer cannot reach is a part of the margin.
int Inset(HDC context, int unreachable, int dpi) {
    return std::max(0, static_cast<int>(margin * dpi) - GetDeviceCaps(context, unreachable));
}

} // namespace

WinPrintDevice::WinPrintDevice(HDC context, std::function<bool(int)> onProgress)
    : context_(context), onProgress_(std::move(onProgress)),
      dpi_(GetDeviceCaps(context, LOGPIXELSY)), canvas_(context) {
    const int x = GetDeviceCaps(context, LOGPIXELSX), y = GetDeviceCaps(context, LOGPIXELSY);
    const int across = static_cast<int>(2 * margin * x), down = static_cast<int>(2 * margin * y);
    origin_ = {Inset(context, PHYSICALOFFSETX, x), Inset(context, PHYSICALOFFSETY, y)};
    const int paperWidth =
        std::max(GetDeviceCaps(context, PHYSICALWIDTH), GetDeviceCaps(context, HORZRES));
    const int paperHeight =
        std::max(GetDeviceCaps(context, PHYSICALHEIGHT), GetDeviceCaps(context, VERTRES));
    page_ = {std::max(1, paperWidth - across), std::max(1, paperHeight - down)};
}

// A new page has a new state of the context.
Canvas* WinPrintDevice::BeginPage() {
    if (StartPage(context_) <= 0) return nullptr;
    SetViewportOrgEx(context_, origin_.x, origin_.y, nullptr);
    return &canvas_;
}

void WinPrintDevice::ClipTo(const Rect& box) {
    RECT area = ToRect(box);
    LPtoDP(context_, reinterpret_cast<POINT*>(&area), 2); // regions are in the device's pixels
    const HRGN region = CreateRectRgnIndirect(&area);
    SelectClipRgn(context_, region);
    DeleteObject(region);
}

bool WinPrintDevice::EndPage() {
    return ::EndPage(context_) > 0;
}
