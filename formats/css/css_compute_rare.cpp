// Properties that few boxes have.
#include "formats/css/css_computer.h"
#include "formats/css/css_longhands.h"

constinit const CssRareStyle initialCssRareStyle;

namespace {

using P = CssProperty;

bool IsAnyGiven(const CssCascade& cascade) {
    for (P property = firstCssRareProperty; property <= lastCssRareProperty;
         property = property + 1)
        if (cascade[property].given) return true;
    return false;
}

// With absolute lengths.
void MakeAbsolute(const CssPicker& pick, const CssCascaded& declared, CssValue& length) {
    if (length.kind == CssValue::Kind::Math)
        length = pick.Evaluated({true, length, declared.block});
    if (length.kind == CssValue::Kind::Length) length = CssValue::Pixels(pick.PixelsOf(length));
}

const CssGridTracks* ComputedTracks(const CssPicker& pick, const CssCascaded& declared,
                                    const CssValue& value, CssComputeContext& context) {
    if (value.kind != CssValue::Kind::GridTracks) return nullptr;
    CssGridTracks tracks = declared.block->gridTracks[value.index];
    for (CssGridTrack& track : tracks.tracks) {
        MakeAbsolute(pick, declared, track.min);
        MakeAbsolute(pick, declared, track.max);
    }
    return context.gridTracks(tracks);
}

CssGridEdge ComputedEdge(const CssCascaded& declared, const CssValue& value,
                         CssComputeContext& context) {
    CssGridEdge edge;
    if (value.kind == CssValue::Kind::GridName)
        edge.name = context.gridName(declared.block->gridNames[value.index]);
    else if (value.kind == CssValue::Kind::Number)
        (value.keyword == cssGridSpan ? edge.span : edge.line) = std::int32_t(value.number);
    return edge;
}

void ComputeGrid(const CssCascade& cascade, const CssPicker& pick, const CssRareStyle& parent,
                 CssComputeContext& context, CssRareStyle& rare) {
    const auto tracks = [&](P property, auto member) {
        const CssGridTracks* none = nullptr;
        rare.*member = pick.Pick(property, parent.*member, none, [&](const CssValue& value) {
            return ComputedTracks(pick, cascade[property], value, context);
        });
    };
    tracks(P::GridTemplateColumns, &CssRareStyle::gridColumns);
    tracks(P::GridTemplateRows, &CssRareStyle::gridRows);
    tracks(P::GridAutoColumns, &CssRareStyle::gridAutoColumns);
    tracks(P::GridAutoRows, &CssRareStyle::gridAutoRows);
    const CssGridAreas* none = nullptr;
    constexpr P areas = P::GridTemplateAreas;
    rare.gridAreas = pick.Pick(areas, parent.gridAreas, none, [&](const CssValue& value) {
        return value.kind == CssValue::Kind::GridAreas
                   ? context.gridAreas(cascade[areas].block->gridAreas[value.index])
                   : nullptr;
    });
    const auto edge = [&](P property, auto member) {
        rare.*member =
            pick.Pick(property, parent.*member, CssGridEdge{}, [&](const CssValue& value) {
                return ComputedEdge(cascade[property], value, context);
            });
    };
    edge(P::GridRowStart, &CssRareStyle::rowStart);
    edge(P::GridColumnStart, &CssRareStyle::columnStart);
    edge(P::GridRowEnd, &CssRareStyle::rowEnd);
    edge(P::GridColumnEnd, &CssRareStyle::columnEnd);
}

void ComputeColumns(const CssPicker& pick, const CssInheritedStyle& inherited,
                    const CssRareStyle& parent, CssRareStyle& rare) {
    constexpr float medium = 3;
    rare.columnWidth = pick.Length(P::ColumnWidth, parent.columnWidth, CssLength{});
    rare.columnRuleStyle =
        pick.Keyword(P::ColumnRuleStyle, parent.columnRuleStyle, CssBorderStyle::None);
    if (rare.columnRuleStyle <= CssBorderStyle::Hidden) return;
    rare.columnRuleWidth =
        CssBorderWidth(pick.Pixels(P::ColumnRuleWidth, parent.columnRuleWidth, medium));
    rare.columnRuleColor = pick.Pick(
        P::ColumnRuleColor, parent.columnRuleColor, inherited.color, [&](const CssValue& value) {
            return value.kind == CssValue::Kind::Rgba ? value.AsColor() : inherited.color;
        });
}

} // namespace

const CssRareStyle* ComputeCssRare(const CssCascade& cascade, const CssPicker& pick,
                                   const CssInheritedStyle& inherited, const CssRareStyle& parent,
                                   CssComputeContext& context) {
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
    number(P::ColumnCount, &CssRareStyle::columnCount);
    number(P::AspectRatio, &CssRareStyle::aspectRatio);
    rare.flexBasis = pick.Length(P::FlexBasis, parent.flexBasis, initial.flexBasis);
    rare.columnGap = pick.Length(P::ColumnGap, parent.columnGap, initial.columnGap);
    rare.rowGap = pick.Length(P::RowGap, parent.rowGap, initial.rowGap);
    keyword(P::FlexDirection, &CssRareStyle::flexDirection);
    keyword(P::FlexWrap, &CssRareStyle::flexWrap);
    keyword(P::JustifyContent, &CssRareStyle::justifyContent);
    keyword(P::AlignItems, &CssRareStyle::alignItems);
    keyword(P::AlignSelf, &CssRareStyle::alignSelf);
    keyword(P::JustifyItems, &CssRareStyle::justifyItems);
    keyword(P::JustifySelf, &CssRareStyle::justifySelf);
    keyword(P::GridAutoFlow, &CssRareStyle::gridFlow);
    keyword(P::ColumnSpan, &CssRareStyle::columnSpan);
    keyword(P::ObjectFit, &CssRareStyle::objectFit);
    ComputeGrid(cascade, pick, parent, context, rare);
    ComputeColumns(pick, inherited, parent, rare);
    if (rare == initial) return &initialCssRareStyle;
    return context.rareStyle(rare);
}
