// A date and a time of day.
#pragma once

// A local date and time.
struct DateTime {
    int year = 1, month = 1, day = 1, hour = 0, minute = 0, second = 0;
    bool operator==(const DateTime&) const = default;
};
