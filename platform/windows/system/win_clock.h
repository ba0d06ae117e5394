// The system's clock.
#pragma once

#include "platform/clock.h"

class WinClock : public Clock {
  public:
    DateTime Now() const override;
    void Wait(int milliseconds) override;
};
