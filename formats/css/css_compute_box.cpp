#include "formats/css/css_computer.h"
#include "formats/css/css_longhands.h"

#include <algorithm>
#include <cmath>

namespace {

using P = CssProperty;

// What a box out of the flow is (CSS 2.2, 9.7).
CssDisplay Blockified(CssDisplay display) {
    switch (display) {
    case CssDisplay::None:
    case CssDisplay::Contents:
    case CssDisplay::Block:
    case CssDisplay::ListItem:
    case CssDisplay::Table: return display;
    case CssDisplay::InlineTable: return CssDisplay::Table;
    default: return CssDisplay::Block;
    }
}

void ComputeBorders(const CssPicker& pick, const CssInheritedStyle& inherited,
                    const CssBoxStyle& parent, CssBoxStyle& box) {
    constexpr float medium = 3;
    for (int side = 0; side < 4; ++side) {
        const auto at = static_cast<std::size_t>(side);
        box.borderStyle[at] =
            pick.Keyword(P::BorderTopStyle + side, parent.borderStyle[at], CssBorderStyle::None);
        const float width = pick.Pixels(P::BorderTopWidth + side, parent.borderWidth[at], medium);
        const bool isNone = box.borderStyle[at] <= CssBorderStyle::Hidden;
        box.borderWidth[at] = isNone ? 0 : CssBorderWidth(width);
        box.borderColor[at] = pick.Pick(P::BorderTopColor + side, parent.borderColor[at],
                                        inherited.color, [&](const CssValue& value) {
                                            return value.kind == CssValue::Kind::Rgba
                                                       ? value.AsColor()
                                                       : inherited.color;
                                        });
        if (isNone) box.borderColor[at] = {}; // so that boxes without are equal
    }
}

// As a parent's computed value has it.
std::uint16_t DisplayWord(const CssBoxStyle& style) {
    const std::uint16_t layout = style.innerLayout == CssInnerLayout::Flex   ? cssFlexLayout
                                 : style.innerLayout == CssInnerLayout::Grid ? cssGridLayout
                                                                             : 0;
    return std::uint16_t(std::uint16_t(style.display) | layout);
}

void ComputeDisplay(const CssPicker& pick, const CssBoxStyle& parent,
                    const CssComputeContext& context, CssBoxStyle& box) {
    const auto display =
        pick.Pick(P::Display, DisplayWord(parent), static_cast<std::uint16_t>(CssDisplay::Inline),
                  [](const CssValue& value) { return value.keyword; });
    box.display = static_cast<CssDisplay>(display & ~(cssFlowRoot | cssFlexLayout | cssGridLayout));
    if (display & cssFlexLayout) box.innerLayout = CssInnerLayout::Flex;
    if (display & cssGridLayout) box.innerLayout = CssInnerLayout::Grid;
    const bool isItem = parent.innerLayout != CssInnerLayout::Flow;
    box.position = pick.Keyword(P::Position, parent.position, CssPosition::Static);
    box.floats = pick.Keyword(P::Float, parent.floats, CssFloat::None);
    box.overflow = pick.Keyword(P::Overflow, parent.overflow, CssOverflow::Visible);
    const bool isAbsolute =
        box.position == CssPosition::Absolute || box.position == CssPosition::Fixed;
    if (isAbsolute || isItem) box.floats = CssFloat::None;
    const bool isFloat = box.floats != CssFloat::None;
    if (isAbsolute || isFloat || isItem || context.isRoot) box.display = Blockified(box.display);
    const bool isOwn = box.display == CssDisplay::InlineBlock ||
                       box.display == CssDisplay::TableCell ||
                       box.display == CssDisplay::TableCaption;
    box.flowRoot = isAbsolute || isFloat || isItem || context.isRoot || isOwn ||
                   (display & cssFlowRoot) || box.overflow != CssOverflow::Visible;
}

void ComputeVerticalAlign(const CssPicker& pick, const CssBoxStyle& parent, CssBoxStyle& box) {
    box.verticalShift = pick.Pick(P::VerticalAlign, parent.verticalShift, CssLength::Pixels(0),
                                  [&](const CssValue& value) {
                                      if (value.kind == CssValue::Kind::Keyword)
                                          return CssLength::Pixels(0);
                                      return pick.LengthOf(value);
                                  });
    box.verticalAlign = pick.Pick(P::VerticalAlign, parent.verticalAlign,
                                  CssVerticalAlign::Baseline, [](const CssValue& value) {
                                      return value.kind == CssValue::Kind::Keyword
                                                 ? static_cast<CssVerticalAlign>(value.keyword)
                                                 : CssVerticalAlign::Length;
                                  });
}

CssLength WidthOfKeyword(std::uint16_t keyword) {
    using enum CssLength::Kind;
    switch (keyword) {
    case cssMinContent: return {0, MinContent, 0};
    case cssMaxContent: return {0, MaxContent, 0};
    case cssFitContent: return {0, FitContent, 0};
    default: return {};
    }
}

bool IsQuirky(const CssCascaded& margin) {
    return margin.given && margin.value.kind == CssValue::Kind::Length &&
           margin.value.unit == CssUnit::QuirkyEm;
}

void ComputeSizes(const CssCascade& cascade, const CssPicker& pick, const CssBoxStyle& parent,
                  const CssComputeContext& context, CssBoxStyle& box) {
    const CssLength zero = CssLength::Pixels(0), autos;
    for (int side = 0; side < 4; ++side) {
        const auto at = static_cast<std::size_t>(side);
        box.margin[at] = pick.Length(P::MarginTop + side, parent.margin[at], zero);
        box.padding[at] = pick.Length(P::PaddingTop + side, parent.padding[at], zero);
        // By calc(); what is written below zero is no padding.
        if (box.padding[at].value < 0) box.padding[at] = zero;
        box.inset[at] = pick.Length(P::Top + side, parent.inset[at], autos);
    }
    if (context.quirks) {
        box.quirkyTop = IsQuirky(cascade[P::MarginTop]);
        box.quirkyBottom = IsQuirky(cascade[P::MarginBottom]);
    }
    const auto width = [&](P property, const CssLength& outer) {
        return pick.Pick(property, outer, autos, [&](const CssValue& value) {
            return value.kind == CssValue::Kind::Keyword ? WidthOfKeyword(value.keyword)
                                                         : pick.LengthOf(value);
        });
    };
    box.width = width(P::Width, parent.width);
    box.height = pick.Length(P::Height, parent.height, autos);
    box.minWidth = width(P::MinWidth, parent.minWidth);
    box.minHeight = pick.Length(P::MinHeight, parent.minHeight, autos);
    box.maxWidth = width(P::MaxWidth, parent.maxWidth);
    box.maxHeight = pick.Length(P::MaxHeight, parent.maxHeight, autos);
}

} // namespace

