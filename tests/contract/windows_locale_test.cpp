#include "platform/windows/base/win32.h"
#include "platform/windows/system/win_locale.h"

#include <doctest/doctest.h>

#include <cwchar>
#include <set>
#include <string>

TEST_CASE("windows locale: the code page is one that single letters are kept in") {
    const int codePage = WinLocale().AnsiCodePage();
    CHECK(codePage != 0);
    CHECK(codePage != CP_UTF8);
    CPINFO information = {};
    CHECK(GetCPInfo(static_cast<UINT>(codePage), &information));
    CHECK(information.MaxCharSize <= 2);
}

TEST_CASE("windows locale: names of months and days are those of a date") {
    const WinLocale locale;
    std::set<std::u16string> names;
    for (int month = 1; month <= 12; ++month) {
        const SYSTEMTIME date = {2026, static_cast<WORD>(month), 0, 15, 0, 0, 0, 0};
        wchar_t shown[80] = {};
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &date, L"dd MMMM", shown, 80, nullptr);
        CHECK((locale.MonthName(month, true) == std::u16string(shown + 3, shown + wcslen(shown))));
        CHECK_FALSE(locale.MonthName(month, false).empty());
        names.insert(locale.MonthName(month, true));
    }
    CHECK(names.size() == 12);
    for (int day = 1; day <= 7; ++day) {
        const SYSTEMTIME date = {2026, 2, 0, static_cast<WORD>(day), 0, 0, 0, 0}; // 1 is a Sunday
        wchar_t full[80] = {}, abbreviated[80] = {};
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &date, L"dddd", full, 80, nullptr);
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &date, L"ddd", abbreviated, 80, nullptr);
        CHECK((locale.DayName(day, true) == std::u16string(full, full + wcslen(full))));
        CHECK((locale.DayName(day, false) ==
               std::u16string(abbreviated, abbreviated + wcslen(abbreviated))));
    }
}

TEST_CASE("windows locale: there are no other months and days") {
    for (const int number : {-1, 0, 13, 1000}) {
        CHECK(WinLocale().MonthName(number, true).empty());
        CHECK(WinLocale().DayName(number, false).empty());
    }
    CHECK(WinLocale().DayName(8, true).empty());
}
