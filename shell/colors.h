// Colours as texts and in the other byte order.
#pragma once

#include "common/geometry.h"

#include <cstdint>
#include <string>

struct ColorComponents {
    std::uint8_t first = 0, second = 0, third = 0; // of a blue-green-red colour: blue, green, red
};

// The three components in decimal, joined by ",". "" for a value of more than 24 bits or below 0,
// and `components` then stays as it was.
std::u16string ColorToComponentsText(std::int64_t value, ColorComponents& components);

Color SwapColorOrder(Color value); // red and blue exchanged
