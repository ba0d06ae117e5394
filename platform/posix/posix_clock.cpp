#include "platform/posix/posix_clock.h"

DateTime LocalTime(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::optional<std::time_t> TimeFromLocal(const DateTime& date) {
    std::tm local{};
    local.tm_year = date.year - 1900;
    local.tm_mon = date.month - 1;
    local.tm_mday = date.day;
    local.tm_hour = date.hour;
    local.tm_min = date.minute;
    local.tm_sec = date.second;
    local.tm_isdst = -1; // the system knows
    const std::time_t time = std::mktime(&local);
    // mktime makes a date of anything: 30 February becomes 2 March.
    if (LocalTime(time) != date) return std::nullopt;
    return time;
}
