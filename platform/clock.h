// The port of the clock.
#pragma once

// A local date and time.
struct DateTime {
    int year = 1, month = 1, day = 1, hour = 0, minute = 0, second = 0;
    bool operator==(const DateTime&) const = default;
};

class Clock {
  public:
    virtual ~Clock() = default;
    virtual DateTime Now() const = 0; // local time
    // Comes back after that time; nothing else happens meanwhile. For moments in which there is
    // nothing on the screen yet, or nothing any more.
    virtual void Wait(int milliseconds) = 0;
};
