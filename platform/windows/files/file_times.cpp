#include "platform/windows/files/file_times.h"

namespace {

WORD ToWord(int value) { // out of range becomes an invalid field
    return value >= 0 && value <= 0x7FFF ? static_cast<WORD>(value) : 0xFFFF;
}

std::optional<TIME_ZONE_INFORMATION> TimeZoneForYear(WORD year) {
    TIME_ZONE_INFORMATION zone = {};
    if (!GetTimeZoneInformationForYear(year, nullptr, &zone)) return std::nullopt;
    return zone;
}

} // namespace

std::optional<DateTime> LocalTime(const FILETIME& time) {
    SYSTEMTIME universal = {}, local = {};
    if (!FileTimeToSystemTime(&time, &universal)) return std::nullopt;
    const auto zone = TimeZoneForYear(universal.wYear);
    if (!zone || !SystemTimeToTzSpecificLocalTime(&*zone, &universal, &local)) {
        return std::nullopt;
    }
    return DateTime{local.wYear, local.wMonth,  local.wDay,
                    local.wHour, local.wMinute, local.wSecond};
}

std::optional<FILETIME> FileTimeFromLocal(const DateTime& date) {
    SYSTEMTIME local = {}, universal = {};
    local.wYear = ToWord(date.year);
    local.wMonth = ToWord(date.month);
    local.wDay = ToWord(date.day);
    local.wHour = ToWord(date.hour);
    local.wMinute = ToWord(date.minute);
    local.wSecond = ToWord(date.second);
    FILETIME time = {};
    if (!SystemTimeToFileTime(&local, &time))
        return std::nullopt; // rejects dates that do not exist
    const auto zone = TimeZoneForYear(local.wYear);
    if (!zone || !TzSpecificLocalTimeToSystemTime(&*zone, &local, &universal) ||
        !SystemTimeToFileTime(&universal, &time) || LocalTime(time) != date) {
        return std::nullopt;
    }
    return time;
}

std::int64_t ToUnixNanoseconds(const FILETIME& time) {
    constexpr std::uint64_t year1970 = 116'444'736'000'000'000; // in the system's units of 100 ns
    const std::uint64_t units =
        static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return static_cast<std::int64_t>((units - year1970) * 100);
}
