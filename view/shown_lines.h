// What of a text is on the screen, and where.
#pragma once

#include "view/text_pane.h"

#include <vector>

// From the start of the first line that is partly in view to the end of the last one.
TextSpan ShownSpan(TextPane& pane);

// Of each line in view that has a part of the span: what the characters of that part cover, within
// the pane.
std::vector<Rect> ShownBoxes(TextPane& pane, TextSpan span);
