// The user's locale, from the environment and from Qt's tables of names.
#pragma once

#include "platform/locale.h"

class QtLocale final : public Locale {
  public:
    int AnsiCodePage() const override;
    std::u16string MonthName(int month, bool full) const override;
    std::u16string DayName(int weekday, bool full) const override;
};
