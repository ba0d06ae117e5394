// Media queries: whether a condition holds on our screen, or on paper (mediaqueries-4, what costs
// nothing).
#pragma once

#include "formats/css/css_reading.h"
#include "formats/css/css_token_stream.h"

struct CssMediaAnswer {
    bool applies = true;
    bool dependsOnViewport = false;
};

// A list of queries, one of which has to hold; none is no condition.
CssMediaAnswer AskCssMedia(CssTokenStream list, const CssMedium& medium);
// Of a `media` attribute.
CssMediaAnswer AskCssMedia(std::u16string_view list, const CssMedium& medium);
