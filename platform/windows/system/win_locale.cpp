#include "platform/windows/system/win_locale.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"

namespace {

constexpr int maxNameLength = 80; // units, with the NUL

// Gregorian, whatever the user's calendar is.
std::u16string CalendarName(CALTYPE type) {
    wchar_t name[maxNameLength] = {};
    GetCalendarInfoEx(LOCALE_NAME_USER_DEFAULT, CAL_GREGORIAN, nullptr, type, name, maxNameLength,
                      nullptr);
    return FromWide(name);
}

std::u16string LocaleName(LCTYPE type) {
    wchar_t name[maxNameLength] = {};
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type, name, maxNameLength);
    return FromWide(name);
}

} // namespace

// Not GetACP: the process's may be UTF-8. A locale without one (Hindi) gives 0.
int WinLocale::AnsiCodePage() const {
    DWORD codePage = 0;
    const LCTYPE asNumber = LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER;
    GetLocaleInfoEx(LOCALE_NAME_SYSTEM_DEFAULT, asNumber, reinterpret_cast<wchar_t*>(&codePage),
                    sizeof codePage / sizeof(wchar_t));
    return codePage == CP_ACP || codePage == CP_UTF8 ? 1252 : static_cast<int>(codePage);
}

// Genitive where the language has one: "1 января", not "январь".
std::u16string WinLocale::MonthName(int month, NameLength length) const {
    if (month < 1 || month > 12) return {};
    const auto index = static_cast<DWORD>(month - 1);
    const CALTYPE inCalendar =
        (length == NameLength::Long ? CAL_SMONTHNAME1 : CAL_SABBREVMONTHNAME1) + index;
    const LCTYPE inLocale =
        (length == NameLength::Long ? LOCALE_SMONTHNAME1 : LOCALE_SABBREVMONTHNAME1) + index;
    const std::u16string name = CalendarName(inCalendar | CAL_RETURN_GENITIVE_NAMES);
    return name.empty() ? LocaleName(inLocale) : name; // a locale without the Gregorian calendar
}

std::u16string WinLocale::DayName(int weekday, NameLength length) const {
    if (weekday < 1 || weekday > 7) return {};
    const auto fromMonday = static_cast<DWORD>((weekday + 5) % 7);
    return LocaleName((length == NameLength::Long ? LOCALE_SDAYNAME1 : LOCALE_SABBREVDAYNAME1) +
                      fromMonday);
}
