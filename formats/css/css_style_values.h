// The values of a computed style that are words, by the names of their properties in CSS.
#pragma once

#include <cstdint>

enum class CssDisplay : std::uint8_t {
    None,
    Inline,
    Block, // also flow-root, flex and grid; see CssInnerLayout
    InlineBlock,
    ListItem,
    Table,
    InlineTable,
    TableRowGroup,
    TableHeaderGroup,
    TableFooterGroup,
    TableRow,
    TableCell,
    TableColumn,
    TableColumnGroup,
    TableCaption,
    Contents,
    Ruby,
    RubyText,
};
// How the children of a block are laid out.
enum class CssInnerLayout : std::uint8_t { Flow, Flex, Grid };
enum class CssGridFlow : std::uint8_t { Rows, Columns };
enum class CssColumnSpan : std::uint8_t { None, All };
enum class CssFlexDirection : std::uint8_t { Row, RowReverse, Column, ColumnReverse };
enum class CssFlexWrap : std::uint8_t { NoWrap, Wrap, WrapReverse };
enum class CssJustifyContent : std::uint8_t {
    Start,
    End,
    Center,
    SpaceBetween,
    SpaceAround,
    SpaceEvenly
};
enum class CssAlignItems : std::uint8_t { Stretch, Start, End, Center, Baseline, Auto };
enum class CssObjectFit : std::uint8_t {
    Fill,
    Contain // also cover and none, which would cut the picture
};
enum class CssPosition : std::uint8_t { Static, Relative, Absolute, Fixed, Sticky };
enum class CssFloat : std::uint8_t { None, Left, Right };
enum class CssClear : std::uint8_t { None, Left, Right, Both };
enum class CssOverflow : std::uint8_t { Visible, Hidden, Scroll, Auto };
enum class CssBoxSizing : std::uint8_t { ContentBox, BorderBox };
enum class CssVisibility : std::uint8_t { Visible, Hidden, Collapse };
// From HtmlLeft on: `align` of HTML 4, which moves blocks within as well as text. HeaderCell is
// centred where nothing else was said around it; it is never a computed value.
enum class CssTextAlign : std::uint8_t {
    Start,
    End,
    Left,
    Right,
    Center,
    Justify,
    HtmlLeft,
    HtmlRight,
    HtmlCenter,
    HeaderCell,
    MatchParent
};
enum class CssTextTransform : std::uint8_t { None, Capitalize, Uppercase, Lowercase };
// A set: they add up on the way down.
enum CssTextDecoration : std::uint8_t {
    cssNoDecoration = 0,
    cssUnderline = 1,
    cssOverline = 2,
    cssLineThrough = 4
};
enum class CssVerticalAlign : std::uint8_t {
    Baseline,
    Sub,
    Super,
    Top,
    TextTop,
    Middle,
    Bottom,
    TextBottom,
    BaselineMiddle, // of old pictures: their middle stands on the baseline
    Length,         // `verticalShift` says it; a percentage is of the line height
};
enum class CssWhiteSpace : std::uint8_t { Normal, NoWrap, Pre, PreWrap, PreLine, BreakSpaces };
enum class CssListStyleType : std::uint8_t {
    None,
    Disc,
    Circle,
    Square,
    Decimal,
    DecimalLeadingZero,
    LowerAlpha,
    UpperAlpha,
    LowerRoman,
    UpperRoman,
    LowerGreek,
};
enum class CssListStylePosition : std::uint8_t { Outside, Inside };
enum class CssDirection : std::uint8_t { LeftToRight, RightToLeft };
enum class CssUnicodeBidi : std::uint8_t {
    Normal,
    Embed,
    Isolate,
    Override,
    IsolateOverride,
    Plaintext
};
enum class CssFontStyle : std::uint8_t { Normal, Italic, Oblique };
enum class CssFontCaps : std::uint8_t { Normal, Small };
enum class CssBorderStyle : std::uint8_t {
    None,
    Hidden,
    Dotted,
    Dashed,
    Solid,
    Double,
    Groove,
    Ridge,
    Inset,
    Outset
};
enum class CssBorderCollapse : std::uint8_t { Separate, Collapse };
enum class CssCaptionSide : std::uint8_t { Top, Bottom };
enum class CssEmptyCells : std::uint8_t { Show, Hide };
enum class CssTableLayout : std::uint8_t { Auto, Fixed };
enum class CssOverflowWrap : std::uint8_t { Normal, BreakWord };
enum class CssBreak : std::uint8_t { Auto, Avoid, Page };
