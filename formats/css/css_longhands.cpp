#include "formats/css/css_longhands.h"

#include "formats/css/css_color.h"
#include "formats/css/css_length.h"
#include "formats/css/css_longhand_keywords.h"
#include "formats/css/css_math.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace css_keywords;

// clang-format off

using P = CssProperty;
constexpr std::uint8_t lengths = cssLength | cssPercent, anyLengths = lengths | cssNegative;
constexpr std::uint8_t lineWidths = cssLength | cssLengthKeyword;

// In the order of the names.
constexpr CssLonghand longhands[] = {
    {u"-moz-column-count", P::ColumnCount, cssNumber, autos},
    {u"-moz-column-gap", P::ColumnGap, lengths, normals},
    {u"-moz-column-width", P::ColumnWidth, cssLength, autos},
    {u"-webkit-box-sizing", P::BoxSizing, 0, boxSizings},
    {u"-webkit-column-count", P::ColumnCount, cssNumber, autos},
    {u"-webkit-column-gap", P::ColumnGap, lengths, normals},
    {u"-webkit-column-width", P::ColumnWidth, cssLength, autos},
    {u"align-items", P::AlignItems, 0, alignItems},
    {u"align-self", P::AlignSelf, 0, alignSelves},
    {u"background-color", P::BackgroundColor, cssColor, {}},
    {u"block-size", P::Height, lengths, autos},
    {u"border-block-end-color", P::BorderBottomColor, cssColor, {}},
    {u"border-block-end-style", P::BorderBottomStyle, 0, borderStyles},
    {u"border-block-end-width", P::BorderBottomWidth, lineWidths, borderWidths},
    {u"border-block-start-color", P::BorderTopColor, cssColor, {}},
    {u"border-block-start-style", P::BorderTopStyle, 0, borderStyles},
    {u"border-block-start-width", P::BorderTopWidth, lineWidths, borderWidths},
    {u"border-bottom-color", P::BorderBottomColor, cssColor, {}},
    {u"border-bottom-style", P::BorderBottomStyle, 0, borderStyles},
    {u"border-bottom-width", P::BorderBottomWidth, lineWidths, borderWidths},
    {u"border-collapse", P::BorderCollapse, 0, borderCollapses},
    {u"border-inline-end-color", P::BorderInlineEndColor, cssColor, {}},
    {u"border-inline-end-style", P::BorderInlineEndStyle, 0, borderStyles},
    {u"border-inline-end-width", P::BorderInlineEndWidth, lineWidths, borderWidths},
    {u"border-inline-start-color", P::BorderInlineStartColor, cssColor, {}},
    {u"border-inline-start-style", P::BorderInlineStartStyle, 0, borderStyles},
    {u"border-inline-start-width", P::BorderInlineStartWidth, lineWidths, borderWidths},
    {u"border-left-color", P::BorderLeftColor, cssColor, {}},
    {u"border-left-style", P::BorderLeftStyle, 0, borderStyles},
    {u"border-left-width", P::BorderLeftWidth, lineWidths, borderWidths},
    {u"border-right-color", P::BorderRightColor, cssColor, {}},
    {u"border-right-style", P::BorderRightStyle, 0, borderStyles},
    {u"border-right-width", P::BorderRightWidth, lineWidths, borderWidths},
    {u"border-top-color", P::BorderTopColor, cssColor, {}},
    {u"border-top-style", P::BorderTopStyle, 0, borderStyles},
    {u"border-top-width", P::BorderTopWidth, lineWidths, borderWidths},
    {u"bottom", P::Bottom, anyLengths, autos},
    {u"box-sizing", P::BoxSizing, 0, boxSizings},
    {u"break-after", P::BreakAfter, 0, breaks},
    {u"break-before", P::BreakBefore, 0, breaks},
    {u"break-inside", P::BreakInside, 0, breaks},
    {u"caption-side", P::CaptionSide, 0, captionSides},
    {u"clear", P::Clear, 0, clears},
    {u"color", P::TextColor, cssColor, {}},
    {u"column-count", P::ColumnCount, cssNumber, autos},
    {u"column-gap", P::ColumnGap, lengths, normals},
    {u"column-rule-color", P::ColumnRuleColor, cssColor, {}},
    {u"column-rule-style", P::ColumnRuleStyle, 0, borderStyles},
    {u"column-rule-width", P::ColumnRuleWidth, lineWidths, borderWidths},
    {u"column-span", P::ColumnSpan, 0, columnSpans},
    {u"column-width", P::ColumnWidth, cssLength, autos},
    {u"direction", P::Direction, 0, directions},
    {u"display", P::Display, 0, displays},
    {u"empty-cells", P::EmptyCells, 0, emptyCells},
    {u"flex-basis", P::FlexBasis, lengths, widths},
    {u"flex-direction", P::FlexDirection, 0, flexDirections},
    {u"flex-grow", P::FlexGrow, cssNumber, {}},
    {u"flex-shrink", P::FlexShrink, cssNumber, {}},
    {u"flex-wrap", P::FlexWrap, 0, flexWraps},
    {u"float", P::Float, 0, floats},
    {u"font-size", P::FontSize, lengths, fontSizes},
    {u"font-style", P::FontStyle, 0, fontStyles},
    {u"font-variant", P::FontVariant, 0, fontVariants},
    {u"font-variant-caps", P::FontVariant, 0, fontVariants},
    {u"font-weight", P::FontWeight, cssNumber, fontWeights},
    {u"grid-column-gap", P::ColumnGap, lengths, normals},
    {u"grid-row-gap", P::RowGap, lengths, normals},
    {u"height", P::Height, lengths, autos},
    {u"inline-size", P::Width, lengths, widths},
    {u"inset-block-end", P::Bottom, anyLengths, autos},
    {u"inset-block-start", P::Top, anyLengths, autos},
    {u"inset-inline-end", P::InsetInlineEnd, anyLengths, autos},
    {u"inset-inline-start", P::InsetInlineStart, anyLengths, autos},
    {u"justify-content", P::JustifyContent, 0, justifyContents},
    {u"justify-items", P::JustifyItems, 0, justifyItems},
    {u"justify-self", P::JustifySelf, 0, justifySelves},
    {u"left", P::Left, anyLengths, autos},
    {u"letter-spacing", P::LetterSpacing, cssLength | cssNegative, normals},
    {u"line-height", P::LineHeight, lengths | cssNumber, normals},
    {u"list-style-position", P::ListStylePosition, 0, listStylePositions},
    {u"list-style-type", P::ListStyleType, 0, listStyleTypes},
    {u"margin-block-end", P::MarginBottom, anyLengths, autos},
    {u"margin-block-start", P::MarginTop, anyLengths, autos},
    {u"margin-bottom", P::MarginBottom, anyLengths, autos},
    {u"margin-inline-end", P::MarginInlineEnd, anyLengths, autos},
    {u"margin-inline-start", P::MarginInlineStart, anyLengths, autos},
    {u"margin-left", P::MarginLeft, anyLengths, autos},
    {u"margin-right", P::MarginRight, anyLengths, autos},
    {u"margin-top", P::MarginTop, anyLengths, autos},
    {u"max-block-size", P::MaxHeight, lengths, nones},
    {u"max-height", P::MaxHeight, lengths, nones},
    {u"max-inline-size", P::MaxWidth, lengths, maxWidths},
    {u"max-width", P::MaxWidth, lengths, maxWidths},
    {u"min-block-size", P::MinHeight, lengths, autos},
    {u"min-height", P::MinHeight, lengths, autos},
    {u"min-inline-size", P::MinWidth, lengths, widths},
    {u"min-width", P::MinWidth, lengths, widths},
    {u"object-fit", P::ObjectFit, 0, objectFits},
    {u"overflow-wrap", P::OverflowWrap, 0, overflowWraps},
    {u"padding-block-end", P::PaddingBottom, lengths, {}},
    {u"padding-block-start", P::PaddingTop, lengths, {}},
    {u"padding-bottom", P::PaddingBottom, lengths, {}},
    {u"padding-inline-end", P::PaddingInlineEnd, lengths, {}},
    {u"padding-inline-start", P::PaddingInlineStart, lengths, {}},
    {u"padding-left", P::PaddingLeft, lengths, {}},
    {u"padding-right", P::PaddingRight, lengths, {}},
    {u"padding-top", P::PaddingTop, lengths, {}},
    {u"page-break-after", P::BreakAfter, 0, breaks},
    {u"page-break-before", P::BreakBefore, 0, breaks},
    {u"page-break-inside", P::BreakInside, 0, breaks},
    {u"position", P::Position, 0, positions},
    {u"right", P::Right, anyLengths, autos},
    {u"row-gap", P::RowGap, lengths, normals},
    {u"table-layout", P::TableLayout, 0, tableLayouts},
    {u"text-align", P::TextAlign, 0, textAligns},
    {u"text-indent", P::TextIndent, anyLengths, {}},
    {u"text-transform", P::TextTransform, 0, textTransforms},
    {u"top", P::Top, anyLengths, autos},
    {u"unicode-bidi", P::UnicodeBidi, 0, unicodeBidis},
    {u"vertical-align", P::VerticalAlign, anyLengths, verticalAligns},
    {u"visibility", P::Visibility, 0, visibilities},
    {u"white-space", P::WhiteSpace, 0, whiteSpaces},
    {u"width", P::Width, lengths, widths},
    {u"word-spacing", P::WordSpacing, cssLength | cssNegative, normals},
    {u"word-wrap", P::OverflowWrap, 0, overflowWraps},
};
// clang-format on
static_assert(std::ranges::is_sorted(longhands, {}, &CssLonghand::name));

