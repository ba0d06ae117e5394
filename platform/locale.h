// The port of the user's locale.
#pragma once

#include <string>

class Locale {
  public:
    virtual ~Locale() = default;
    virtual int AnsiCodePage() const = 0; // of the system's language, for example 1252
    virtual std::u16string MonthName(int month, bool full) const = 0; // 1 to 12, as in a date
    virtual std::u16string DayName(int weekday, bool full) const = 0; // 1 to 7, Sunday is 1
};
