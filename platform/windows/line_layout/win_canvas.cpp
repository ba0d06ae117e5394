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

void Blend(HDC context, const Rect& box, HBITMAP bitmap, SIZE size, BLENDFUNCTION how) {
    static AlphaBlendFunction* const alphaBlend = FindAlphaBlend();
    if (!alphaBlend) return;
    const HDC source = CreateCompatibleDC(context);
    const HGDIOBJ before = SelectObject(source, bitmap);
    alphaBlend(context, box.left, box.top, box.width, box.height, source, 0, 0, size.cx, size.cy,
               how);
    SelectObject(source, before);
    DeleteDC(source);
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
    if (rect.width <= 0 || rect.height <= 0) return;
    const HDC dot = CreateCompatibleDC(context_);
    const HBITMAP bitmap = CreateCompatibleBitmap(context_, 1, 1);
    const HGDIOBJ before = SelectObject(dot, bitmap);
    SetPixelV(dot, 0, 0, color);
    SelectObject(dot, before);
    DeleteDC(dot);
    Blend(context_, rect, bitmap, {1, 1}, {AC_SRC_OVER, 0, 128, 0});
    DeleteObject(bitmap);
}

void WinCanvas::DrawBitmap(HBITMAP bitmap, const Rect& box) {
    Blend(context_, box, bitmap, {box.width, box.height}, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}
