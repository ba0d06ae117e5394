// The longhand properties: what values each takes.
#pragma once

#include "formats/css/css_keyword.h"
#include "formats/css/css_property.h"
#include "formats/css/css_reading.h"
#include "formats/css/css_sheet.h"
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
