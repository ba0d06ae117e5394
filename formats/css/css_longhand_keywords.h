// The keywords of each longhand property and what they are in a computed style; for the table in
// css_longhands.cpp.
#pragma once

#include "formats/css/css_keyword.h"
#include "formats/css/css_style_values.h"

namespace css_keywords {

// clang-format off
#define K(name, value) {name, static_cast<std::uint16_t>(value)}

constexpr CssKeyword autos[] = {K(u"auto", 0)};
constexpr CssKeyword nones[] = {K(u"none", 0)};
#define WIDTHS_OF_CONTENT \
    K(u"min-content", cssMinContent), K(u"-webkit-min-content", cssMinContent), \
    K(u"max-content", cssMaxContent), K(u"-webkit-max-content", cssMaxContent), \
    K(u"fit-content", cssFitContent), K(u"-webkit-fit-content", cssFitContent)
constexpr CssKeyword widths[] = {K(u"auto", 0), WIDTHS_OF_CONTENT};
constexpr CssKeyword maxWidths[] = {K(u"none", 0), WIDTHS_OF_CONTENT};
#undef WIDTHS_OF_CONTENT
constexpr CssKeyword normals[] = {K(u"normal", 0)};
constexpr CssKeyword borderWidths[] = {K(u"thin", 1), K(u"medium", 3), K(u"thick", 5)};
constexpr CssKeyword borderStyles[] = {
    K(u"none", CssBorderStyle::None), K(u"hidden", CssBorderStyle::Hidden),
    K(u"dotted", CssBorderStyle::Dotted), K(u"dashed", CssBorderStyle::Dashed),
    K(u"solid", CssBorderStyle::Solid), K(u"double", CssBorderStyle::Double),
    K(u"groove", CssBorderStyle::Groove), K(u"ridge", CssBorderStyle::Ridge),
    K(u"inset", CssBorderStyle::Inset), K(u"outset", CssBorderStyle::Outset)};
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
    K(u"flex", int(CssDisplay::Block) | cssFlowRoot | cssFlexLayout),
    K(u"grid", int(CssDisplay::Block) | cssFlowRoot | cssGridLayout),
    K(u"inline-flex", int(CssDisplay::InlineBlock) | cssFlexLayout),
    K(u"inline-grid", int(CssDisplay::InlineBlock) | cssGridLayout),
    K(u"-webkit-box", int(CssDisplay::Block) | cssFlowRoot),
    K(u"-webkit-flex", int(CssDisplay::Block) | cssFlowRoot | cssFlexLayout),
    K(u"ruby", CssDisplay::Ruby), K(u"ruby-text", CssDisplay::RubyText),
    K(u"ruby-base", CssDisplay::Inline)};
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
constexpr CssKeyword flexDirections[] = {K(u"row", CssFlexDirection::Row),
                                         K(u"row-reverse", CssFlexDirection::RowReverse),
                                         K(u"column", CssFlexDirection::Column),
                                         K(u"column-reverse", CssFlexDirection::ColumnReverse)};
constexpr CssKeyword flexWraps[] = {K(u"nowrap", CssFlexWrap::NoWrap),
                                    K(u"wrap", CssFlexWrap::Wrap),
                                    K(u"wrap-reverse", CssFlexWrap::WrapReverse)};
constexpr CssKeyword justifyContents[] = {
    K(u"normal", CssJustifyContent::Start), K(u"start", CssJustifyContent::Start),
    K(u"flex-start", CssJustifyContent::Start), K(u"left", CssJustifyContent::Start),
    K(u"stretch", CssJustifyContent::Start), K(u"end", CssJustifyContent::End),
    K(u"flex-end", CssJustifyContent::End), K(u"right", CssJustifyContent::End),
    K(u"center", CssJustifyContent::Center),
    K(u"space-between", CssJustifyContent::SpaceBetween),
    K(u"space-around", CssJustifyContent::SpaceAround),
    K(u"space-evenly", CssJustifyContent::SpaceEvenly)};
#define ALIGNMENTS \
    K(u"normal", CssAlignItems::Stretch), K(u"stretch", CssAlignItems::Stretch), \
    K(u"start", CssAlignItems::Start), K(u"flex-start", CssAlignItems::Start), \
    K(u"self-start", CssAlignItems::Start), K(u"end", CssAlignItems::End), \
    K(u"flex-end", CssAlignItems::End), K(u"self-end", CssAlignItems::End), \
    K(u"center", CssAlignItems::Center), K(u"baseline", CssAlignItems::Baseline)
constexpr CssKeyword alignItems[] = {ALIGNMENTS};
constexpr CssKeyword alignSelves[] = {K(u"auto", CssAlignItems::Auto), ALIGNMENTS};
constexpr CssKeyword justifyItems[] = {
    K(u"left", CssAlignItems::Start), K(u"right", CssAlignItems::End),
    K(u"legacy", CssAlignItems::Stretch), ALIGNMENTS};
constexpr CssKeyword justifySelves[] = {
    K(u"auto", CssAlignItems::Auto), K(u"left", CssAlignItems::Start),
    K(u"right", CssAlignItems::End), ALIGNMENTS};
#undef ALIGNMENTS
constexpr CssKeyword columnSpans[] = {K(u"none", CssColumnSpan::None),
                                      K(u"all", CssColumnSpan::All)};
constexpr CssKeyword objectFits[] = {
    K(u"fill", CssObjectFit::Fill), K(u"contain", CssObjectFit::Contain),
    K(u"cover", CssObjectFit::Contain), K(u"none", CssObjectFit::Contain),
    K(u"scale-down", CssObjectFit::Contain)};
#undef K
// clang-format on

} // namespace css_keywords
