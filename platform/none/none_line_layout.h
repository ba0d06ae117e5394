// Headless line layout: each character is half as wide as its font is high, wide East Asian ones
// are as wide as high, marks and format characters have no width. Directions, line breaks and
// characters of several units are real, so that a view can be tested without a toolkit, the same
// everywhere.
#pragma once

#include "platform/none/none_clusters.h"

class NoneLineLayout : public LineLayout {
  public:
    void SetResolution(double dpi) override;
    // One of the names of FamilyOf.
    bool IsInstalled(std::u16string_view family) override;
    std::u16string FamilyOf(GenericFamily) override;
    StyleHandle Prepare(const TextStyle&) override;
    FontMetrics Metrics(const PreparedStyle&) const override;
    std::unique_ptr<TextLines> BreakLines(const ParagraphText&) override;

    // What was asked, for tests.
    int prepared = 0, paragraphs = 0;
    int staleStyles = 0; // used after the resolution they were prepared for

  private:
    double dpi_ = 96;
    int resolution_ = 0; // counts the changes
};
