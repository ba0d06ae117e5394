#include "view/page/height_index.h"

#include <algorithm>
#include <bit>

namespace {
std::size_t LowestBit(std::size_t i) {
    return i & (~i + 1);
}
} // namespace

HeightIndex::HeightIndex(const std::vector<double>& estimates)
    : heights_(estimates), sums_(estimates.size() + 1), measured_(estimates.size()),
      notMeasured_(estimates.size()) {
    for (std::size_t i = 1; i < sums_.size(); ++i) {
        sums_[i] += heights_[i - 1];
        const std::size_t above = i + LowestBit(i);
        if (above < sums_.size()) sums_[above] += sums_[i];
    }
}

void HeightIndex::SetMeasured(std::size_t block, double height) {
    const double change = height - heights_[block];
    heights_[block] = height;
    if (!measured_[block]) --notMeasured_;
    measured_[block] = true;
    if (change == 0) return;
    for (std::size_t i = block + 1; i < sums_.size(); i += LowestBit(i))
        sums_[i] += change;
}

double HeightIndex::Top(std::size_t block) const {
    double top = 0;
    for (std::size_t i = block; i > 0; i -= LowestBit(i))
        top += sums_[i];
    return top;
}

std::size_t HeightIndex::BlockAt(double height) const {
    std::size_t found = 0;
    for (std::size_t step = std::bit_floor(Count()); step > 0; step /= 2)
        if (found + step <= Count() && sums_[found + step] <= height)
            height -= sums_[found += step];
    return std::min(found, Count() - 1);
}
