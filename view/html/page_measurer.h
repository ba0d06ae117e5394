// Makes the heights of a page's zones exact, from the first zone on, while there is time.
#pragma once

#include "view/page/page_flow.h"
#include "view/pane_window.h"

#include <functional>

class PageMeasurer {
  public:
    using Time = std::chrono::milliseconds;
    static constexpr Time backgroundStep{8}; // between two events

    explicit PageMeasurer(const PaneWindow& window) : window_(window) {} // whose clock counts

    // Down to a height, above a zone, or all. False when the time was over before; the last zone
    // may take longer.
    bool MeasureTo(PageFlow& flow, double height, Time limit) const;
    bool MeasureAbove(PageFlow& flow, std::size_t zone, Time limit) const;
    bool MeasureAll(PageFlow& flow, Time limit) const;

  private:
    using IsEnough = std::function<bool(std::size_t firstNotMeasured)>;
    bool MeasureUntil(PageFlow& flow, const IsEnough& isEnough, Time limit) const;

    const PaneWindow& window_;
};
