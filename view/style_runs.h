// Looks up the style at a position.
#pragma once

#include "formats/document.h"

#include <algorithm>

// The index of the run at `position`. `runs` is not empty, and its first run starts at 0.
inline std::size_t RunAt(const std::vector<StyleRun>& runs, TextPos position) {
    const auto after = std::upper_bound(runs.begin() + 1, runs.end(), position,
                                        [](TextPos at, const StyleRun& r) { return at < r.start; });
    return static_cast<std::size_t>(after - runs.begin()) - 1;
}

inline std::uint32_t StyleAt(const std::vector<StyleRun>& runs, TextPos position) {
    return runs[RunAt(runs, position)].style;
}
