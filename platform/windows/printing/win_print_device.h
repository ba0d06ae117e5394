// Pages on a printer of the system's, by GDI.
#pragma once

#include "platform/windows/line_layout/win_canvas.h"
#include "view/print_pages.h"

#include <functional>

class WinPrintDevice final : public PrintDevice {
  public:
    // `context` is a printer's, with a document begun; the caller's. Asks `goesOn` now and then.
    WinPrintDevice(HDC context, std::function<bool(int percent)> goesOn);

    double Dpi() const override { return dpi_; }
    Size Page() const override { return page_; }
    Canvas* BeginPage() override;
    void ClipTo(const Rect&) override;
    bool EndPage() override;
    bool GoesOn(int percent) override { return goesOn_(percent); }

  private:
    HDC context_;
    std::function<bool(int)> goesOn_;
    double dpi_;
    POINT origin_; // of the page within what the printer can reach
    Size page_;
    WinCanvas canvas_;
};
