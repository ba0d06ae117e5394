// Picks a property's value; shared by the files that compute.
#pragma once

#include "formats/css/css_compute.h"
#include "formats/css/css_length.h"
#include "formats/css/css_math.h"

class CssPicker {
  public:
    // Lengths in lines are of the line height that is given.
    CssPicker(const CssCascade& cascade, float fontSize, float lineHeight,
              CssComputeContext& context)
        : cascade_(cascade),
          context_(context), base_{fontSize, context.isRoot ? fontSize : context.rootFontSize,
                                   &context.medium, lineHeight,
                                   context.isRoot ? lineHeight : context.rootLineHeight} {}

    // The parent's value, the initial one, or what `convert` makes of the declared one.
    template <typename T, typename Convert>
    T Pick(CssProperty property, const T& parent, const T& initial, Convert convert) const {
        const CssCascaded& cascaded = cascade_[property];
        if (!cascaded.given) return IsInherited(property) ? parent : initial;
        switch (cascaded.value.kind) {
        case CssValue::Kind::Inherit: return parent;
        case CssValue::Kind::Initial: return initial;
        case CssValue::Kind::Unset: return IsInherited(property) ? parent : initial;
        case CssValue::Kind::Math: return convert(Evaluated(cascaded, base_));
        default: return convert(cascaded.value);
        }
    }
    template <typename Enumeration>
    Enumeration Keyword(CssProperty property, Enumeration parent, Enumeration initial) const {
        return Pick(property, parent, initial,
                    [](const CssValue& value) { return static_cast<Enumeration>(value.keyword); });
    }
    CssLength Length(CssProperty property, const CssLength& parent,
                     const CssLength& initial) const {
        return Pick(property, parent, initial,
                    [this](const CssValue& value) { return LengthOf(value); });
    }
    float PixelsOf(const CssValue& value) const {
        if (value.kind != CssValue::Kind::Length) return 0; // `normal`
        context_.usedViewport |= value.unit >= CssUnit::Vw;
        return CssPixels(value, base_);
    }
    float Pixels(CssProperty property, float parent, float initial) const {
        return Pick(property, parent, initial,
                    [this](const CssValue& value) { return PixelsOf(value); });
    }
    CssLength LengthOf(const CssValue& value) const {
        switch (value.kind) {
        case CssValue::Kind::Length: return CssLength::Pixels(PixelsOf(value));
        case CssValue::Kind::Percent: return CssLength::Percent(ClampCssPixels(value.number));
        case CssValue::Kind::Sum:
            return {value.number, CssLength::Kind::Sum, static_cast<std::int16_t>(value.keyword)};
        case CssValue::Kind::Number:
            return {ClampCssPixels(value.number), CssLength::Kind::Number, 0};
        default: return {};
        }
    }

    CssValue Evaluated(const CssCascaded& cascaded) const { return Evaluated(cascaded, base_); }
    CssValue Evaluated(const CssCascaded& cascaded, const CssLengthBase& base) const {
        return EvaluateCssMath(cascaded.block->maths[cascaded.value.index], base,
                               context_.usedViewport);
    }

  private:
    const CssCascade& cascade_;
    CssComputeContext& context_;
    CssLengthBase base_;
};

// A hair's breadth is drawn, and no border is wider than it says.
float CssBorderWidth(float width);

// As one object; `parent` is that of the element around.
const CssRareStyle* ComputeCssRare(const CssCascade& cascade, const CssPicker& pick,
                                   const CssInheritedStyle& inherited, const CssRareStyle& parent,
                                   CssComputeContext& context);
