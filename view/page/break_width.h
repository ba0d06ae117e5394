// Widths of a page as line layout takes them: whole pixels.
#pragma once

#include <algorithm>
#include <cmath>

// Wider than any page, and small enough for what systems count in.
constexpr int maxBreakWidth = 1 << 20;

// A width that was measured is not to break by what its sum was rounded by.
inline int BreakWidth(double width) {
    return std::clamp(int(std::floor(std::min(width, double(maxBreakWidth)) + 1.0 / 64)), 1,
                      maxBreakWidth);
}
