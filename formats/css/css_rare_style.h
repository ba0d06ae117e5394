// What few boxes have: containers with an inner layout of their own, their items, boxes with
// columns, and pictures with a ratio of their own. It stands apart from the other properties of a
// box, so that they are small.
#pragma once

#include "formats/css/css_grid.h"
#include "formats/css/css_style.h"

// Where an item of a grid begins or ends.
struct CssGridEdge {
    const CssGridName* name = nullptr; // of an area or of a line
    std::int32_t line = 0;             // from 1 on, or from the last one, -1; 0 is `auto`
    std::int32_t span = 0;             // tracks from the other edge; 0 is none
    bool operator==(const CssGridEdge&) const = default;
};

struct CssRareStyle {
    // Null for none. Equal ones are one object.
    const CssGridTracks* gridColumns = nullptr;
    const CssGridTracks* gridRows = nullptr;
    const CssGridAreas* gridAreas = nullptr;
    const CssGridTracks* gridAutoColumns = nullptr;
    const CssGridTracks* gridAutoRows = nullptr;
    CssGridEdge rowStart, columnStart, rowEnd, columnEnd;
    CssLength flexBasis;
    CssLength columnGap, rowGap; // `auto` is `normal`
    CssLength columnWidth;
    float flexGrow = 0, flexShrink = 1;
    float columnCount = 0;     // 0 for `auto`
    float columnRuleWidth = 0; // 0 without a style
    CssColor columnRuleColor;
    float aspectRatio = 0; // width by height; 0 for `auto`
    CssFlexDirection flexDirection = CssFlexDirection::Row;
    CssFlexWrap flexWrap = CssFlexWrap::NoWrap;
    CssJustifyContent justifyContent = CssJustifyContent::Start;
    CssAlignItems alignItems = CssAlignItems::Stretch;
    CssAlignItems alignSelf = CssAlignItems::Auto;
    CssAlignItems justifyItems = CssAlignItems::Stretch;
    CssAlignItems justifySelf = CssAlignItems::Auto;
    CssGridFlow gridFlow = CssGridFlow::Rows;
    CssColumnSpan columnSpan = CssColumnSpan::None;
    CssBorderStyle columnRuleStyle = CssBorderStyle::None;
    CssObjectFit objectFit = CssObjectFit::Fill;
    std::array<std::uint8_t, 5> unused{};
    bool HasColumns() const { return columnCount > 0 || !columnWidth.IsAuto(); }
    bool operator==(const CssRareStyle&) const = default;
};

// See CssBoxStyle.
static_assert(sizeof(CssRareStyle) == 5 * 8 + 4 * 16 + 4 * 8 + 6 * 4 + 16);
