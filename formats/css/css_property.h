// The properties that are understood: all longhands, the shorthands become these when read.
#pragma once

#include <cstddef>
#include <cstdint>

enum class CssProperty : std::uint8_t {
    None,
    // Sides in the order of CssSide.
    MarginTop,
    MarginRight,
    MarginBottom,
    MarginLeft,
    MarginInlineStart, // left or right, by the direction
    MarginInlineEnd,
    PaddingTop,
    PaddingRight,
    PaddingBottom,
    PaddingLeft,
    PaddingInlineStart,
    PaddingInlineEnd,
    BorderTopWidth,
    BorderRightWidth,
    BorderBottomWidth,
    BorderLeftWidth,
    BorderTopStyle,
    BorderRightStyle,
    BorderBottomStyle,
    BorderLeftStyle,
    BorderTopColor,
    BorderRightColor,
    BorderBottomColor,
    BorderLeftColor,
    Top,
    Right,
    Bottom,
    Left,
    Width,
    Height,
    MinWidth,
    MinHeight,
    MaxWidth,
    MaxHeight,
    BackgroundColor,
    Display,
    Position,
    Float,
    Clear,
    Overflow,
    BoxSizing,
    VerticalAlign,
    UnicodeBidi,
    TableLayout,
    BreakBefore,
    BreakAfter,
    BreakInside,
    TextDecoration,
    Content,
    CounterReset,
    CounterIncrement,
    FlexDirection,
    FlexWrap,
    FlexGrow,
    FlexShrink,
    FlexBasis,
    JustifyContent,
    AlignItems,
    AlignSelf,
    JustifyItems,
    JustifySelf,
    GridTemplateColumns,
    GridTemplateRows,
    GridTemplateAreas,
    GridAutoColumns,
    GridAutoRows,
    GridAutoFlow,
    GridRowStart,
    GridColumnStart,
    GridRowEnd,
    GridColumnEnd,
    ColumnCount,
    ColumnWidth,
    ColumnSpan,
    ColumnRuleWidth,
    ColumnRuleStyle,
    ColumnRuleColor,
    ColumnGap,
    RowGap,
    ObjectFit,
    AspectRatio,
    // From here on inherited.
    TextColor,
    Direction,
    FontFamily,
    FontSize,
    FontStyle,
    FontVariant,
    FontWeight,
    LineHeight,
    LetterSpacing,
    WordSpacing,
    TextAlign,
    TextIndent,
    TextTransform,
    WhiteSpace,
    OverflowWrap,
    Visibility,
    ListStyleType,
    ListStylePosition,
    BorderCollapse,
    BorderSpacingX,
    BorderSpacingY,
    CaptionSide,
    EmptyCells,
    Count,
    // No properties: the value is the index of a CssWrittenDeclaration.
    Custom,       // a variable
    WithVariables // any property, or several
};

constexpr std::size_t cssPropertyCount = std::size_t(CssProperty::Count);

// Those of CssRareStyle.
constexpr CssProperty firstCssRareProperty = CssProperty::FlexDirection,
                      lastCssRareProperty = CssProperty::AspectRatio;

constexpr bool IsInherited(CssProperty property) {
    return property >= CssProperty::TextColor;
}
constexpr CssProperty operator+(CssProperty first, int places) {
    return static_cast<CssProperty>(static_cast<int>(first) + places);
}
