// What can be seen of laid-out boxes in a rectangle.
#pragma once

#include "view/page/float_context.h"
#include "view/page/page_fragment.h"

// The bottom of what of it is seen there, text and pictures; the rectangle's top for nothing.
double CoveredBottom(const InlineLayout& lines, const FloatRect& area);
double CoveredBottom(const PageFragment& fragment, const FloatRect& area);

// The first top from the area's on where all of it is free. For piles: it looks at everything below
// once, while going down by `CoveredBottom` looks at all of it for each step.
double FreeTop(const PageFragment& fragment, const FloatRect& area);
