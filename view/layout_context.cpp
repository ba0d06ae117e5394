#include "view/layout_context.h"

#include <algorithm>
#include <cmath>

int LayoutContext::Pixels(std::int32_t twips) const {
    constexpr int maxTwips = 22 * 1440; // the longest measure of a page
    return int(std::lround(std::clamp(twips, -maxTwips, maxTwips) * pixelsPerTwip));
}
