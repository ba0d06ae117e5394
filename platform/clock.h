// The port of the clock.
#pragma once

#include "common/date_time.h"

class Clock {
  public:
    virtual ~Clock() = default;
    virtual DateTime Now() const = 0; // local time
    // Comes back after that time; nothing else happens meanwhile. For moments in which there is
    // nothing on the screen yet, or nothing any more.
    virtual void Wait(int milliseconds) = 0;
};
