#include "books/date_texts.h"

#include "common/text.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {
std::u16string Padded(int number, std::size_t digits) {
    std::u16string text = NumberText(number);
    if (text.size() < digits) text.insert(0, digits - text.size(), u'0');
    return text;
}

template <std::size_t Count>
void PadToSameWidth(std::array<std::u16string, Count>& names, const TextMeasure& measure) {
    const double blank = measure(u" ");
    double widest = 0;
    for (const auto& name : names)
        widest = std::max(widest, measure(name));
    if (blank <= 0) return;
    for (auto& name : names) {
        const auto blanks = RoundToEven((widest - measure(name)) / blank);
        name.append(static_cast<std::size_t>(std::max(blanks, 0)), u' ');
    }
}

// A date whose parts may be out of range: month 13 is next January, second 61 the next minute's
// second.
DateTime RolledOver(int year, int month, int day, int hour, int minute, int second) {
    using namespace std::chrono;
    const int months = year * 12 + (month - 1);
    const int wholeYear = std::clamp(static_cast<int>(std::floor(months / 12.0)), 100, 9999);
    const auto first =
        sys_days{std::chrono::year{wholeYear} /
                 std::chrono::month{static_cast<unsigned>(((months % 12) + 12) % 12 + 1)} / 1};
    const auto time =
        sys_seconds{first} + days{day - 1} + hours{hour} + minutes{minute} + seconds{second};
    const auto date = floor<days>(time);
    const year_month_day calendar{date};
    const hh_mm_ss clock{time - date};
    return {static_cast<int>(calendar.year()),
            static_cast<int>(static_cast<unsigned>(calendar.month())),
            static_cast<int>(static_cast<unsigned>(calendar.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

int SmallNumber(std::u16string_view text) {
    return std::clamp(WholeNumber(text), -32768, 32767);
}
} // namespace

DateNames BuildPaddedDateNames(const Locale& locale, const TextMeasure& measure) {
    DateNames names;
    for (int month = 1; month <= 12; ++month) {
        names.ShortMonthNames[month - 1] = locale.MonthName(month, NameLength::Short);
        names.LongMonthNames[month - 1] = locale.MonthName(month, NameLength::Long);
    }
    for (int day = 1; day <= 7; ++day) {
        names.ShortDayNames[day - 1] = locale.DayName(day, NameLength::Short);
        names.LongDayNames[day - 1] = locale.DayName(day, NameLength::Long);
    }
    PadToSameWidth(names.ShortMonthNames, measure);
    PadToSameWidth(names.LongMonthNames, measure);
    PadToSameWidth(names.ShortDayNames, measure);
    PadToSameWidth(names.LongDayNames, measure);
    return names;
}

std::u16string StoredDateTime(const DateTime& date) {
    return Padded(date.year, 4) + u':' + Padded(date.month, 2) + u':' + Padded(date.day, 2) + u':' +
           Padded(date.hour, 2) + u':' + Padded(date.minute, 2) + u':' + Padded(date.second, 2);
}

DateTime ParseStoredDateTime(std::u16string_view text, const DateTime& now) {
    const auto parts = Split(TrimBlanks(text), u":");
    if (parts.size() != 6) return now;
    return RolledOver(SmallNumber(parts[0]), SmallNumber(parts[1]), SmallNumber(parts[2]),
                      SmallNumber(parts[3]), SmallNumber(parts[4]), SmallNumber(parts[5]));
}

std::u16string FormatListDate(const DateTime& date, const DateNames& names) {
    const auto& month = names.ShortMonthNames.at(static_cast<std::size_t>(date.month - 1));
    return Padded(date.year, 4) + u' ' + month + u' ' + Padded(date.day, 2);
}
