// The port of a repeating timer on the user-interface thread.
#pragma once

#include <functional>

class Timer {
  public:
    virtual ~Timer() = default;
    virtual void Start(int milliseconds, std::function<void()> onTick) = 0;
    virtual void Stop() = 0;
};
