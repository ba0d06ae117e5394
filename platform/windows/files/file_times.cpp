#include "platform/windows/files/file_times.h"

namespace {

WORD Field(int value) { // what does not fit is no valid field either
    return value >= 0 && value <= 0x7FFF ? static_cast<WORD>(value) : 0xFFFF;
}

// The rules of daylight saving that held in that year.
std::optional<TIME_ZONE_INFORMATION> TimeZoneIn(WORD year) {
    TIME_ZONE_INFORMATION zone = {};
    if (!GetTimeZoneInformationForYear(year, nullptr, &zone)) return std::nullopt;
    return zone;
}

} // namespace

std::optional<DateTime> LocalTime(const FILETIME& time) {
    SYSTEMTIME universal = {}, local = {};
    if (!FileTimeToSystemTime(&time, &universal)) return std::nullopt;
    const auto zone = TimeZoneIn(universal.wYear);
    if (!zone || !SystemTimeToTzSpecificLocalTime(&*zone, &universal, &local)) {
        return std::nullopt;
    }
    return DateTime{local.wYear, local.wMonth,  local.wDay,
                    local.wHour, local.wMinute, local.wSecond};
}

std::optional<FILETIME> FileTimeFromLocal(const DateTime& date) {
    SYSTEMTIME local = {}, universal = {};
    local.wYear = Field(date.year);
    local.wMonth = Field(date.month);
    local.wDay = Field(date.day);
    local.wHour = Field(date.hour);
    local.wMinute = Field(date.minute);
    local.wSecond = Field(date.second);
    FILETIME time = {};
    if (!SystemTimeToFileTime(&local, &time)) return std::nullopt; // knows which dates there are
    const auto zone = TimeZoneIn(local.wYear);
    if (!zone || !TzSpecificLocalTimeToSystemTime(&*zone, &local, &universal) ||
        !SystemTimeToFileTime(&universal, &time) || LocalTime(time) != date) {
        return std::nullopt;
    }
    return time;
}

std::int64_t NanosecondsOf(const FILETIME& time) {
    constexpr std::uint64_t year1970 = 116'444'736'000'000'000; // in the system's units of 100 ns
    const std::uint64_t units =
        static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return static_cast<std::int64_t>((units - year1970) * 100);
}
