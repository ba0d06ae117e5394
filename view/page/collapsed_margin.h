// Vertical margins that meet become one (CSS 2.1, 8.3.1).
#pragma once

#include <algorithm>

class CollapsedMargin {
  public:
    CollapsedMargin() = default;
    explicit CollapsedMargin(double margin) { Add(margin); }

    void Add(double margin) {
        maxPositive_ = std::max(maxPositive_, margin);
        minNegative_ = std::min(minNegative_, margin);
    }
    void Add(const CollapsedMargin& other) {
        Add(other.maxPositive_);
        Add(other.minNegative_);
    }
    double Length() const { return maxPositive_ + minNegative_; }

  private:
    double maxPositive_ = 0, minNegative_ = 0;
};
