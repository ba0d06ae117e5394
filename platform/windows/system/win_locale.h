// The user's locale on Windows.
#pragma once

#include "platform/locale.h"

class WinLocale final : public Locale {
  public:
    int AnsiCodePage() const override;
    std::u16string MonthName(int month, NameLength) const override;
    std::u16string DayName(int weekday, NameLength) const override;
};
