// The zoom levels of a page, as browsers have them.
#pragma once

#include <algorithm>
#include <array>

// Zoom keys beyond the last level count, too: as many keys lead back, and a page that is reopened
// with their sum gets the level that it had.
class PageZoom {
  public:
    int Percent() const {
        const int level = std::clamp(normal + steps_, 0, int{percents.size()} - 1);
        return percents[static_cast<unsigned>(level)];
    }
    int Steps() const { return steps_; }
    void Move(int steps) { // 0 leads back to normal
        steps_ = steps == 0 ? 0 : std::clamp(steps_ + steps, -maxSteps, maxSteps);
    }

  private:
    static constexpr std::array percents = {25,  33,  50,  67,  75,  80,  90,  100, 110,
                                            125, 150, 175, 200, 250, 300, 400, 500};
    static constexpr int normal = 7, maxSteps = 100;
    int steps_ = 0;
};
