// What a selection covers of a laid-out paragraph.
#pragma once

#include "view/paragraph_layout.h"

// In the coordinates of the paragraph, of the lines within `clip`. Covers the full height of a
// line, but not the space around paragraphs; a selected paragraph break shows as a space after the
// last line. The boxes do not overlap but at edges of letters.
std::vector<Rect> SelectedRegion(const ParagraphLayout& paragraph, TextPos start, TextPos end,
                                 const Rect& clip);
