#include "view/page/page_fonts.h"

#include "common/contrast.h"
#include "view/page/font_families.h"

namespace {
constexpr int boldFrom = 600;         // of the weights that fonts have, the nearest of two
constexpr double smallCapitals = 0.7; // of the font's size, where it has none of its own
constexpr int tabSpaces = 8;
constexpr Color black = 0; // of what has no colour of its own
// Styles that are kept prepared; each takes some kilobytes. A book has some tens, a page with a
// colour for each word has as many as words.
constexpr std::size_t maxPrepared = 4096;
} // namespace

StyleHandle PageFonts::Of(const CssInheritedStyle& style, const PageTextUse& use) {
    if (prepared_.size() >= maxPrepared && !prepared_.contains({&style, use})) prepared_.clear();
    StyleHandle& handle = prepared_[{&style, use}];
    if (!handle) handle = lines_.Prepare(StyleOf(style, use));
    return handle;
}

double PageFonts::TabDistance(const CssInheritedStyle& style) {
    const double space = Metrics(style).spaceWidth;
    return tabSpaces * (space + Pixels(style.letterSpacing) + Pixels(style.wordSpacing));
}

const std::u16string& PageFonts::Family(std::uint32_t families) {
    const auto [family, isNew] = families_.try_emplace(families);
    if (isNew) family->second = FamilyOf(styles_.Families(families), lines_);
    return family->second;
}

TextStyle PageFonts::StyleOf(const CssInheritedStyle& style, const PageTextUse& use) {
    TextStyle text;
    text.font.family = Family(style.families);
    text.font.points = style.fontSize * scale_ * 72 / dpi_;
    text.raise = use.raise;
    text.letterSpacing = Pixels(style.letterSpacing);
    text.wordSpacing = Pixels(style.wordSpacing);
    if (use.smallCapital) text.font.points *= smallCapitals;
    text.font.exactSize = true;
    text.font.bold = style.fontWeight >= boldFrom;
    text.font.italic = style.fontStyle != CssFontStyle::Normal;
    text.underline = (style.decorations & cssUnderline) != 0;
    text.strikethrough = (style.decorations & cssLineThrough) != 0;
    text.overline = (style.decorations & cssOverline) != 0;
    if (!style.autoColor) text.color = style.color.Bgr();
    const Color shown = text.color.value_or(black);
    if (use.background && !IsReadable(shown, *use.background))
        text.color = ReadableOn(*use.background, shown);
    return text;
}

std::optional<double> PageFonts::LineHeight(const CssInheritedStyle& style) const {
    switch (style.lineHeight.kind) {
    case CssLength::Kind::Number: return style.lineHeight.value * style.fontSize * scale_;
    case CssLength::Kind::Pixels: return style.lineHeight.value * scale_;
    case CssLength::Kind::Percent: return style.lineHeight.value / 100 * style.fontSize * scale_;
    case CssLength::Kind::Sum: // of a line height only its pixels are left
    case CssLength::Kind::Auto:
    default: break;
    }
    return std::nullopt;
}
