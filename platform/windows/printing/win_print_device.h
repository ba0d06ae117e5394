// Pages on a printer of the system's, by GDI.
#pragma once

#include "platform/windows/line_layout/win_canvas.h"
#include "view/print_pages.h"

#include <functional>

class WinPrintDevice final : public PrintDevice {
  public:
    // `context` is a printer's, with a document begun; the caller's. Calls `onProgress` now and
    // then.
    WinPrintDevice(HDC context, std::function<bool(int percent)> onProgress);

    double Dpi() const override { return dpi_; }
    Size Page() const override { return page_; }
    Canvas* BeginPage() override;
    void ClipTo(const Rect&) override;
    bool EndPage() override;
    bool OnProgress(int percent) override { return onProgress_(percent); }

  private:
    HDC context_;
    std::function<bool(int)> onProgress_;
    double dpi_;
    POINT origin_; // of the page within what the printer can reach
    Size page_;
    WinCanvas canvas_;
};
