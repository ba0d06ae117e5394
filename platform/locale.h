// The port of the user's locale.
#pragma once

#include <string>

enum class NameLength { Short, Long };

class Locale {
  public:
    virtual ~Locale() = default;
    virtual int AnsiCodePage() const = 0; // of the system's language, for example 1252
    virtual std::u16string MonthName(int month,
                                     NameLength) const = 0;            // 1 to 12, as in a date
    virtual std::u16string DayName(int weekday, NameLength) const = 0; // 1 to 7, Sunday is 1
};
