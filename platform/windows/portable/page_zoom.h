// The sizes that one zoom key leads to from another. They are the same on all systems, so that a
// book moved to another one is shown in the size that it was left in. Keys beyond the last size
// count: as many lead back, and a page that comes again with their sum has the size that it had.
#pragma once

class PageZoom {
  public:
    int Percent() const;
    int Steps() const { return steps_; }
    void Move(int steps); // 0 leads back to normal

  private:
    static constexpr int normal = 7, maxSteps = 100;
    int steps_ = 0;
};
