#include "platform/windows/line_layout/win_canvas.h"

#include "platform/windows/base/system_library.h"

#include <algorithm>

namespace {

using AlphaBlendFunction = BOOL WINAPI(HDC, int, int, int, int, HDC, int, int, int, int,
                                       BLENDFUNCTION);

// In a library that may not be imported; gdi32 has the same function by another name.
AlphaBlendFunction* FindAlphaBlend() {
    AlphaBlendFunction* function = nullptr;
    FindFunction(GetModuleHandleW(L"gdi32"), "GdiAlphaBlend", function);
    return function;
}

} // namespace

// ExtTextOut fills without a brush to be made.
void WinCanvas::FillRect(const Rect& rect, Color color) {
    if (rect.width <= 0 || rect.height <= 0) return;
    const RECT area = ToRect(rect);
    const COLORREF before = SetBkColor(context_, color);
    ExtTextOutW(context_, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
    SetBkColor(context_, before);
}

void WinCanvas::TintRect(const Rect& rect, Color color) {
    static AlphaBlendFunction* const alphaBlend = FindAlphaBlend();
    if (rect.width <= 0 || rect.height <= 0 || !alphaBlend) return;
    const HDC source = CreateCompatibleDC(context_);
    const HBITMAP bitmap = CreateCompatibleBitmap(context_, 1, 1);
    const HGDIOBJ before = SelectObject(source, bitmap);
    SetPixelV(source, 0, 0, color);
    const BLENDFUNCTION half = {AC_SRC_OVER, 0, 128, 0};
    alphaBlend(context_, rect.left, rect.top, rect.width, rect.height, source, 0, 0, 1, 1, half);
    SelectObject(source, before);
    DeleteObject(bitmap);
    DeleteDC(source);
}
