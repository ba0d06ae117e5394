// Points and sizes of a laid-out text, in device pixels.
#pragma once

#include "common/geometry.h"

#include <algorithm>
#include <cmath>

struct Point {
    int x = 0, y = 0;
    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    bool operator==(const Point&) const = default;
};

struct Size {
    int width = 0, height = 0;
    bool IsEmpty() const { return width <= 0 || height <= 0; }
    bool operator==(const Size&) const = default;
};

// In whole pixels, and so that the sum of two is one, too: a page may ask for any length.
inline int Rounded(double length) {
    return int(std::lround(std::clamp(length, -5e8, 5e8)));
}

// The edges behind the last pixels.
inline int Right(const Rect& box) {
    return box.left + box.width;
}
inline int Bottom(const Rect& box) {
    return box.top + box.height;
}

inline Rect Moved(Rect box, Point by) {
    return {box.left + by.x, box.top + by.y, box.width, box.height};
}

inline bool Intersect(const Rect& a, const Rect& b) {
    return a.left < Right(b) && b.left < Right(a) && a.top < Bottom(b) && b.top < Bottom(a);
}
