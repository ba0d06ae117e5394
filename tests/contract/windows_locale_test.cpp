#include "platform/windows/base/win32.h"
#include "platform/windows/system/win_locale.h"

#include <doctest/doctest.h>

TEST_CASE("windows locale: the code page is one that single letters are kept in") {
    const int codePage = WinLocale().AnsiCodePage();
    CPINFO information = {};
    CHECK(GetCPInfo(static_cast<UINT>(codePage), &information));
    CHECK(information.MaxCharSize <= 2);
}

TEST_CASE("windows locale: there are no other months and days") {
    for (const int number : {-1, 0, 13, 1000}) {
        CHECK(WinLocale().MonthName(number, NameLength::Long).empty());
        CHECK(WinLocale().DayName(number, NameLength::Short).empty());
    }
    CHECK(WinLocale().DayName(8, NameLength::Long).empty());
}
