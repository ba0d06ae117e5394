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

// The edges after the last pixels.
inline int Right(const Rect& box) {
    return box.left + box.width;
}
inline int Bottom(const Rect& box) {
    return box.top + box.height;
}

// The least that holds both.
inline Rect Joined(const Rect& a, const Rect& b) {
    const int left = std::min(a.left, b.left), top = std::min(a.top, b.top);
    return {left, top, std::max(Right(a), Right(b)) - left, std::max(Bottom(a), Bottom(b)) - top};
}

// Without width or height where they do not intersect.
inline Rect Intersection(const Rect& a, const Rect& b) {
    const int left = std::max(a.left, b.left), top = std::max(a.top, b.top);
    return {left, top, std::max(0, std::min(Right(a), Right(b)) - left),
            std::max(0, std::min(Bottom(a), Bottom(b)) - top)};
}

inline Rect Moved(Rect box, Point by) {
    return {box.left + by.x, box.top + by.y, box.width, box.height};
}

inline bool Intersect(const Rect& a, const Rect& b) {
    return a.left < Right(b) && b.left < Right(a) && a.top < Bottom(b) && b.top < Bottom(a);
}
