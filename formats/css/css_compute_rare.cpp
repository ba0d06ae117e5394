// Properties that few boxes have.
#include "formats/css/css_computer.h"

constinit const CssRareStyle initialCssRareStyle;

namespace {

using P = CssProperty;

bool IsAnyGiven(const CssCascade& cascade) {
    for (P property = firstCssRareProperty; property <= lastCssRareProperty;
         property = property + 1)
        if (cascade[property].given) return true;
    return false;
}

} // namespace

// Gaps that are a percentage are none.
const CssRareStyle* ComputeCssRare(const CssCascade& cascade, const CssPicker& pick,
                                   const CssRareStyle& parent, CssComputeContext& context) {
    if (!IsAnyGiven(cascade)) return &initialCssRareStyle;
    const CssRareStyle& initial = initialCssRareStyle;
    CssRareStyle rare;
    const auto number = [&](P property, auto member) {
        rare.*member =
            pick.Pick(property, parent.*member, initial.*member, [](const CssValue& value) {
                return value.kind == CssValue::Kind::Number ? value.number : 0;
            });
    };
    const auto keyword = [&](P property, auto member) {
        rare.*member = pick.Keyword(property, parent.*member, initial.*member);
    };
    number(P::FlexGrow, &CssRareStyle::flexGrow);
    number(P::FlexShrink, &CssRareStyle::flexShrink);
    number(P::AspectRatio, &CssRareStyle::aspectRatio);
    rare.flexBasis = pick.Length(P::FlexBasis, parent.flexBasis, initial.flexBasis);
    rare.columnGap = pick.Pixels(P::ColumnGap, parent.columnGap, 0);
    rare.rowGap = pick.Pixels(P::RowGap, parent.rowGap, 0);
    keyword(P::FlexDirection, &CssRareStyle::flexDirection);
    keyword(P::FlexWrap, &CssRareStyle::flexWrap);
    keyword(P::JustifyContent, &CssRareStyle::justifyContent);
    keyword(P::AlignItems, &CssRareStyle::alignItems);
    keyword(P::AlignSelf, &CssRareStyle::alignSelf);
    keyword(P::ObjectFit, &CssRareStyle::objectFit);
    if (rare == initial) return &initialCssRareStyle;
    return context.rareStyle(rare);
}
