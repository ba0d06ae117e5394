// Dates as the history list shows them, and as they are stored.
#pragma once

#include "platform/clock.h"
#include "platform/locale.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

// Names in the user's language, each padded with blanks to about the width of the widest of its
// table.
struct DateNames {
    std::array<std::u16string, 12> ShortMonthNames, LongMonthNames; // January first
    std::array<std::u16string, 7> ShortDayNames, LongDayNames;      // Sunday first
};

using TextMeasure = std::function<double(std::u16string_view)>; // width of a text

DateNames BuildPaddedDateNames(const Locale&, const TextMeasure&);

// "yyyy:mm:dd:Hh:Nn:Ss", as records keep it.
std::u16string StoredDateTime(const DateTime&);

// The date of a stored text; `now` when it has not six parts. Parts out of range roll over.
DateTime ParseStoredDateTime(std::u16string_view text, const DateTime& now);

// "yyyy mmm dd" with the padded month name.
std::u16string FormatListDate(const DateTime&, const DateNames&);
