// The fonts of a page's texts, as line layout takes them.
#pragma once

#include "formats/css/css_page_styles.h"
#include "platform/line_layout.h"

#include <map>
#include <tuple>

class PageFonts {
  public:
    // `scale`: device pixels of one of CSS; `dpi` is what the line layout counts points in.
    PageFonts(LineLayout& lines, const CssPageStyles& styles, double scale, double dpi)
        : lines_(lines), styles_(styles), scale_(scale), dpi_(dpi) {}

    // A style is one object for all elements that have it.
    StyleHandle Of(const CssInheritedStyle& style, TextBaseline baseline = TextBaseline::Normal,
                   bool smallCapital = false);
    // In device pixels; nothing for the font's own.
    std::optional<double> LineHeight(const CssInheritedStyle& style) const;
    double Pixels(float css) const { return css * scale_; }

  private:
    TextStyle StyleOf(const CssInheritedStyle& style, TextBaseline baseline,
                      bool smallCapital) const;

    LineLayout& lines_;
    const CssPageStyles& styles_;
    double scale_, dpi_;
    std::map<std::tuple<const CssInheritedStyle*, TextBaseline, bool>, StyleHandle> prepared_;
};
