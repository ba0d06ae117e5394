#include "reading/auto_scroll.h"

#include "common/keys.h"

#include <algorithm>
#include <cmath>

namespace {
// Pixels of a screen of 96 dpi a second: half as much again each. A line of a usual text takes from
// six seconds to a fifteenth of one.
constexpr double slowest = 3.5, growth = 1.45;
constexpr int shortestInterval = 16; // milliseconds, of screens and of timers
constexpr double usualDpi = 96;
} // namespace

ScrollStep StepOf(int speed, double dpi) {
    const int steps = std::clamp(speed, 0, maxScrollSpeed);
    const double perSecond = slowest * std::pow(growth, steps) * dpi / usualDpi;
    const double interval = 1000 / perSecond; // of one pixel
    if (interval >= shortestInterval) return {1, static_cast<int>(std::lround(interval))};
    const double pixels = std::max(1.0, std::round(shortestInterval / interval));
    return {static_cast<int>(pixels), static_cast<int>(std::lround(pixels * interval))};
}

AutoScrollKey AutoScrollKeyOf(int keyCode, int shift) {
    constexpr int shiftCode = 16, ctrlCode = 17; // on their own they begin "+" and the like
    if (keyCode == shiftCode || keyCode == ctrlCode) return AutoScrollKey::Nothing;
    if (shift & (CtrlKey | AltKey)) return AutoScrollKey::End;
    if (keyCode == PlusKey || keyCode == NumPlusKey) return AutoScrollKey::Faster;
    if (keyCode == MinusKey || keyCode == NumMinusKey) return AutoScrollKey::Slower;
    return AutoScrollKey::End;
}
