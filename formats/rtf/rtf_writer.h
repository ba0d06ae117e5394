// A stretch of a document as rich text (RTF 1.9.1), pure ASCII.
#pragma once

#include "formats/style_overrides.h"

#include <string>

// Writes the text from `start` on, `length` units of it; -1 for all that follows. Whole rows of a
// table are written as a table, parts of one as paragraphs.
std::string WriteRtf(const Document&, TextPos start = 0, TextPos length = -1,
                     const StyleOverrides& = {});
