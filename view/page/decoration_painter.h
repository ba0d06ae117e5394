// Paints what is behind the text of inline elements.
#pragma once

#include "view/page/border_painter.h"
#include "view/page/page_fragment.h"

// Of those in a line, with the fragment's top left corner there.
void PaintDecorations(const BoxPaint& paint, const PlacedLines& placed, const InlineLine& line,
                      double left, double top);
