// Attributes of a text as UI Automation has them.
#pragma once

#include "platform/windows/text_pane/accessibility/uia_text_pattern.h"
#include "view/readable_pane.h"

#include <optional>

// The value that all of the span has: the system's "mixed" where it changes, also where there is
// too much of it to be looked at, and "not supported" for what the text has none of.
HRESULT GiveAttribute(ReadablePane& pane, TextSpan span, TEXTATTRIBUTEID id, VARIANT* value);

// The first or the last stretch of the span whose paragraph has that style, in one paragraph. Only
// styles are looked for: by these one goes from heading to heading.
std::optional<TextSpan> FindAttributeIn(ReadablePane& pane, TextSpan span, TEXTATTRIBUTEID id,
                                        const VARIANT& value, bool backward);
