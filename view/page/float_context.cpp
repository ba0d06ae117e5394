#include "view/page/float_context.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace {
constexpr double unlimited = std::numeric_limits<double>::infinity();
// Steps of a profile that one question looks at. Beyond them a page of floats of all heights would
// take quadratic time; what is missed overlaps.
constexpr int maxSteps = 4096;

double Nothing(FloatSide side) {
    return side == FloatSide::Left ? -unlimited : unlimited;
}

double Farther(FloatSide side, double a, double b) {
    return side == FloatSide::Left ? std::max(a, b) : std::min(a, b);
}

// The step that holds at a height; the end above the first one.
template <class Profile>
auto StepAt(Profile& profile, double height) {
    auto step = profile.upper_bound(height);
    return step == profile.begin() ? profile.end() : std::prev(step);
}

template <class Profile>
double MaxReach(const Profile& profile, FloatSide side, double top, double bottom) {
    double reach = Nothing(side);
    auto step = StepAt(profile, top);
    if (step == profile.end()) step = profile.begin();
    for (int looked = 0; step != profile.end() && looked < maxSteps; ++step, ++looked) {
        if (step->first > top && step->first >= bottom) break;
        reach = Farther(side, reach, step->second);
    }
    return reach;
}

template <class Profile>
double NextStep(const Profile& profile, double top) {
    const auto step = profile.upper_bound(top);
    return step == profile.end() ? unlimited : step->first;
}
} // namespace

InlineEdges FloatContext::RoomAt(double top, double bottom, InlineEdges room) const {
    return {std::max(room.left, MaxReach(left_, FloatSide::Left, top, bottom)),
            std::min(room.right, MaxReach(right_, FloatSide::Right, top, bottom))};
}

double FloatContext::NextChange(double top) const {
    const double next = std::min(NextStep(left_, top), NextStep(right_, top));
    return next == unlimited ? top : next;
}

double FloatContext::FittingTop(double top, double height, double width, InlineEdges room) const {
    while (RoomAt(top, top + height, room).Width() < width) {
        const double next = NextChange(top);
        if (next <= top) break;
        top = next;
    }
    return top;
}

FloatContext::Place FloatContext::Add(FloatSide side, double width, double height, double top,
                                      InlineEdges room) {
    const double highest = any_ ? std::max(top, lastTop_) : top;
    const double placed = FittingTop(highest, height, width, room);
    const InlineEdges free = RoomAt(placed, placed + height, room);
    const double left = side == FloatSide::Left ? free.left : free.right - width;
    any_ = true;
    lastTop_ = placed;
    if (height <= 0 || width <= 0) return {left, placed}; // takes no room
    Take(side, placed, placed + height, side == FloatSide::Left ? left + width : left);
    return {left, placed};
}

void FloatContext::Reserve(const FloatRect& box, InlineEdges room) {
    if (box.height <= 0 || box.width <= 0) return;
    const bool isLeft = room.right - box.Right() >= box.left - room.left;
    Take(isLeft ? FloatSide::Left : FloatSide::Right, box.top, box.Bottom(),
         isLeft ? box.Right() : box.left);
}

void FloatContext::Take(FloatSide side, double top, double bottom, double reach) {
    Cover(side == FloatSide::Left ? left_ : right_, top, bottom, reach, side);
    double& lowest = side == FloatSide::Left ? leftBottom_ : rightBottom_;
    lowest = std::max(lowest, bottom);
}

void FloatContext::Cover(Profile& profile, double top, double bottom, double reach,
                         FloatSide side) {
    const auto split = [&](double height) {
        const auto step = StepAt(profile, height);
        const double before = step == profile.end() ? Nothing(side) : step->second;
        return profile.emplace(height, before).first;
    };
    split(bottom);
    auto step = split(top);
    for (int changed = 0; step->first < bottom && changed < maxSteps; ++step, ++changed)
        step->second = Farther(side, step->second, reach);
}

double FloatContext::ClearedTop(bool left, bool right, double top) const {
    if (left && !left_.empty()) top = std::max(top, leftBottom_);
    if (right && !right_.empty()) top = std::max(top, rightBottom_);
    return top;
}
