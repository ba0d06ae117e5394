#include "formats/css/css_computer.h"

#include <algorithm>

namespace {

using P = CssProperty;

CssTextAlign TextAlignOf(CssTextAlign declared, const CssInheritedStyle& parent) {
    const bool parentIsRightToLeft = parent.direction == CssDirection::RightToLeft;
    switch (declared) {
    case CssTextAlign::HeaderCell:
        return parent.textAlign == CssTextAlign::Start ? CssTextAlign::Center : parent.textAlign;
    case CssTextAlign::MatchParent:
        if (parent.textAlign == CssTextAlign::Start)
            return parentIsRightToLeft ? CssTextAlign::Right : CssTextAlign::Left;
        if (parent.textAlign == CssTextAlign::End)
            return parentIsRightToLeft ? CssTextAlign::Left : CssTextAlign::Right;
        return parent.textAlign;
    default: return declared;
    }
}

void ComputeColor(const CssCascade& cascade, const CssPicker& pick, const CssInheritedStyle& parent,
                  CssInheritedStyle& style) {
    style.color = pick.Pick(P::TextColor, parent.color, CssColor{}, [&](const CssValue& value) {
        return value.kind == CssValue::Kind::Rgba ? value.AsColor() : parent.color;
    });
    const CssCascaded& color = cascade[P::TextColor];
    style.autoColor = parent.autoColor;
    if (color.given && color.value.kind == CssValue::Kind::Rgba) style.autoColor = false;
    if (color.given && color.value.kind == CssValue::Kind::Initial) style.autoColor = true;
}

} // namespace

CssInheritedStyle ComputeCssInherited(const CssCascade& cascade, const CssInheritedStyle& parent,
                                      CssComputeContext& context) {
    CssInheritedStyle style;
    ComputeCssFont(cascade, parent, context, style);
    const CssPicker onParent(cascade, style.fontSize,
                             CssLineHeightPixels(parent.lineHeight, parent.fontSize), context);
    style.lineHeight =
        onParent.Pick(P::LineHeight, parent.lineHeight, CssLength{}, [&](const CssValue& value) {
            const CssLength length = onParent.LengthOf(value);
            const bool isShare =
                length.kind == CssLength::Kind::Percent || length.kind == CssLength::Kind::Sum;
            if (!isShare) return length;
            // Children inherit the pixels.
            return CssLength::Pixels(std::max(0.0f, length.Of(style.fontSize)));
        });
    const CssPicker pick(cascade, style.fontSize,
                         CssLineHeightPixels(style.lineHeight, style.fontSize), context);
    ComputeColor(cascade, pick, parent, style);
    const CssLength zero = CssLength::Pixels(0);
    style.textIndent = pick.Length(P::TextIndent, parent.textIndent, zero);
    style.letterSpacing = pick.Pixels(P::LetterSpacing, parent.letterSpacing, 0);
    style.wordSpacing = pick.Pixels(P::WordSpacing, parent.wordSpacing, 0);
    style.borderSpacingX = pick.Pixels(P::BorderSpacingX, parent.borderSpacingX, 0);
    style.borderSpacingY = pick.Pixels(P::BorderSpacingY, parent.borderSpacingY, 0);
    style.textAlign =
        TextAlignOf(pick.Keyword(P::TextAlign, parent.textAlign, CssTextAlign::Start), parent);

    const CssInheritedStyle initial;
    const auto keyword = [&](P property, auto member) {
        style.*member = pick.Keyword(property, parent.*member, initial.*member);
    };
    keyword(P::TextTransform, &CssInheritedStyle::textTransform);
    keyword(P::WhiteSpace, &CssInheritedStyle::whiteSpace);
    keyword(P::OverflowWrap, &CssInheritedStyle::overflowWrap);
    keyword(P::Direction, &CssInheritedStyle::direction);
    keyword(P::Visibility, &CssInheritedStyle::visibility);
    keyword(P::ListStyleType, &CssInheritedStyle::listStyleType);
    keyword(P::ListStylePosition, &CssInheritedStyle::listStylePosition);
    keyword(P::BorderCollapse, &CssInheritedStyle::borderCollapse);
    keyword(P::CaptionSide, &CssInheritedStyle::captionSide);
    keyword(P::EmptyCells, &CssInheritedStyle::emptyCells);
    style.decorations = parent.decorations; // the element's own are added with its box
    return style;
}
