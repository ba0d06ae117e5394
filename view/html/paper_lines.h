// A line layout for white paper: no background is printed, and no letters that cannot be read
// without one.
#pragma once

#include "platform/line_layout.h"

class PaperLines final : public LineLayout {
  public:
    explicit PaperLines(LineLayout& lines) : lines_(lines) {} // must outlive this object

    void SetResolution(double dpi) override { lines_.SetResolution(dpi); }
    bool IsInstalled(std::u16string_view family) override { return lines_.IsInstalled(family); }
    std::u16string FamilyOf(GenericFamily generic) override { return lines_.FamilyOf(generic); }
    StyleHandle Prepare(const TextStyle& style) override;
    FontMetrics Metrics(const PreparedStyle& style) const override { return lines_.Metrics(style); }
    std::unique_ptr<TextLines> BreakLines(const ParagraphText& text) override {
        return lines_.BreakLines(text);
    }

  private:
    LineLayout& lines_;
};
