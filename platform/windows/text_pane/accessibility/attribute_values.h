// Attributes of a text as UI Automation has them.
#pragma once

#include "platform/windows/text_pane/accessibility/uia_text_pattern.h"
#include "view/text_pane.h"

// The value that all of the span has: the system's "mixed" where it changes, also where there is
// too much of it to be looked at, and "not supported" for what the text has none of.
HRESULT GiveAttribute(TextPane& pane, TextSpan span, TEXTATTRIBUTEID id, VARIANT* value);
