// The user's locale: code page by the environment, names by QLocale.
#pragma once

#include "platform/locale.h"

#include <string_view>

class QtLocale final : public Locale {
  public:
    int AnsiCodePage() const override;
    std::u16string MonthName(int month, NameLength) const override;
    std::u16string DayName(int weekday, NameLength) const override;
};

// The ANSI code page that Windows uses for a locale in POSIX notation ("ru_RU.UTF-8",
// "sr_RS@latin", "zh_TW"). 1252 for an unknown language.
int AnsiCodePageOf(std::string_view locale);
