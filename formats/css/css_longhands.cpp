#include "formats/css/css_longhands.h"

#include "formats/css/css_color.h"
#include "formats/css/css_length.h"
#include "formats/css/css_style.h"

#include <algorithm>
#include <iterator>

namespace {

// clang-format off
#define K(name, value) {name, static_cast<std::uint16_t>(value)}

constexpr CssKeyword autos[] = {K(u"auto", 0)};
constexpr CssKeyword nones[] = {K(u"none", 0)};
constexpr CssKeyword normals[] = {K(u"normal", 0)};
constexpr CssKeyword borderWidths[] = {K(u"thin", 1), K(u"medium", 3), K(u"thick", 5)};
constexpr CssKeyword borderStyles[] = {
    K(u"none", CssBorderStyle::None), K(u"hidden", CssBorderStyle::Hidden),
    K(u"dotted", CssBorderStyle::Dotted), K(u"dashed", CssBorderStyle::Dashed),
    K(u"solid", CssBorderStyle::Solid), K(u"double", CssBorderStyle::Double),
    K(u"groove", CssBorderStyle::Groove), K(u"ridge", CssBorderStyle::Ridge),
    K(u"inset", CssBorderStyle::Inset), K(u"outset", CssBorderStyle::Outset)};
// Flex and grid lay their children out below each other here, in the order of the text.
constexpr CssKeyword displays[] = {
    K(u"none", CssDisplay::None), K(u"inline", CssDisplay::Inline),
    K(u"block", CssDisplay::Block), K(u"inline-block", CssDisplay::InlineBlock),
    K(u"list-item", CssDisplay::ListItem), K(u"table", CssDisplay::Table),
    K(u"inline-table", CssDisplay::InlineTable),
    K(u"table-row-group", CssDisplay::TableRowGroup),
    K(u"table-header-group", CssDisplay::TableHeaderGroup),
    K(u"table-footer-group", CssDisplay::TableFooterGroup),
    K(u"table-row", CssDisplay::TableRow), K(u"table-cell", CssDisplay::TableCell),
    K(u"table-column", CssDisplay::TableColumn),
    K(u"table-column-group", CssDisplay::TableColumnGroup),
    K(u"table-caption", CssDisplay::TableCaption), K(u"contents", CssDisplay::Contents),
    K(u"flow-root", int(CssDisplay::Block) | cssFlowRoot),
    K(u"flex", int(CssDisplay::Block) | cssFlowRoot),
    K(u"grid", int(CssDisplay::Block) | cssFlowRoot),
    K(u"inline-flex", CssDisplay::InlineBlock), K(u"inline-grid", CssDisplay::InlineBlock),
    K(u"-webkit-box", int(CssDisplay::Block) | cssFlowRoot),
    K(u"-webkit-flex", int(CssDisplay::Block) | cssFlowRoot),
    K(u"ruby", CssDisplay::Inline), K(u"ruby-text", CssDisplay::Inline)};
constexpr CssKeyword positions[] = {
    K(u"static", CssPosition::Static), K(u"relative", CssPosition::Relative),
    K(u"absolute", CssPosition::Absolute), K(u"fixed", CssPosition::Fixed),
    K(u"sticky", CssPosition::Sticky)};
constexpr CssKeyword floats[] = {
    K(u"none", CssFloat::None), K(u"left", CssFloat::Left), K(u"right", CssFloat::Right)};
constexpr CssKeyword clears[] = {K(u"none", CssClear::None), K(u"left", CssClear::Left),
                                 K(u"right", CssClear::Right), K(u"both", CssClear::Both)};
constexpr CssKeyword boxSizings[] = {K(u"content-box", CssBoxSizing::ContentBox),
                                     K(u"border-box", CssBoxSizing::BorderBox)};
constexpr CssKeyword visibilities[] = {K(u"visible", CssVisibility::Visible),
                                       K(u"hidden", CssVisibility::Hidden),
                                       K(u"collapse", CssVisibility::Collapse)};
constexpr CssKeyword verticalAligns[] = {
    K(u"baseline", CssVerticalAlign::Baseline), K(u"sub", CssVerticalAlign::Sub),
    K(u"super", CssVerticalAlign::Super), K(u"top", CssVerticalAlign::Top),
    K(u"text-top", CssVerticalAlign::TextTop), K(u"middle", CssVerticalAlign::Middle),
    K(u"bottom", CssVerticalAlign::Bottom), K(u"text-bottom", CssVerticalAlign::TextBottom)};
constexpr CssKeyword unicodeBidis[] = {
    K(u"normal", CssUnicodeBidi::Normal), K(u"embed", CssUnicodeBidi::Embed),
    K(u"isolate", CssUnicodeBidi::Isolate), K(u"bidi-override", CssUnicodeBidi::Override),
    K(u"isolate-override", CssUnicodeBidi::IsolateOverride),
    K(u"plaintext", CssUnicodeBidi::Plaintext)};
constexpr CssKeyword tableLayouts[] = {K(u"auto", CssTableLayout::Auto),
                                       K(u"fixed", CssTableLayout::Fixed)};
constexpr CssKeyword breaks[] = {
    K(u"auto", CssBreak::Auto), K(u"avoid", CssBreak::Avoid),
    K(u"avoid-page", CssBreak::Avoid), K(u"always", CssBreak::Page), K(u"page", CssBreak::Page),
    K(u"left", CssBreak::Page), K(u"right", CssBreak::Page), K(u"recto", CssBreak::Page),
    K(u"verso", CssBreak::Page)};
constexpr CssKeyword directions[] = {K(u"ltr", CssDirection::LeftToRight),
                                     K(u"rtl", CssDirection::RightToLeft)};
constexpr CssKeyword fontSizes[] = {
    K(u"xx-small", 0), K(u"x-small", 1), K(u"small", 2), K(u"medium", 3), K(u"large", 4),
    K(u"x-large", 5), K(u"xx-large", 6), K(u"xxx-large", 7), K(u"smaller", cssSmaller),
    K(u"larger", cssLarger)};
constexpr CssKeyword fontStyles[] = {K(u"normal", CssFontStyle::Normal),
                                     K(u"italic", CssFontStyle::Italic),
                                     K(u"oblique", CssFontStyle::Oblique)};
constexpr CssKeyword fontVariants[] = {
    K(u"normal", CssFontCaps::Normal), K(u"none", CssFontCaps::Normal),
    K(u"small-caps", CssFontCaps::Small), K(u"all-small-caps", CssFontCaps::Small)};
constexpr CssKeyword fontWeights[] = {K(u"normal", 400), K(u"bold", 700), K(u"bolder", cssBolder),
                                      K(u"lighter", cssLighter)};
constexpr CssKeyword textAligns[] = {
    K(u"start", CssTextAlign::Start), K(u"end", CssTextAlign::End),
    K(u"left", CssTextAlign::Left), K(u"right", CssTextAlign::Right),
    K(u"center", CssTextAlign::Center), K(u"justify", CssTextAlign::Justify),
    K(u"match-parent", CssTextAlign::MatchParent),
    {u"-html-left", std::uint16_t(CssTextAlign::HtmlLeft), true},
    {u"-html-right", std::uint16_t(CssTextAlign::HtmlRight), true},
    {u"-html-center", std::uint16_t(CssTextAlign::HtmlCenter), true},
    {u"-html-header-cell", std::uint16_t(CssTextAlign::HeaderCell), true}};
constexpr CssKeyword textTransforms[] = {
    K(u"none", CssTextTransform::None), K(u"capitalize", CssTextTransform::Capitalize),
    K(u"uppercase", CssTextTransform::Uppercase), K(u"lowercase", CssTextTransform::Lowercase)};
constexpr CssKeyword whiteSpaces[] = {
    K(u"normal", CssWhiteSpace::Normal), K(u"nowrap", CssWhiteSpace::NoWrap),
    K(u"pre", CssWhiteSpace::Pre), K(u"pre-wrap", CssWhiteSpace::PreWrap),
    K(u"pre-line", CssWhiteSpace::PreLine), K(u"break-spaces", CssWhiteSpace::BreakSpaces)};
constexpr CssKeyword overflowWraps[] = {K(u"normal", CssOverflowWrap::Normal),
                                        K(u"break-word", CssOverflowWrap::BreakWord),
                                        K(u"anywhere", CssOverflowWrap::BreakWord)};
constexpr CssKeyword listStyleTypes[] = {
    K(u"none", CssListStyleType::None), K(u"disc", CssListStyleType::Disc),
    K(u"circle", CssListStyleType::Circle), K(u"square", CssListStyleType::Square),
    K(u"decimal", CssListStyleType::Decimal),
    K(u"decimal-leading-zero", CssListStyleType::DecimalLeadingZero),
    K(u"lower-alpha", CssListStyleType::LowerAlpha),
    K(u"lower-latin", CssListStyleType::LowerAlpha),
    K(u"upper-alpha", CssListStyleType::UpperAlpha),
    K(u"upper-latin", CssListStyleType::UpperAlpha),
    K(u"lower-roman", CssListStyleType::LowerRoman),
    K(u"upper-roman", CssListStyleType::UpperRoman),
    K(u"lower-greek", CssListStyleType::LowerGreek)};
constexpr CssKeyword listStylePositions[] = {K(u"outside", CssListStylePosition::Outside),
                                             K(u"inside", CssListStylePosition::Inside)};
constexpr CssKeyword borderCollapses[] = {K(u"separate", CssBorderCollapse::Separate),
                                          K(u"collapse", CssBorderCollapse::Collapse)};
constexpr CssKeyword captionSides[] = {K(u"top", CssCaptionSide::Top),
                                       K(u"bottom", CssCaptionSide::Bottom)};
constexpr CssKeyword emptyCells[] = {K(u"show", CssEmptyCells::Show),
                                     K(u"hide", CssEmptyCells::Hide)};
#undef K

using P = CssProperty;
constexpr std::uint8_t lengths = cssLength | cssPercent, anyLengths = lengths | cssNegative;
constexpr std::uint8_t lineWidths = cssLength | cssLengthKeyword;

// In the order of the names.
constexpr CssLonghand longhands[] = {
    {u"-webkit-box-sizing", P::BoxSizing, 0, boxSizings},
    {u"background-color", P::BackgroundColor, cssColor, {}},
    {u"border-bottom-color", P::BorderBottomColor, cssColor, {}},
    {u"border-bottom-style", P::BorderBottomStyle, 0, borderStyles},
    {u"border-bottom-width", P::BorderBottomWidth, lineWidths, borderWidths},
    {u"border-collapse", P::BorderCollapse, 0, borderCollapses},
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
    {u"direction", P::Direction, 0, directions},
    {u"display", P::Display, 0, displays},
    {u"empty-cells", P::EmptyCells, 0, emptyCells},
    {u"float", P::Float, 0, floats},
    {u"font-size", P::FontSize, lengths, fontSizes},
    {u"font-style", P::FontStyle, 0, fontStyles},
    {u"font-variant", P::FontVariant, 0, fontVariants},
    {u"font-variant-caps", P::FontVariant, 0, fontVariants},
    {u"font-weight", P::FontWeight, cssNumber, fontWeights},
    {u"height", P::Height, lengths, autos},
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
    {u"max-height", P::MaxHeight, lengths, nones},
    {u"max-width", P::MaxWidth, lengths, nones},
    {u"min-height", P::MinHeight, lengths, autos},
    {u"min-width", P::MinWidth, lengths, autos},
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
    {u"table-layout", P::TableLayout, 0, tableLayouts},
    {u"text-align", P::TextAlign, 0, textAligns},
    {u"text-indent", P::TextIndent, anyLengths, {}},
    {u"text-transform", P::TextTransform, 0, textTransforms},
    {u"top", P::Top, anyLengths, autos},
    {u"unicode-bidi", P::UnicodeBidi, 0, unicodeBidis},
    {u"vertical-align", P::VerticalAlign, anyLengths, verticalAligns},
    {u"visibility", P::Visibility, 0, visibilities},
    {u"white-space", P::WhiteSpace, 0, whiteSpaces},
    {u"width", P::Width, lengths, autos},
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

} // namespace

const CssLonghand* FindCssLonghand(std::u16string_view lowerCase) {
    const auto found = std::ranges::lower_bound(longhands, lowerCase, {}, &CssLonghand::name);
    return found != std::end(longhands) && found->name == lowerCase ? found : nullptr;
}

const CssLonghand& CssLonghandOf(CssProperty property) {
    return *std::ranges::find(longhands, property, &CssLonghand::property);
}

std::optional<CssValue> ReadCssValue(const CssLonghand& longhand, CssTokenStream& tokens,
                                     const CssReading& reading) {
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
    else {
        value = ReadNumeric(longhand, token, reading);
        if (value) tokens.Next();
    }
    if (!value) tokens.GoBack(start);
    return value;
}
