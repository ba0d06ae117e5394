// The back ends of the locale that this build's contract tests run on.
#pragma once

#include "platform/locale.h"
#include "tests/contract/back_ends.h"

#include <vector>

class LocaleUnderTest {
  public:
    virtual ~LocaleUnderTest() = default;
    virtual Locale& Port() = 0;
    // As the system writes them in a date, without the port.
    virtual std::u16string MonthInDate(int month, NameLength length) = 0;
    virtual std::u16string DayInDate(int weekday, NameLength length) = 0; // Sunday is 1
};

// Defined once in each test program.
std::vector<BackEnd<LocaleUnderTest>> LocaleBackEnds();
