// Conversions between file times and local time.
#pragma once

#include "platform/clock.h"
#include "platform/windows/base/win32.h"

#include <cstdint>
#include <optional>

// By the daylight-saving rules of that year.
std::optional<DateTime> LocalTime(const FILETIME&);
// None for a date that does not exist, or an hour skipped when daylight saving begins.
std::optional<FILETIME> FileTimeFromLocal(const DateTime&);

std::int64_t ToUnixNanoseconds(const FILETIME&); // since 1970