float CssBorderWidth(float width) {
    return width > 0 && width < 1 ? 1 : std::max(0.0f, std::floor(width));
}

CssBoxStyle ComputeCssBox(const CssCascade& cascade, const CssInheritedStyle& inherited,
                          const CssBoxStyle& parent, CssComputeContext& context) {
    const CssPicker pick(cascade, inherited.fontSize,
                         CssLineHeightPixels(inherited.lineHeight, inherited.fontSize), context);
    CssBoxStyle box;
    box.rare = ComputeCssRare(cascade, pick, inherited, *parent.rare, context);
    ComputeDisplay(pick, parent, context, box);
    box.flowRoot = box.flowRoot || box.rare->HasColumns();
    ComputeSizes(cascade, pick, parent, context, box);
    ComputeBorders(pick, inherited, parent, box);
    ComputeVerticalAlign(pick, parent, box);
    context.usedOuterBackground |=
        cascade[P::BackgroundColor].value.kind == CssValue::Kind::Inherit;
    box.background = pick.Pick(
        P::BackgroundColor, parent.background, cssTransparent, [&](const CssValue& value) {
            return value.kind == CssValue::Kind::Rgba ? value.AsColor() : inherited.color;
        });
    box.content = pick.Pick(P::Content, parent.content, 0u, [&](const CssValue& value) {
        if (value.kind != CssValue::Kind::Content) return 0u;
        return context.contentNumber(cascade[P::Content].block->contents[value.index]);
    });
    const auto counters = [&](P property, std::uint32_t outer) {
        return pick.Pick(property, outer, 0u, [&](const CssValue& value) {
            if (value.kind != CssValue::Kind::Counters) return 0u;
            return context.countersNumber(cascade[property].block->counters[value.index]);
        });
    };
    box.counterReset = counters(P::CounterReset, parent.counterReset);
    box.counterIncrement = counters(P::CounterIncrement, parent.counterIncrement);
    const CssBoxStyle initial;
    const auto keyword = [&](P property, auto member) {
        box.*member = pick.Keyword(property, parent.*member, initial.*member);
    };
    keyword(P::Clear, &CssBoxStyle::clear);
    keyword(P::BoxSizing, &CssBoxStyle::boxSizing);
    keyword(P::UnicodeBidi, &CssBoxStyle::unicodeBidi);
    keyword(P::TableLayout, &CssBoxStyle::tableLayout);
    keyword(P::BreakBefore, &CssBoxStyle::breakBefore);
    keyword(P::BreakAfter, &CssBoxStyle::breakAfter);
    keyword(P::BreakInside, &CssBoxStyle::breakInside);
    keyword(P::TextDecoration, &CssBoxStyle::ownDecorations);
    return box;
}

CssStyleParts ComputeCssStyle(CssCascade& cascade, const CssInheritedStyle& parent,
                              const CssBoxStyle& parentBox, CssComputeContext& context) {
    CssStyleParts parts;
    parts.inherited = ComputeCssInherited(cascade, parent, context);
    cascade.SetDirection(parts.inherited.direction == CssDirection::RightToLeft);
    parts.box = ComputeCssBox(cascade, parts.inherited, parentBox, context);
    // What moves a table by `align` moves nothing in it.
    const bool isTable =
        parts.box.display == CssDisplay::Table || parts.box.display == CssDisplay::InlineTable;
    CssTextAlign& align = parts.inherited.textAlign;
    if (isTable && align >= CssTextAlign::HtmlLeft && align <= CssTextAlign::HtmlCenter)
        align = CssTextAlign::Start;
    // Nothing is cut off here: a line that its box would cut continues in the next one instead of
    // over what stands beside the box.
    if (parts.box.overflow == CssOverflow::Hidden && parts.box.display != CssDisplay::Inline &&
        parts.inherited.whiteSpace == CssWhiteSpace::NoWrap)
        parts.inherited.whiteSpace = CssWhiteSpace::Normal;
    // Lines are not drawn through what is not of the text around.
    const CssBoxStyle& box = parts.box;
    const bool isApart = box.floats != CssFloat::None || box.position == CssPosition::Absolute ||
                         box.position == CssPosition::Fixed ||
                         box.display == CssDisplay::InlineBlock ||
                         box.display == CssDisplay::InlineTable;
    if (isApart) parts.inherited.decorations = cssNoDecoration;
    parts.inherited.decorations |= box.ownDecorations;
    return parts;
}
