// The condition of `@supports`: whether a declaration or a selector is understood here.
#pragma once

#include "formats/css/css_reading.h"
#include "formats/css/css_token_stream.h"

bool SupportsCss(CssTokenStream condition, const CssReading& reading);
