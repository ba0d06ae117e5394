#include "formats/css/css_shorthands.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

using P = CssProperty;

// One to four values: top, right, bottom, left; what is missing is that of the other side.
bool ReadSides(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    std::vector<CssValue> values;
    while (!reader.tokens.AtEnd() && values.size() < 4) {
        const auto value = reader.Read(properties[0]);
        if (!value) return false;
        values.push_back(*value);
    }
    if (values.empty()) return false;
    const std::size_t right = values.size() > 1 ? 1 : 0, bottom = values.size() > 2 ? 2 : 0,
                      left = values.size() > 3 ? 3 : right;
    const std::array<std::size_t, 4> places{0, right, bottom, left};
    for (std::size_t i = 0; i < 4; ++i)
        reader.Add(properties[i], values[places[i]]);
    return true;
}

// One value, or one for each.
bool ReadPair(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    const auto first = reader.Read(properties[0]);
    if (!first) return false;
    const auto second = reader.Read(properties[1]);
    reader.Add(properties[0], *first);
    reader.Add(properties[1], second ? *second : *first);
    return true;
}

// Width, style and colour in any order, each for as many sides as there are properties of it.
bool ReadBorder(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    std::array<CssValue, 3> values{CssValue::Pixels(3), CssValue::OfKeyword(0),
                                   CssValue::OfKind(CssValue::Kind::CurrentColor)};
    const std::size_t sides = properties.size() / 3;
    std::array<bool, 3> given{};
    for (int count = 0; count < 3 && !reader.tokens.AtEnd(); ++count) {
        bool found = false;
        for (std::size_t part = 0; part < 3 && !found; ++part) {
            const auto value = given[part] ? std::nullopt : reader.Read(properties[part * sides]);
            if (!value) continue;
            values[part] = *value;
            given[part] = found = true;
        }
        if (!found) return false;
    }
    for (std::size_t i = 0; i < properties.size(); ++i)
        reader.Add(properties[i], values[i / sides]);
    return true;
}

bool ReadOverflow(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    constexpr std::array<std::u16string_view, 6> words{u"visible", u"hidden", u"clip",
                                                       u"scroll",  u"auto",   u"overlay"};
    constexpr std::array<std::uint16_t, 6> values{0, 1, 1, 2, 3, 3}; // of CssOverflow
    std::uint16_t last = 0;
    int count = 0;
    for (; !reader.tokens.AtEnd() && count < 2; ++count) {
        const CssToken& token = reader.tokens.Next();
        std::size_t word = 0;
        while (word < words.size() && !token.IsIdent(words[word]))
            ++word;
        if (word == words.size()) return false;
        last = std::max(last, values[word]);
    }
    reader.Add(properties[0], CssValue::OfKeyword(last));
    return count > 0;
}

// The corresponding longhand's own name is not in their table: only both together are properties.
bool ReadBorderSpacing(CssShorthandReader& reader, std::span<const CssProperty> properties) {
    const CssLonghand length{u"", P::BorderSpacingX, cssLength, {}};
    const auto first = ReadCssValue(length, reader.tokens, reader.reading, reader.block);
    if (!first) return false;
    const auto second = ReadCssValue(length, reader.tokens, reader.reading, reader.block);
    reader.Add(properties[0], *first);
    reader.Add(properties[1], second ? *second : *first);
    return true;
}

constexpr P margins[] = {P::MarginTop, P::MarginRight, P::MarginBottom, P::MarginLeft};
constexpr P paddings[] = {P::PaddingTop, P::PaddingRight, P::PaddingBottom, P::PaddingLeft};
constexpr P insets[] = {P::Top, P::Right, P::Bottom, P::Left};
constexpr P inlineMargins[] = {P::MarginInlineStart, P::MarginInlineEnd};
constexpr P blockMargins[] = {P::MarginTop, P::MarginBottom};
constexpr P inlinePaddings[] = {P::PaddingInlineStart, P::PaddingInlineEnd};
constexpr P blockPaddings[] = {P::PaddingTop, P::PaddingBottom};
constexpr P borders[] = {P::BorderTopWidth,    P::BorderRightWidth,  P::BorderBottomWidth,
                         P::BorderLeftWidth,   P::BorderTopStyle,    P::BorderRightStyle,
                         P::BorderBottomStyle, P::BorderLeftStyle,   P::BorderTopColor,
                         P::BorderRightColor,  P::BorderBottomColor, P::BorderLeftColor};
