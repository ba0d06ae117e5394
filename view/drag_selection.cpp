#include "view/drag_selection.h"

#include <algorithm>

namespace {
constexpr int autoScrollInterval = 40; // milliseconds

// How far a coordinate is outside of 0 to `size`, with a sign.
int Beyond(int at, int size) {
    return std::max(0, at - (size - 1)) - std::max(0, -at);
}
} // namespace

void DragSelection::Press(Point point, int clicks) {
    mouse_ = point;
    unit_ = clicks == 3 ? Unit::Paragraph : clicks == 2 ? Unit::Word : Unit::Character;
}

DragSelection::Ends DragSelection::ExtendedTo(TextSpan unit) const {
    if (unit.start < first_.start) return {first_.end, unit.start};
    return {first_.start, std::max(unit.end, first_.end)};
}

void DragSelection::MoveTo(Point point) {
    mouse_ = point;
    const Point overshoot = Overshoot();
    const bool outside = overshoot.x != 0 || overshoot.y != 0;
    if (outside && !autoScrolls_) window_.StartTimer(PaneTimer::AutoScroll, autoScrollInterval);
    if (!outside && autoScrolls_) window_.StopTimer(PaneTimer::AutoScroll);
    autoScrolls_ = outside;
}

void DragSelection::Finish() {
    if (autoScrolls_) window_.StopTimer(PaneTimer::AutoScroll);
    autoScrolls_ = false;
}

Point DragSelection::Overshoot() const {
    const Size room = window_.Room();
    return {Beyond(mouse_.x, room.width), Beyond(mouse_.y, room.height)};
}
