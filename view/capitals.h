// Text that is shown in capitals, while the text itself stays as written.
#pragma once

#include "view/paragraph_layout.h"

// Whether the unit has a capital, of one unit.
bool HasCapital(char16_t unit);

// The styles of a stretch of the document, relative to `start`; the last one may start at its end.
// `text` is the stretch's text, in which letters become capitals where the document says so.
std::vector<StyledRun> StyledRuns(const LayoutContext& context, TextPos start,
                                  std::u16string& text);
