// Paints on a device context of GDI.
#pragma once

#include "platform/canvas.h"
#include "platform/windows/base/win32.h"
#include "view/geometry.h"

inline RECT ToRect(const Rect& rect) {
    return {rect.left, rect.top, rect.left + rect.width, rect.top + rect.height};
}

class WinCanvas : public Canvas {
  public:
    explicit WinCanvas(HDC context) : context_(context) {}
    HDC Context() const { return context_; }

    void FillRect(const Rect&, Color) override;
    void TintRect(const Rect&, Color) override;
    // Stretched to the box; with alpha, premultiplied.
    bool DrawBitmap(HBITMAP, Size pixels, const Rect& box);

  private:
    HDC context_; // the caller's
};
