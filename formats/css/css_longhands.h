// The longhand properties: what values each takes.
#pragma once

#include "formats/css/css_parser.h"
#include "formats/css/css_property.h"
#include "formats/css/css_token_stream.h"
#include "formats/css/css_value.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

enum CssAccepts : std::uint8_t {
    cssLength = 1,
    cssPercent = 2,
    cssNumber = 4,
    cssNegative = 8,
    cssColor = 16,
    cssLengthKeyword = 32, // the value of a keyword is its pixels
};

struct CssKeyword {
    std::u16string_view name;
    std::uint16_t value = 0;
    bool userAgentOnly = false;
};

struct CssLonghand {
    std::u16string_view name;
    CssProperty property = CssProperty::None;
    std::uint8_t accepts = 0;
    std::span<const CssKeyword> keywords;
};

// Those whose value is one keyword, length, number or colour; nullptr for others.
const CssLonghand* FindCssLonghand(std::u16string_view lowerCase);
const CssLonghand& CssLonghandOf(CssProperty property); // of one of them

// The next of the tokens as a value of the property. Nothing, and nothing taken, if it is none.
std::optional<CssValue> ReadCssValue(const CssLonghand& longhand, CssTokenStream& tokens,
                                     const CssReading& reading, CssBlock& block);

// Of `display`, beside the CssDisplay: floats stay within the box.
constexpr std::uint16_t cssFlowRoot = 0x100;
// Likewise: a flex container.
constexpr std::uint16_t cssFlexLayout = 0x200;
constexpr std::uint16_t cssGridLayout = 0x400; // a grid container
// Beside the number of a grid's line: it is one of tracks.
constexpr std::uint16_t cssGridSpan = 1;
// Of widths that follow from the content.
constexpr std::uint16_t cssMinContent = 1, cssMaxContent = 2, cssFitContent = 3;
// Of `font-size`, after the eight absolute sizes from xx-small to xxx-large.
constexpr std::uint16_t cssSmaller = 8, cssLarger = 9;
// Of `font-weight`.
constexpr std::uint16_t cssBolder = 1, cssLighter = 2;
