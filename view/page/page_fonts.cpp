#include "view/page/page_fonts.h"

namespace {
constexpr int boldFrom = 600; // of the weights that fonts have, the nearest of two
// Line layout makes raised letters smaller; a page says itself how large they are.
constexpr double smallerBy = 1.5;
constexpr double smallCapitals = 0.7; // of the font's size, where it has none of its own
} // namespace

StyleHandle PageFonts::Of(const CssInheritedStyle& style, TextBaseline baseline,
                          bool smallCapital) {
    StyleHandle& handle = prepared_[{&style, baseline, smallCapital}];
    if (!handle) handle = lines_.Prepare(StyleOf(style, baseline, smallCapital));
    return handle;
}

TextStyle PageFonts::StyleOf(const CssInheritedStyle& style, TextBaseline baseline,
                             bool smallCapital) const {
    TextStyle text;
    for (const CssFontFamily& family : styles_.Families(style.families)) {
        text.font.family = family.name;
        break;
    }
    text.font.points = style.fontSize * scale_ * 72 / dpi_;
    text.baseline = baseline;
    if (baseline != TextBaseline::Normal) text.font.points *= smallerBy;
    if (smallCapital) text.font.points *= smallCapitals;
    text.font.exactSize = true;
    text.font.bold = style.fontWeight >= boldFrom;
    text.font.italic = style.fontStyle != CssFontStyle::Normal;
    text.underline = (style.decorations & cssUnderline) != 0;
    text.strikethrough = (style.decorations & cssLineThrough) != 0;
    if (!style.autoColor) text.color = style.color.Bgr();
    return text;
}

std::optional<double> PageFonts::LineHeight(const CssInheritedStyle& style) const {
    switch (style.lineHeight.kind) {
    case CssLength::Kind::Number: return style.lineHeight.value * style.fontSize * scale_;
    case CssLength::Kind::Pixels: return style.lineHeight.value * scale_;
    case CssLength::Kind::Percent: return style.lineHeight.value / 100 * style.fontSize * scale_;
    case CssLength::Kind::Auto: break;
    }
    return std::nullopt;
}
