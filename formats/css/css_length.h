// Lengths: reading one from a token, and its pixels.
#pragma once

#include "formats/css/css_reading.h"
#include "formats/css/css_style.h"
#include "formats/css/css_tokenizer.h"
#include "formats/css/css_value.h"

#include <optional>

// Nothing for what is none. A number without a unit is one when it is 0, or in quirks mode.
std::optional<CssValue> CssLengthOf(const CssToken& token, bool quirks = false);

// What relative lengths are relative to.
struct CssLengthBase {
    float fontSize = 16, rootFontSize = 16;
    const CssMedium* medium = nullptr;
    float lineHeight = 0, rootLineHeight = 0;
};

// Of a line height as it is computed; of `normal` what usual fonts have.
float CssLineHeightPixels(const CssLength& lineHeight, float fontSize);

float CssPixels(const CssValue& length, const CssLengthBase& base);
float ClampCssPixels(float pixels);
