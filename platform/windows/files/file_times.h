// The system's file times and local time.
#pragma once

#include "platform/clock.h"
#include "platform/windows/base/win32.h"

#include <cstdint>
#include <optional>

// With the rules of daylight saving that held in that year, as on every other system.
std::optional<DateTime> LocalTime(const FILETIME&);
// None for a date that is none, or an hour that a change to summer time leaves out.
std::optional<FILETIME> FileTimeFromLocal(const DateTime&);

std::int64_t NanosecondsOf(const FILETIME&); // since 1970, as other systems count
