// Pseudo-random numbers, reproducible by a seed.
#pragma once

#include <algorithm>
#include <random>

using Random = std::mt19937;

inline int Below(Random& random, int bound) {
    return int(random() % unsigned(std::max(1, bound)));
}

inline bool OneIn(Random& random, int times) {
    return Below(random, times) == 0;
}
