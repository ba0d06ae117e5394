// Moves the rectangle of a window to where the user can reach it.
#pragma once

#include "common/geometry.h"

#include <optional>
#include <vector>

// The rectangle itself when the window could be dragged by its title bar on one of the screens and
// is not tiny; else the nearest one of which that holds. Clamped to the sizes that window systems
// support. `screens`: their work areas. `scale`: device pixels for each pixel at 96 dpi.
Rect ReachablePlace(const Rect& asked, const std::vector<Rect>& screens, double scale);

// A rectangle that was asked for and what the window has instead. It stands for the window's own
// until the window is moved or sized.
struct ShownInstead {
    Rect asked, shown;
};
Rect RequestedBounds(const std::optional<ShownInstead>&, const Rect& now);