constexpr P topBorder[] = {P::BorderTopWidth, P::BorderTopStyle, P::BorderTopColor};
constexpr P rightBorder[] = {P::BorderRightWidth, P::BorderRightStyle, P::BorderRightColor};
constexpr P bottomBorder[] = {P::BorderBottomWidth, P::BorderBottomStyle, P::BorderBottomColor};
constexpr P leftBorder[] = {P::BorderLeftWidth, P::BorderLeftStyle, P::BorderLeftColor};
constexpr P inlineStartBorder[] = {P::BorderInlineStartWidth, P::BorderInlineStartStyle,
                                   P::BorderInlineStartColor};
constexpr P inlineEndBorder[] = {P::BorderInlineEndWidth, P::BorderInlineEndStyle,
                                 P::BorderInlineEndColor};
constexpr P inlineBorders[] = {P::BorderInlineStartWidth, P::BorderInlineEndWidth,
                               P::BorderInlineStartStyle, P::BorderInlineEndStyle,
                               P::BorderInlineStartColor, P::BorderInlineEndColor};
constexpr P blockBorders[] = {P::BorderTopWidth,    P::BorderBottomWidth, P::BorderTopStyle,
                              P::BorderBottomStyle, P::BorderTopColor,    P::BorderBottomColor};
constexpr P inlineInsets[] = {P::InsetInlineStart, P::InsetInlineEnd};
constexpr P blockInsets[] = {P::Top, P::Bottom};
constexpr P spacings[] = {P::BorderSpacingX, P::BorderSpacingY};
constexpr P overflow[] = {P::Overflow};
constexpr P background[] = {P::BackgroundColor};
constexpr P fonts[] = {P::FontStyle, P::FontVariant, P::FontWeight,
                       P::FontSize,  P::LineHeight,  P::FontFamily};
constexpr P family[] = {P::FontFamily};
constexpr P content[] = {P::Content};
constexpr P counterReset[] = {P::CounterReset};
constexpr P counterIncrement[] = {P::CounterIncrement};
constexpr P flex[] = {P::FlexGrow, P::FlexShrink, P::FlexBasis};
constexpr P flexFlow[] = {P::FlexDirection, P::FlexWrap};
constexpr P gaps[] = {P::RowGap, P::ColumnGap};
constexpr P gridColumns[] = {P::GridTemplateColumns};
constexpr P gridRows[] = {P::GridTemplateRows};
constexpr P gridAreas[] = {P::GridTemplateAreas};
constexpr P gridAutoColumns[] = {P::GridAutoColumns};
constexpr P gridAutoRows[] = {P::GridAutoRows};
constexpr P gridFlow[] = {P::GridAutoFlow};
constexpr P grid[] = {P::GridTemplateRows, P::GridTemplateColumns, P::GridTemplateAreas,
                      P::GridAutoFlow};
constexpr P gridArea[] = {P::GridRowStart, P::GridColumnStart, P::GridRowEnd, P::GridColumnEnd};
constexpr P gridRow[] = {P::GridRowStart, P::GridRowEnd};
constexpr P gridColumn[] = {P::GridColumnStart, P::GridColumnEnd};
constexpr P placeItems[] = {P::AlignItems, P::JustifyItems};
constexpr P placeSelf[] = {P::AlignSelf, P::JustifySelf};
constexpr P columns[] = {P::ColumnWidth, P::ColumnCount};
constexpr P columnRule[] = {P::ColumnRuleWidth, P::ColumnRuleStyle, P::ColumnRuleColor};
constexpr P aspectRatio[] = {P::AspectRatio};
constexpr P decoration[] = {P::TextDecoration};
constexpr P listStyles[] = {P::ListStyleType, P::ListStylePosition};

const std::span<const P> wholeGrid = grid, area = gridArea;
const std::span<const P> allBorders = borders, bordersOfLine = inlineBorders,
                         bordersOfBlock = blockBorders;

