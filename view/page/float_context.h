// The floats of one block formatting context, and the room that they leave (CSS 2.1, 9.5.1).
// Lengths are device pixels from the context's top left corner.
#pragma once

#include <map>

enum class FloatSide { Left, Right };

// The left and right edges of a stretch of a line.
struct InlineEdges {
    double left = 0, right = 0;
    double Width() const { return right - left; }
    bool operator==(const InlineEdges&) const = default;
};

struct FloatRect {
    double left = 0, top = 0, width = 0, height = 0;
    double Right() const { return left + width; }
    double Bottom() const { return top + height; }
};

class FloatContext {
  public:
    struct Place {
        double left = 0, top = 0;
        bool operator==(const Place&) const = default;
    };

    // What floats leave of `room` between two heights, or at one if both are the same. Its width
    // may be negative.
    InlineEdges RoomAt(double top, double bottom, InlineEdges room) const;
    // The nearest height below `top` at which there is other room; `top` where there is none.
    double NextChange(double top) const;
    // The nearest height at or below `top` at which a box fits between floats, or where there are
    // no floats any more.
    double FittingTop(double top, double height, double width, InlineEdges room) const;

    // Puts a margin box at or below `top`, as high as it goes but not above an earlier float, and
    // then as far to its side as it goes. One that is too wide goes where there are no floats.
    Place Add(FloatSide side, double width, double height, double top, InlineEdges room);

    // Keeps what follows clear of a box that stands in `room`, on the side that leaves more of it.
    void Reserve(const FloatRect& box, InlineEdges room);

    // Below the floats of these sides, at or below `top`.
    double ClearedTop(bool left, bool right, double top) const;

  private:
    // How far floats reach from a side, from a height down to the next one's.
    using Profile = std::map<double, double>;
    void Take(FloatSide side, double top, double bottom, double reach);
    static void Cover(Profile& profile, double top, double bottom, double reach, FloatSide side);

    Profile left_, right_;
    double lastTop_ = 0, leftBottom_ = 0, rightBottom_ = 0;
    bool any_ = false;
};
