// Vertical margins that meet become one (CSS 2.1, 8.3.1).
#pragma once

#include <algorithm>

class CollapsedMargin {
  public:
    CollapsedMargin() = default;
    explicit CollapsedMargin(double margin) { Add(margin); }

    // A quirky one goes where it meets the bottom of a cell.
    void Add(double margin, bool quirky = false) {
        maxPositive_ = std::max(maxPositive_, margin);
        minNegative_ = std::min(minNegative_, margin);
        if (!quirky) maxLasting_ = std::max(maxLasting_, margin);
    }
    double Length() const { return maxPositive_ + minNegative_; }
    void DropQuirky() { maxPositive_ = maxLasting_; }

  private:
    double maxPositive_ = 0, minNegative_ = 0;
    double maxLasting_ = 0; // of the positive ones that are not quirky
};
