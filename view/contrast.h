// Whether a text can be read on a background.
#pragma once

#include "common/geometry.h"

#include <cstdlib>

// 0 to 255.
inline int Brightness(Color color) {
    const int red = int(color & 0xFF), green = int(color >> 8 & 0xFF),
              blue = int(color >> 16 & 0xFF);
    return (red * 11 + green * 16 + blue * 5) / 32;
}

// Black or white, whichever is more legible on `background`.
inline Color LegibleOn(Color background) {
    return Brightness(background) < 128 ? 0xFFFFFF : 0x000000;
}

// Whether text in one of the colours is legible on the other.
inline bool HasContrast(Color a, Color b) {
    return std::abs(Brightness(a) - Brightness(b)) >= 80;
}
