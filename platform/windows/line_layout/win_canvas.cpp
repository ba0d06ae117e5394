#include "platform/windows/line_layout/win_canvas.h"

#include "platform/windows/base/system_library.h"

namespace {

using AlphaBlendFunction = BOOL WINAPI(HDC, int, int, int, int, HDC, int, int, int, int,
                                       BLENDFUNCTION);

// In a library that may not be imported; gdi32 has the same function by another name.
AlphaBlendFunction* FindAlphaBlend() {
    AlphaBlendFunction* function = nullptr;
    FindFunction(GetModuleHandleW(L"gdi32"), "GdiAlphaBlend", function);
    return function;
}

bool Blend(HDC target, const Rect& rect, HBITMAP bitmap, int width, int height,
           const BLENDFUNCTION& how) {
    static AlphaBlendFunction* const alphaBlend = FindAlphaBlend();
    if (!alphaBlend) return false;
    const HDC source = CreateCompatibleDC(target);
    const HGDIOBJ before = SelectObject(source, bitmap);
    const bool done = alphaBlend(target, rect.left, rect.top, rect.width, rect.height, source, 0, 0,
                                 width, height, how) != FALSE;
    SelectObject(source, before);
    DeleteDC(source);
    return done;
}

// One pixel that is stretched.
HBITMAP MakePixel(HDC target, Color color) {
    const HDC context = CreateCompatibleDC(target);
    const HBITMAP bitmap = CreateCompatibleBitmap(target, 1, 1);
    const HGDIOBJ before = SelectObject(context, bitmap);
    SetPixelV(context, 0, 0, color);
    SelectObject(context, before);
    DeleteDC(context);
    return bitmap;
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
    const HBITMAP pixel = MakePixel(context_, color);
    Blend(context_, rect, pixel, 1, 1, {AC_SRC_OVER, 0, 128, 0});
    DeleteObject(pixel);
}

bool WinCanvas::DrawBitmap(HBITMAP bitmap, Size pixels, const Rect& box) {
    return Blend(context_, box, bitmap, pixels.width, pixels.height,
                 {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}
