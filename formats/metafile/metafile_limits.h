// Limits of a metafile. What exceeds them is left out.
#pragma once

#include <cstddef>

// Drawings of word processors have some thousands of commands; a map of a whole book some ten
// thousands.
constexpr std::size_t maxMetaCommands = 50'000;
constexpr std::size_t maxMetaPoints = 1'000'000;
constexpr std::size_t maxMetaTextUnits = 200'000;
constexpr std::size_t maxMetaPixels = 16 * 1024 * 1024; // of all its bitmaps together
constexpr std::size_t maxMetaRecords = 500'000;
constexpr std::size_t maxMetaObjects = 1024; // pens, brushes and fonts at a time
constexpr std::size_t maxMetaSavedStates = 256;
// How many times over a picture may be painted: what painting it costs.
constexpr double maxMetaCover = 500;
// Coordinates are 32 bits and may be anything; a place so far away is as good as none.
constexpr double maxMetaPlace = 1e6; // pictures
