// What the port of the locale promises, on every back end.
#include "tests/contract/locale_contract.h"

#include <doctest/doctest.h>

#include <set>
#include <string>

namespace {
constexpr int utf8 = 65001;
} // namespace

TEST_CASE("locale contract: the ANSI code page is one of the system's language") {
    OnEach(LocaleBackEnds(), [](LocaleUnderTest& test) {
        CHECK(test.Port().AnsiCodePage() > 0);
        CHECK(test.Port().AnsiCodePage() != utf8);
    });
}

TEST_CASE("locale contract: months and days have the names that dates have") {
    OnEach(LocaleBackEnds(), [](LocaleUnderTest& test) {
        for (const NameLength length : {NameLength::Long, NameLength::Short}) {
            CAPTURE(length == NameLength::Long);
            std::set<std::u16string> months, days;
            for (int month = 1; month <= 12; ++month) {
                CHECK((test.Port().MonthName(month, length) == test.MonthInDate(month, length)));
                months.insert(test.Port().MonthName(month, length));
            }
            for (int day = 1; day <= 7; ++day) {
                CHECK((test.Port().DayName(day, length) == test.DayInDate(day, length)));
                days.insert(test.Port().DayName(day, length));
            }
            CHECK(months.size() == 12);
            CHECK(days.size() == 7);
        }
    });
}
