// Where each block of a page begins, while only some of them have been laid out: the others have
// an estimated height.
#pragma once

#include <cstddef>
#include <vector>

class HeightIndex {
  public:
    HeightIndex() = default;
    explicit HeightIndex(const std::vector<double>& estimates);

    std::size_t Count() const { return heights_.size(); }
    void SetMeasured(std::size_t block, double height);
    bool IsMeasured(std::size_t block) const { return measured_[block]; }
    std::size_t NotMeasured() const { return notMeasured_; }
    double Height(std::size_t block) const { return heights_[block]; }

    double Top(std::size_t block) const; // also of the one after the last
    double Total() const { return Top(Count()); }
    // The block that covers a height; the first or the last one outside the page. There must be
    // one.
    std::size_t BlockAt(double height) const;

  private:
    std::vector<double> heights_;
    std::vector<double> sums_; // a Fenwick tree: entry i has the sum of its last (i & -i) blocks
    std::vector<bool> measured_;
    std::size_t notMeasured_ = 0;
};
