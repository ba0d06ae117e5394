// What a piece of work allocates, as a measure of it that does not depend on the machine.
#pragma once

#include <cstddef>

struct AllocationCounts {
    std::size_t peakBytes = 0; // at one time
    std::size_t allBytes = 0;  // one after the other
    std::size_t count = 0;
};

// Counts from its beginning on; one at a time, as each resets the peak.
class AllocationCounter {
  public:
    AllocationCounter();
    AllocationCounts Counts() const;

  private:
    AllocationCounts before_;
};
