#include "reading/align_letters.h"

#include <algorithm>
#include <vector>

namespace {
constexpr int unreachable = 1 << 20;

// The cheapest alignment up to a cell of the table: its cost, and the column and the cost at which
// it passed the place.
struct Way {
    int cost = unreachable;
    int split = -1, costAtSplit = 0;
};

Way Longer(Way way, int cost) {
    way.cost += cost;
    return way;
}

// The table of the edit distance: a row for each letter, a column for each letter of the stretch,
// of which only a band around the diagonal is computed.
class Table {
  public:
    Table(std::u16string_view letters, std::size_t split, std::u16string_view stretch,
          std::size_t start, std::size_t maxShift)
        : letters_(letters), stretch_(stretch), split_(static_cast<int>(split)),
          first_(static_cast<int>(start) - static_cast<int>(maxShift)),
          width_(2 * static_cast<int>(maxShift) + 1), above_(static_cast<std::size_t>(width_)),
          row_(above_) {}

    Way Best() {
        for (int k = 0; k < width_; ++k)
            above_[Index(k)] = IsColumn(first_ + k) ? Way{0} : Way{};
        if (split_ == 0) MarkSplit(0);
        for (int i = 1; i <= Rows(); ++i) {
            FillRow(i);
            std::swap(above_, row_);
            if (i == split_) MarkSplit(i);
        }
        return *std::ranges::min_element(above_, {}, &Way::cost);
    }

  private:
    static std::size_t Index(int k) { return static_cast<std::size_t>(k); }
    int Rows() const { return static_cast<int>(letters_.size()); }
    bool IsColumn(int column) const {
        return column >= 0 && column <= static_cast<int>(stretch_.size());
    }

    // Column k of row i is first_ + i + k, so that the diagonal keeps its index.
    void FillRow(int i) {
        for (int k = 0; k < width_; ++k) {
            const int column = first_ + i + k;
            Way& way = row_[Index(k)] = {};
            if (!IsColumn(column)) continue;
            if (column > 0) {
                const bool same = letters_[Index(i - 1)] == stretch_[Index(column - 1)];
                way = Longer(above_[Index(k)], same ? 0 : 1);
            }
            // A letter that is missing: from the same column above.
            if (k + 1 < width_ && above_[Index(k + 1)].cost + 1 < way.cost)
                way = Longer(above_[Index(k + 1)], 1);
            // One that was added. At the end nothing needs to be.
            if (k > 0 && row_[Index(k - 1)].cost + 1 < way.cost && i < Rows())
                way = Longer(row_[Index(k - 1)], 1);
        }
    }

    // The place is where a way leaves this row: after what was added right before its letter.
    void MarkSplit(int i) {
        for (int k = 0; k < width_; ++k) {
            Way& way = above_[Index(k)];
            way.split = first_ + i + k;
            way.costAtSplit = way.cost;
        }
    }

    std::u16string_view letters_, stretch_;
    int split_, first_, width_;
    std::vector<Way> above_, row_;
};
} // namespace

LetterAlignment AlignLetters(std::u16string_view letters, std::size_t split,
                             std::u16string_view stretch, std::size_t start, std::size_t maxShift) {
    const Way way = Table(letters, split, stretch, start, maxShift).Best();
    LetterAlignment found;
    if (way.cost >= unreachable) { // nothing lies near the diagonal: at an end of the text
        found.split = std::min(start + split, stretch.size());
        found.costBefore = static_cast<int>(split);
        found.costAfter = static_cast<int>(letters.size() - split);
        return found;
    }
    found.split =
        static_cast<std::size_t>(std::clamp(way.split, 0, static_cast<int>(stretch.size())));
    found.costBefore = way.costAtSplit;
    found.costAfter = way.cost - way.costAtSplit;
    const std::size_t maxCount = std::min(split, found.split);
    while (found.sameBefore < maxCount &&
           letters[split - 1 - found.sameBefore] == stretch[found.split - 1 - found.sameBefore])
        ++found.sameBefore;
    while (split + found.sameAfter < letters.size() &&
           found.split + found.sameAfter < stretch.size() &&
           letters[split + found.sameAfter] == stretch[found.split + found.sameAfter])
        ++found.sameAfter;
    return found;
}
