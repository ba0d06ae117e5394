// Colours of CSS (css-color-4, those of sRGB) and of HTML's old attributes.
#pragma once

#include "formats/css/css_token_stream.h"
#include "formats/css/css_value.h"

#include <optional>
#include <string_view>

// A colour or `currentcolor`. With `quirks` also "ff0000" without its sign.
std::optional<CssValue> ReadCssColor(CssTokenStream& tokens, bool quirks = false);
std::optional<CssColor> CssNamedColor(std::u16string_view name);
// The "rules for parsing a legacy colour value" of the HTML Standard: nearly any text is one.
std::optional<CssColor> HtmlColor(std::u16string_view text);