const CssShorthand shorthands[] = {
    {u"margin", ReadSides, margins},
    {u"padding", ReadSides, paddings},
    {u"border", ReadBorder, borders},
    {u"font", ReadCssFont, fonts},
    {u"font-family", ReadCssFontFamily, family},
    {u"background", ReadCssBackground, background},
    {u"text-decoration", ReadCssTextDecoration, decoration},
    {u"text-decoration-line", ReadCssTextDecoration, decoration},
    {u"border-top", ReadBorder, topBorder},
    {u"border-right", ReadBorder, rightBorder},
    {u"border-bottom", ReadBorder, bottomBorder},
    {u"border-left", ReadBorder, leftBorder},
    {u"border-block-start", ReadBorder, topBorder},
    {u"border-block-end", ReadBorder, bottomBorder},
    {u"border-inline-start", ReadBorder, inlineStartBorder},
    {u"border-inline-end", ReadBorder, inlineEndBorder},
    {u"border-inline", ReadBorder, inlineBorders},
    {u"border-inline-width", ReadPair, bordersOfLine.subspan(0, 2)},
    {u"border-inline-style", ReadPair, bordersOfLine.subspan(2, 2)},
    {u"border-inline-color", ReadPair, bordersOfLine.subspan(4, 2)},
    {u"border-block", ReadBorder, blockBorders},
    {u"border-block-width", ReadPair, bordersOfBlock.subspan(0, 2)},
    {u"border-block-style", ReadPair, bordersOfBlock.subspan(2, 2)},
    {u"border-block-color", ReadPair, bordersOfBlock.subspan(4, 2)},
    {u"border-width", ReadSides, allBorders.subspan(0, 4)},
    {u"border-style", ReadSides, allBorders.subspan(4, 4)},
    {u"border-color", ReadSides, allBorders.subspan(8, 4)},
    {u"border-spacing", ReadBorderSpacing, spacings},
    {u"list-style", ReadCssListStyle, listStyles},
    {u"content", ReadCssContent, content},
    {u"counter-reset", ReadCssCounterReset, counterReset},
    {u"counter-increment", ReadCssCounterIncrement, counterIncrement},
    {u"flex", ReadCssFlex, flex},
    {u"flex-flow", ReadCssFlexFlow, flexFlow},
    {u"gap", ReadPair, gaps},
    {u"grid-gap", ReadPair, gaps},
    {u"grid-template-columns", ReadCssGridTracks, gridColumns},
    {u"grid-template-rows", ReadCssGridTracks, gridRows},
    {u"grid-template-areas", ReadCssGridAreas, gridAreas},
    {u"grid-auto-columns", ReadCssGridTracks, gridAutoColumns},
    {u"grid-auto-rows", ReadCssGridTracks, gridAutoRows},
    {u"grid-auto-flow", ReadCssGridFlow, gridFlow},
    {u"grid-template", ReadCssGridTemplate, wholeGrid.first(3)},
    {u"grid", ReadCssGridTemplate, grid},
    {u"grid-area", ReadCssGridPlace, gridArea},
    {u"grid-row", ReadCssGridPlace, gridRow},
    {u"grid-column", ReadCssGridPlace, gridColumn},
    {u"grid-row-start", ReadCssGridPlace, area.subspan(0, 1)},
    {u"grid-column-start", ReadCssGridPlace, area.subspan(1, 1)},
    {u"grid-row-end", ReadCssGridPlace, area.subspan(2, 1)},
    {u"grid-column-end", ReadCssGridPlace, area.subspan(3, 1)},
    {u"place-items", ReadPair, placeItems},
    {u"place-self", ReadPair, placeSelf},
    {u"columns", ReadCssColumns, columns},
    {u"-moz-columns", ReadCssColumns, columns},
    {u"-webkit-columns", ReadCssColumns, columns},
    {u"column-rule", ReadBorder, columnRule},
    {u"aspect-ratio", ReadCssAspectRatio, aspectRatio},
    {u"overflow", ReadOverflow, overflow},
    {u"overflow-x", ReadOverflow, overflow},
    {u"overflow-y", ReadOverflow, overflow},
    {u"inset", ReadSides, insets},
    {u"inset-inline", ReadPair, inlineInsets},
    {u"inset-block", ReadPair, blockInsets},
    {u"margin-inline", ReadPair, inlineMargins},
    {u"margin-block", ReadPair, blockMargins},
    {u"padding-inline", ReadPair, inlinePaddings},
    {u"padding-block", ReadPair, blockPaddings},
};

} // namespace

const CssShorthand* FindCssShorthand(std::u16string_view lowerCase) {
    for (const CssShorthand& shorthand : shorthands)
        if (shorthand.name == lowerCase) return &shorthand;
    return nullptr;
}
