// A clock that a test turns by hand.
#pragma once

#include "platform/clock.h"

#include <chrono>
#include <functional>

class NoneClock : public Clock {
  public:
    DateTime now{2026, 1, 2, 3, 4, 5};

    DateTime Now() const override { return now; }
    void Wait(int milliseconds) override {
        waited += milliseconds;
        if (whileWaiting) whileWaiting();
    }
    int waited = 0;                     // milliseconds
    std::function<void()> whileWaiting; // what happens elsewhere meanwhile

    void Advance(std::chrono::seconds by) {
        using namespace std::chrono;
        const sys_days date = year(now.year) / now.month / now.day;
        const sys_seconds time =
            date + hours(now.hour) + minutes(now.minute) + seconds(now.second) + by;
        const sys_days newDate = floor<days>(time);
        const year_month_day day(newDate);
        const hh_mm_ss clock(time - newDate);
        now = {int(day.year()),
               int(unsigned(day.month())),
               int(unsigned(day.day())),
               int(clock.hours().count()),
               int(clock.minutes().count()),
               int(clock.seconds().count())};
    }
};
