#include "books/date_texts.h"
#include "common/utf.h"
#include "platform/none/none_ports.h"

#include <doctest/doctest.h>

namespace {
DateNames Names(const TextMeasure& measure) {
    return BuildPaddedDateNames(NoneLocale(), measure);
}
} // namespace

TEST_CASE("dates: stored texts are read, malformed ones mean now") {
    const DateTime now{2026, 11, 21, 9, 8, 7};
    CHECK(ParseStoredDateTime(u"2021:7:4:18:5:30", now) == DateTime{2021, 7, 4, 18, 5, 30});
    CHECK(ParseStoredDateTime(u" 2021:07:04:18:05:30 ", now) == DateTime{2021, 7, 4, 18, 5, 30});
    for (const char16_t* bad : {u"2021:7:4", u"", u"yesterday", u"1:2:3:4:5:6:7"})
        CHECK(ParseStoredDateTime(bad, now) == now);
}

TEST_CASE("dates: parts out of range roll over, and stay a date") {
    const DateTime now;
    CHECK(ParseStoredDateTime(u"2021:13:1:0:0:0", now) == DateTime{2022, 1, 1, 0, 0, 0});
    CHECK(ParseStoredDateTime(u"2021:2:29:0:0:61", now) == DateTime{2021, 3, 1, 0, 1, 1});
    CHECK(ParseStoredDateTime(u"2021:1:0:-1:0:0", now) == DateTime{2020, 12, 30, 23, 0, 0});
    for (const char16_t* wild :
         {u"99999:99999:99999:99999:99999:99999", u"-9:x:::%:5", u"0:0:0:-1:-1:-1",
          u"-99999:-99999:-99999:-99999:-99999:-99999", u"2021:2:30:24:60:60"}) {
        const DateTime date = ParseStoredDateTime(wild, now);
        CAPTURE(Utf16ToUtf8(wild));
        CHECK((date.month >= 1 && date.month <= 12));
        CHECK((date.day >= 1 && date.day <= 31));
        CHECK((date.hour >= 0 && date.hour < 24));
        CHECK((date.minute >= 0 && date.minute < 60));
        CHECK((date.second >= 0 && date.second < 60));
    }
}

TEST_CASE("dates: what is stored reads back") {
    const DateTime date{2026, 1, 2, 3, 4, 5};
    CHECK(StoredDateTime(date) == u"2026:01:02:03:04:05");
    CHECK(ParseStoredDateTime(StoredDateTime(date), {}) == date);
}

TEST_CASE("dates: labels of all months are as wide as each other, to one blank") {
    const NoneWindow window;
    const auto measure = [&](std::u16string_view text) { return window.TextWidth(text); };
    const DateNames names = Names(measure);
    const double blank = measure(u" ");
    const double widest = measure(u"Mar");
    for (int month = 1; month <= 12; ++month) {
        const double width = measure(names.ShortMonthNames[month - 1]);
        CHECK(width > widest - blank);
        CHECK(width < widest + blank);
    }
    CHECK(FormatListDate({2021, 7, 4}, names) == u"2021 " + names.ShortMonthNames[6] + u" 04");
    CHECK(names.ShortMonthNames[6].starts_with(u"Jul"));
    CHECK(names.ShortDayNames[0].starts_with(u"Sun"));
    CHECK(names.LongMonthNames[8] == u"September");
    CHECK(names.LongDayNames[3] == u"Wednesday");
}
