// The clock on POSIX, and local time.
#pragma once

#include "platform/clock.h"

#include <chrono>
#include <ctime>
#include <optional>
#include <thread>

DateTime LocalTime(std::time_t);
std::optional<std::time_t> TimeFromLocal(const DateTime&); // none for a date that is none

class PosixClock : public Clock {
  public:
    DateTime Now() const override { return LocalTime(std::time(nullptr)); }
    void Wait(int milliseconds) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
};
