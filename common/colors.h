// Colours as HTML writes them, "#RRGGBB": for back ends that talk to a browser's engine.
#pragma once

#include "common/geometry.h"

// 0x00RRGGBB of 0x00BBGGRR, or the other way round.
constexpr std::uint32_t SwapColorOrder(std::uint32_t value) {
    return (value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF);
}
