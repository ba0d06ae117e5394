// Limits of a drawing in SVG: a picture that takes more is not shown.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr std::size_t maxSvgFileBytes = 8 << 20; // a detailed map
// Elements as they are drawn: what `use` repeats counts each time.
constexpr std::uint64_t maxSvgShapes = 100'000;
constexpr int maxSvgUseDepth = 16;
constexpr std::size_t maxSvgUnits = 8 << 20;        // of what is written
constexpr std::int64_t maxSvgImagePixels = 8 << 20; // of the pictures in it, together
constexpr int maxSvgSide = 16'384;                  // CSS pixels
