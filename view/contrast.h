// Whether a line, a caret or a border can be seen on a background.
#pragma once

#include "common/contrast.h"

#include <cstdlib>

// 0 to 255.
inline int Brightness(Color color) {
    const int red = int(color & 0xFF), green = int(color >> 8 & 0xFF),
              blue = int(color >> 16 & 0xFF);
    return (red * 11 + green * 16 + blue * 5) / 32;
}

inline bool CanBeSeen(Color line, Color background) {
    return std::abs(Brightness(line) - Brightness(background)) >= 80;
}
