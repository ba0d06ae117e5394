// Families, size and weight, which other values are relative to.
#include "formats/css/css_computer.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_longhands.h"

#include <algorithm>
#include <array>

namespace {

using P = CssProperty;

// From xx-small to xxx-large, in pixels: what browsers have.
using AbsoluteSizes = std::array<float, 8>;
constexpr AbsoluteSizes absoluteSizes{9, 10, 13, 16, 18, 24, 32, 48};
// The normal size of `monospace` is 13 pixels where that of other fonts is 16.
constexpr AbsoluteSizes monospaceSizes{9, 10, 12, 13, 16, 20, 26, 39};
constexpr AbsoluteSizes monospaceQuirksSizes{9, 9, 10, 13, 16, 20, 26, 40};
constexpr float mediumSize = 16, stepOfSize = 1.2f;
constexpr float monospaceFactor = 13.0f / 16;

float AbsoluteSize(std::size_t keyword, bool monospace, const CssComputeContext& context) {
    const AbsoluteSizes& sizes = !monospace       ? absoluteSizes
                                 : context.quirks ? monospaceQuirksSizes
                                                  : monospaceSizes;
    return sizes[std::min(keyword, sizes.size() - 1)] * context.medium.fontSize / mediumSize;
}

bool IsMonospace(const CssFontFamilies& families) {
    return families.size() == 1 && families[0].generic && families[0].name == u"monospace";
}

// A length that is no multiple of a font's size.
bool IsFixed(const CssValue& value) {
    return value.kind == CssValue::Kind::Length &&
           (value.unit == CssUnit::Px || value.unit >= CssUnit::Vw);
}

bool IsAbsoluteSize(const CssValue& value) {
    return value.kind == CssValue::Kind::Keyword && value.keyword < cssSmaller;
}

std::uint16_t WeightOf(const CssValue& value, std::uint16_t parent) {
    if (value.kind == CssValue::Kind::Number)
        return static_cast<std::uint16_t>(std::clamp(value.number, 1.0f, 1000.0f));
    // css-fonts-4, "relative weights".
    if (value.keyword == cssBolder) return parent < 350 ? 400 : parent < 550 ? 700 : 900;
    if (value.keyword == cssLighter) return parent < 550 ? 100 : parent < 750 ? 400 : 700;
    return value.keyword;
}

} // namespace

void ComputeCssFont(const CssCascade& cascade, const CssInheritedStyle& parent,
                    CssComputeContext& context, CssInheritedStyle& style) {
    const float line = CssLineHeightPixels(parent.lineHeight, parent.fontSize);
    const CssPicker onParent(cascade, parent.fontSize, line, context);
    const CssCascaded& families = cascade[P::FontFamily];
    style.families = parent.families;
    style.monospace = parent.monospace;
    if (families.given && families.value.kind == CssValue::Kind::Families) {
        const CssFontFamilies& list = families.block->families[families.value.index];
        style.families = context.familiesNumber(list);
        style.monospace = IsMonospace(list);
    } else if (families.given && families.value.kind == CssValue::Kind::Initial) {
        style.families = 0;
        style.monospace = false;
    }

    const float medium = context.medium.fontSize * (style.monospace ? monospaceFactor : 1);
    float outer = parent.fontSize;
    if (style.monospace != parent.monospace && !parent.fixedFontSize)
        outer *= style.monospace ? monospaceFactor : 1 / monospaceFactor;
    // The root's own `rem` is the initial size.
    const CssLengthBase base{outer, context.isRoot ? context.medium.fontSize : context.rootFontSize,
                             &context.medium, line, context.isRoot ? line : context.rootLineHeight};
    const float size = onParent.Pick(P::FontSize, outer, medium, [&](const CssValue& value) {
        if (value.kind == CssValue::Kind::Percent) return outer * value.number / 100;
        if (value.kind == CssValue::Kind::Sum) return onParent.LengthOf(value).Of(outer);
        if (value.kind == CssValue::Kind::Length) {
            context.usedViewport |= value.unit >= CssUnit::Vw;
            return CssPixels(value, base);
        }
        if (value.keyword == cssSmaller) return outer / stepOfSize;
        if (value.keyword == cssLarger) return outer * stepOfSize;
        return AbsoluteSize(value.keyword, style.monospace, context);
    });
    style.fontSize = std::clamp(size, 0.0f, maxCssFontPixels);
    style.fixedFontSize =
        onParent.Pick(P::FontSize, parent.fixedFontSize, false, [&](const CssValue& value) {
            return !IsAbsoluteSize(value) && (parent.fixedFontSize || IsFixed(value));
        });
    style.fontWeight =
        onParent.Pick(P::FontWeight, parent.fontWeight, std::uint16_t{400},
                      [&](const CssValue& value) { return WeightOf(value, parent.fontWeight); });
    style.fontStyle = onParent.Keyword(P::FontStyle, parent.fontStyle, CssFontStyle::Normal);
    style.fontCaps = onParent.Keyword(P::FontVariant, parent.fontCaps, CssFontCaps::Normal);
}
