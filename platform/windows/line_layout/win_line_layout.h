// Line layout by Uniscribe and GDI.
#pragma once

#include "platform/windows/line_layout/win_fonts.h"

class WinLineLayout : public LineLayout {
  public:
    void SetResolution(double dpi) override { fonts_.SetResolution(dpi); }
    bool IsInstalled(std::u16string_view family) override;
    std::u16string FamilyOf(GenericFamily family) override { return fonts_.FamilyOf(family); }
    StyleHandle Prepare(const TextStyle& style) override { return fonts_.Prepare(style); }
    FontMetrics Metrics(const PreparedStyle&) const override;
    // Its canvas is a WinCanvas.
    std::unique_ptr<TextLines> BreakLines(const ParagraphText&) override;

  private:
    WinFonts fonts_;
};
