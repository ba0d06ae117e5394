// The sizes of the zoom steps: the same on all systems, so that a book carried to another one keeps
// its size. Steps beyond the last size count: as many are needed to come back, so that the saved
// number of steps reproduces the size.
#pragma once

class PageZoom {
  public:
    int Percent() const;
    int Steps() const { return steps_; }
    void Move(int steps); // 0 resets

  private:
    static constexpr int normal = 7, maxSteps = 100;
    int steps_ = 0;
};
