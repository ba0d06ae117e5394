#include "platform/windows/system/win_clock.h"

#include <doctest/doctest.h>

#include <ctime>

TEST_CASE("windows clock: tells the local time") {
    const std::time_t before = std::time(nullptr);
    const DateTime now = WinClock().Now();
    std::tm told = {};
    told.tm_year = now.year - 1900;
    told.tm_mon = now.month - 1;
    told.tm_mday = now.day;
    told.tm_hour = now.hour;
    told.tm_min = now.minute;
    told.tm_sec = now.second;
    told.tm_isdst = -1;
    const std::time_t seconds = std::mktime(&told);
    CHECK(seconds >= before);
    CHECK(seconds <= std::time(nullptr));
}
