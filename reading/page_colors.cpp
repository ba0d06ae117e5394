#include "reading/page_colors.h"

#include "common/colors.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr std::uint32_t black = 0x000000, white = 0xFFFFFF;
constexpr double readable = 3; // of contrast, for text of some size

double Linear(std::uint32_t component) {
    const double share = (component & 0xFF) / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

// Relative luminance and contrast as the guidelines for accessible pages (WCAG) define them.
double Luminance(std::uint32_t color) {
    return 0.2126 * Linear(color >> 16) + 0.7152 * Linear(color >> 8) + 0.0722 * Linear(color);
}

double Contrast(std::uint32_t a, std::uint32_t b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}
} // namespace

std::optional<std::uint32_t> ReadableTextColor(const PageColors& own, std::uint32_t background) {
    const double contrast = Contrast(own.text, background);
    if (contrast >= readable || contrast >= Contrast(own.text, own.background)) return std::nullopt;
    return Contrast(black, background) > Contrast(white, background) ? black : white;
}

void PaintPage(HtmlView& page, Color background) {
    const std::uint32_t color = SwapColorOrder(background);
    page.SetBackColor(color);
    page.SetTextColor(ReadableTextColor(page.OwnColors(), color));
}
