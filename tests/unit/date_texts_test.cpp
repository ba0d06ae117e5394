#include "books/date_texts.h"
#include "common/colors.h"
#include "formats/spare_routines.h"
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

TEST_CASE("dates: parts out of range roll over") {
    const DateTime now;
    CHECK(ParseStoredDateTime(u"2021:13:1:0:0:0", now) == DateTime{2022, 1, 1, 0, 0, 0});
    CHECK(ParseStoredDateTime(u"2021:2:29:0:0:61", now) == DateTime{2021, 3, 1, 0, 1, 1});
    CHECK(ParseStoredDateTime(u"2021:1:0:-1:0:0", now) == DateTime{2020, 12, 30, 23, 0, 0});
    CHECK(ParseStoredDateTime(u"99999:99999:99999:99999:99999:99999", now).month >= 1);
    CHECK(ParseStoredDateTime(u"-9:x:::%:5", now).month >= 1);
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
}

TEST_CASE("colours: components in the order of their bytes") {
    ColorComponents components;
    CHECK(ColorToComponentsText(255 * 65536 + 128 * 256, components) == u"255,128,0");
    CHECK(components.first == 255);
    CHECK(components.second == 128);
    CHECK(components.third == 0);
    CHECK(ColorToComponentsText(-1, components) == u"");
    CHECK(ColorToComponentsText(1 << 24, components) == u"");
    CHECK(components.first == 255);
    CHECK(SwapColorOrder(0x112233) == 0x332211);
}
