// What few boxes have: flex containers and their items, and pictures with a ratio of their own. It
// stands apart from the other properties of a box, so that they are small.
#pragma once

#include "formats/css/css_style.h"

struct CssRareStyle {
    CssLength flexBasis;
    float flexGrow = 0, flexShrink = 1;
    float columnGap = 0, rowGap = 0;
    float aspectRatio = 0; // width by height; 0 for `auto`
    CssFlexDirection flexDirection = CssFlexDirection::Row;
    CssFlexWrap flexWrap = CssFlexWrap::NoWrap;
    CssJustifyContent justifyContent = CssJustifyContent::Start;
    CssAlignItems alignItems = CssAlignItems::Stretch;
    CssAlignItems alignSelf = CssAlignItems::Auto;
    CssObjectFit objectFit = CssObjectFit::Fill;
    std::uint16_t unused = 0;
    bool operator==(const CssRareStyle&) const = default;
};

// See CssBoxStyle.
static_assert(sizeof(CssRareStyle) == 8 + 5 * 4 + 8);
