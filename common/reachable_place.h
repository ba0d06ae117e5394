// Where a window is shown whose rectangle no hand could reach.
#pragma once

#include "common/geometry.h"

#include <optional>
#include <vector>

// The rectangle as it is where the window can be taken by its title on one of the screens and is
// not tiny; else one near it that can. `screens`: the areas that are free for windows. `scale`: how
// many pixels stand for one at 96 dpi. The extents are those that window systems can draw.
Rect ReachablePlace(const Rect& asked, const std::vector<Rect>& screens, double scale);

// A rectangle that was asked for and what the window has instead. It stands for the window's own
// until the window is moved or sized.
struct ShownInstead {
    Rect asked, shown;
};
Rect RequestedBounds(const std::optional<ShownInstead>&, const Rect& now);
