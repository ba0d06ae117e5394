// Reads the selectors of a rule (selectors-4).
#pragma once

#include "formats/css/css_sheet.h"
#include "formats/css/css_token_stream.h"

#include <optional>
#include <utility>
#include <vector>

// What the selectors consist of goes to the sheet. Nothing for a list in which one is wrong: the
// rule is none then.
std::vector<CssSelector> ReadCssSelectors(CssTokenStream list, CssSheet& sheet);

// a and b of "2n+1", "odd", "3" and their like.
std::optional<std::pair<std::int32_t, std::int32_t>> ReadCssNth(CssTokenStream tokens);
