#include "platform/windows/portable/page_zoom.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array percents = {25,  33,  50,  67,  75,  80,  90,  100, 110,
                                 125, 150, 175, 200, 250, 300, 400, 500};

} // namespace

int PageZoom::Percent() const {
    const int place = std::clamp(normal + steps_, 0, int{percents.size()} - 1);
    return percents[static_cast<unsigned>(place)];
}

void PageZoom::Move(int steps) {
    steps_ = steps == 0 ? 0 : std::clamp(steps_ + steps, -maxSteps, maxSteps);
}
