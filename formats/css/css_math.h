// calc(), min(), max(), clamp(), round(), mod() and rem(): lengths, percentages and numbers that
// are reckoned up.
#pragma once

#include "formats/css/css_length.h"
#include "formats/css/css_sheet.h"
#include "formats/css/css_token_stream.h"

#include <optional>

enum class CssMathType : std::uint8_t { Number, Length };

struct CssMathResult {
    CssMath steps;
    CssMathType type = CssMathType::Number;
    bool hasPercent = false;
};

bool IsCssMath(const CssToken& token);
// The function that is next. Nothing for what is none, or adds what does not go together.
std::optional<CssMathResult> ReadCssMath(CssTokenStream& tokens);

// A number, a length, a percentage, or a sum of these two. `comparesPercent` becomes true where
// a length and a percentage were compared, or a percentage rounded: it is told by the window's
// width, as that of the box is not known yet.
CssValue EvaluateCssMath(const CssMath& math, const CssLengthBase& base, bool& comparesPercent);
