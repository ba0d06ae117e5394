// The fonts of a page's texts, as line layout takes them.
#pragma once

#include "formats/css/css_page_styles.h"
#include "platform/line_layout.h"

#include <map>
#include <optional>
#include <utility>

// What a text has from the boxes that it is in.
struct PageTextUse {
    double raise = 0; // of its baseline above that of the lines, in device pixels
    bool smallCapital = false;
    std::optional<Color> background; // on which it can be read; none: any
    // NOLINTNEXTLINE(modernize-use-nullptr): in what the compiler makes
    auto operator<=>(const PageTextUse&) const = default;
};

class PageFonts {
  public:
    // `scale`: device pixels of one of CSS; `dpi` is what the line layout counts points in.
    PageFonts(LineLayout& lines, const CssPageStyles& styles, double scale, double dpi)
        : lines_(lines), styles_(styles), scale_(scale), dpi_(dpi) {}

    // A style is one object for all elements that have it, as long as a page has not too many.
    StyleHandle Of(const CssInheritedStyle& style, const PageTextUse& use = {});
    // One object for equal styles that no element has, as long as the fonts.
    const CssInheritedStyle& Keep(const CssInheritedStyle& style) {
        return *own_.Find(style).value;
    }
    TextStyle StyleOf(const CssInheritedStyle& style, const PageTextUse& use = {});
    FontMetrics Metrics(const CssInheritedStyle& style) { return lines_.Metrics(*Of(style)); }
    // In device pixels; nothing for the font's own.
    std::optional<double> LineHeight(const CssInheritedStyle& style) const;
    double TabDistance(const CssInheritedStyle& style);
    double Pixels(float css) const { return css * scale_; }

  private:
    const std::u16string& Family(std::uint32_t families);

    LineLayout& lines_;
    const CssPageStyles& styles_;
    double scale_, dpi_;
    CssPool<CssInheritedStyle> own_;
    std::map<std::uint32_t, std::u16string> families_; // of each list
    std::map<std::pair<const CssInheritedStyle*, PageTextUse>, StyleHandle> prepared_;
};