std::optional<CssValue> ReadNumeric(const CssLonghand& longhand, const CssToken& token,
                                    const CssReading& reading) {
    const bool isNegative = token.number < 0;
    if (isNegative && !(longhand.accepts & cssNegative)) return std::nullopt;
    if (token.Is(CssToken::Kind::Number) && (longhand.accepts & cssNumber))
        return CssValue::Number(token.number);
    if (token.Is(CssToken::Kind::Percentage) && (longhand.accepts & cssPercent))
        return CssValue::Percent(token.number);
    if (longhand.accepts & cssLength) return CssLengthOf(token, reading.quirks);
    return std::nullopt;
}

std::optional<CssValue> ReadMath(const CssLonghand& longhand, CssTokenStream& tokens,
                                 CssBlock& block) {
    auto math = ReadCssMath(tokens);
    if (!math) return std::nullopt;
    const bool isNumber = math->type == CssMathType::Number;
    if (!(longhand.accepts & (isNumber ? cssNumber : cssLength))) return std::nullopt;
    if (math->hasPercent && !(longhand.accepts & cssPercent)) return std::nullopt;
    return block.Store(CssValue::Kind::Math, &CssBlock::maths, std::move(math->steps));
}

} // namespace

const CssLonghand* FindCssLonghand(std::u16string_view lowerCase) {
    const auto found = std::ranges::lower_bound(longhands, lowerCase, {}, &CssLonghand::name);
    return found != std::end(longhands) && found->name == lowerCase ? found : nullptr;
}

const CssLonghand& CssLonghandOf(CssProperty property) {
    return *std::ranges::find(longhands, property, &CssLonghand::property);
}

std::optional<CssValue> ReadCssValue(const CssLonghand& longhand, CssTokenStream& tokens,
                                     const CssReading& reading, CssBlock& block) {
    const std::size_t start = tokens.Place();
    const CssToken& token = tokens.Peek();
    if (token.Is(CssToken::Kind::Ident))
        for (const CssKeyword& keyword : longhand.keywords) {
            if (!CssEqual(token.text, keyword.name)) continue;
            if (keyword.userAgentOnly && !reading.userAgent) break;
            tokens.Next();
            if (longhand.accepts & cssLengthKeyword) return CssValue::Pixels(keyword.value);
            return CssValue::OfKeyword(keyword.value);
        }
    std::optional<CssValue> value;
    if (longhand.accepts & cssColor)
        value = ReadCssColor(tokens, reading.quirks);
    else if (IsCssMath(token))
        value = ReadMath(longhand, tokens, block);
    else {
        value = ReadNumeric(longhand, token, reading);
        if (value) tokens.Next();
    }
    if (!value) tokens.GoBack(start);
    return value;
}
