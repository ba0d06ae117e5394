// Colours in the other byte order.
#pragma once

#include "common/geometry.h"

constexpr Color SwapColorOrder(Color value) { // red and blue exchanged
    return (value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF);
}
