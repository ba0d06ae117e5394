// The computed style of an element, in the terms of CSS 2.2 and its later levels.
//
// It stands in two parts, because most elements of a page differ from their neighbours in one of
// them or in none: what texts and children take over, and what is of the element's own box. Equal
// parts are one object; see css_page_styles.h.
#pragma once

#include "formats/css/css_style_values.h"
#include "formats/css/css_value.h"

#include <array>
#include <cstdint>

// Lengths are CSS pixels; a percentage waits for the layout. A number stands only in `lineHeight`,
// a multiple of the font size.
struct CssLength {
    // Auto: also none, normal. Sum: `value` pixels and so many hundredths of a percent. The last
    // three are of widths, which follow from the content.
    enum class Kind : std::uint16_t {
        Auto,
        Pixels,
        Percent,
        Number,
        Sum,
        MinContent,
        MaxContent,
        FitContent
    };
    float value = 0;
    Kind kind = Kind::Auto;
    std::int16_t hundredths = 0;
    bool operator==(const CssLength&) const = default;

    bool IsAuto() const { return kind == Kind::Auto; }
    bool IsOfContent() const { return kind >= Kind::MinContent; }
    float Of(float whole) const { // 0 for Auto and what follows from the content
        if (kind == Kind::Sum) return value + whole * hundredths / 10'000;
        return kind == Kind::Pixels ? value : kind == Kind::Percent ? whole * value / 100 : 0;
    }
    static CssLength Pixels(float pixels) { return {pixels, Kind::Pixels, 0}; }
    static CssLength Percent(float percent) { return {percent, Kind::Percent, 0}; }
};

enum CssSide : std::uint8_t { cssTop, cssRight, cssBottom, cssLeft };
template <typename T>
using CssSides = std::array<T, 4>; // in the order of CssSide

// What texts and child elements inherit.
struct CssInheritedStyle {
    float fontSize = 16;
    std::uint32_t families = 0;  // in CssPageStyles::Families; 0 is none given
    std::uint32_t variables = 0; // of the styler
    CssLength lineHeight;
    CssLength textIndent = CssLength::Pixels(0);
    float letterSpacing = 0, wordSpacing = 0;
    float borderSpacingX = 0, borderSpacingY = 0;
    CssColor color;
    std::uint16_t fontWeight = 400;
    CssFontStyle fontStyle = CssFontStyle::Normal;
    CssFontCaps fontCaps = CssFontCaps::Normal;
    CssTextAlign textAlign = CssTextAlign::Start;
    CssTextTransform textTransform = CssTextTransform::None;
    CssWhiteSpace whiteSpace = CssWhiteSpace::Normal;
    CssOverflowWrap overflowWrap = CssOverflowWrap::Normal;
    CssDirection direction = CssDirection::LeftToRight;
    CssVisibility visibility = CssVisibility::Visible;
    CssListStyleType listStyleType = CssListStyleType::Disc;
    CssListStylePosition listStylePosition = CssListStylePosition::Outside;
    CssBorderCollapse borderCollapse = CssBorderCollapse::Separate;
    CssCaptionSide captionSide = CssCaptionSide::Top;
    CssEmptyCells emptyCells = CssEmptyCells::Show;
    // The lines drawn on text here: the element's own and those of the elements around it.
    std::uint8_t decorations = cssNoDecoration;
    // No colour was given on the way: the reader's own.
    bool autoColor = true;
    // The families are `monospace` alone, whose normal size browsers have at 13 pixels of 16.
    bool monospace = false;
    // The font size goes back to a length that was given: it is that of any family.
    bool fixedFontSize = false;
    std::uint8_t unused = 0;
    bool operator==(const CssInheritedStyle&) const = default;
};

struct CssRareStyle;
extern const CssRareStyle initialCssRareStyle;

// What is of one box alone.
struct CssBoxStyle {
    CssSides<CssLength> margin = {CssLength::Pixels(0), CssLength::Pixels(0), CssLength::Pixels(0),
                                  CssLength::Pixels(0)};
    CssSides<CssLength> padding = margin; // never Auto
    CssSides<CssLength> inset;            // top, right, bottom, left
    CssLength width, height, minWidth, minHeight, maxWidth, maxHeight;
    CssLength verticalShift = CssLength::Pixels(0);
    CssSides<float> borderWidth = {0, 0, 0, 0}; // 0 without a style
    CssSides<CssColor> borderColor = {};        // `currentcolor` is resolved
    CssSides<CssBorderStyle> borderStyle = {};
    CssColor background = cssTransparent;
    std::uint32_t content = 0;                            // in CssPageStyles::Content; 0 is none
    std::uint32_t counterReset = 0, counterIncrement = 0; // in CssPageStyles::Counters; likewise
    CssDisplay display = CssDisplay::Inline;
    CssPosition position = CssPosition::Static;
    CssFloat floats = CssFloat::None;
    CssClear clear = CssClear::None;
    CssOverflow overflow = CssOverflow::Visible;
    CssBoxSizing boxSizing = CssBoxSizing::ContentBox;
    CssVerticalAlign verticalAlign = CssVerticalAlign::Baseline;
    CssUnicodeBidi unicodeBidi = CssUnicodeBidi::Normal;
    CssTableLayout tableLayout = CssTableLayout::Auto;
    CssBreak breakBefore = CssBreak::Auto, breakAfter = CssBreak::Auto,
             breakInside = CssBreak::Auto;
    std::uint8_t ownDecorations = cssNoDecoration;
    // A float, an absolute one, an overflow or a flow root: floats stay within it.
    bool flowRoot = false;
    // In quirks mode: nobody but the default sheet gave the margins, which go at the edges of cells
    // and at the top of the page.
    bool quirkyTop = false, quirkyBottom = false;
    CssInnerLayout innerLayout = CssInnerLayout::Flow;
    std::array<std::uint8_t, 3> unused{};
    const CssRareStyle* rare = &initialCssRareStyle; // equal ones are one object
    bool operator==(const CssBoxStyle&) const = default;
};

// Equal parts are found by their bytes; so there is none that no member owns.
static_assert(sizeof(CssInheritedStyle) == 4 * 3 + 8 * 2 + 4 * 4 + 4 + 2 + 16 + 2);
static_assert(sizeof(CssBoxStyle) == 3 * 32 + 7 * 8 + 16 + 16 + 4 + 4 + 3 * 4 + 20 + 8);
