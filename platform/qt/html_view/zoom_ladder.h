// The sizes that one zoom key leads to from another, as browsers have them.
#pragma once

class ZoomLadder {
  public:
    double Factor() const;
    void Move(int steps); // as far as the ladder goes; 0 leads back to normal

  private:
    static constexpr int normal = 7;
    int place_ = normal;
};
