// Widths of a page as line layout takes them: whole pixels.
#pragma once

#include <algorithm>
#include <cmath>

// Wider than any page, and small enough for what systems count in.
constexpr int maxBreakWidth = 1 << 20;

// The nearest one: a line may reach half a pixel out of its block, and one whose width was measured
// does not break by what sums were rounded by.
inline int BreakWidth(double width) {
    return std::clamp(int(std::lround(std::min(width, double(maxBreakWidth)))), 1, maxBreakWidth);
}
