// The sizes that one zoom key leads to from another. They are the same on all systems, so that a
// book moved to another one is shown in the size that it was left in.
#pragma once

class PageZoom {
  public:
    int Percent() const;
    void Move(int steps); // as far as the sizes go; 0 leads back to normal

  private:
    static constexpr int normal = 7;
    int place_ = normal;
};
