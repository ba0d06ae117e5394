// The sizes that one zoom key leads to from another, as browsers have them. Keys beyond the last
// size count: as many lead back, and a page that comes again with their sum has the size that it
// had.
#pragma once

class ZoomLadder {
  public:
    double Factor() const;
    int Steps() const { return steps_; }
    void Move(int steps); // 0 leads back to normal

  private:
    static constexpr int normal = 7, farthest = 100;
    int steps_ = 0;
};
