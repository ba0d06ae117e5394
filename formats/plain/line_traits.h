// What a line of a plain text looks like on its page.
#pragma once

#include <string_view>

constexpr std::size_t maxPageLine = 200; // UTF-16 units; no page was wider

struct LineTraits {
    bool isBlank = true, isTooLong = false, isIndented = false;
    bool standsAlone = false; // a heading in capitals, a row of a table, a rule
    bool isItem = false;      // of a list
    bool startsWithCapital = false, startsWithSmall = false;
    bool endsSentence = false;
    int width = 0;     // in columns, without blanks at its end; East Asian letters take two
    int firstWord = 0; // likewise, of what would have to fit at the end of the line above
};

LineTraits TraitsOf(std::u16string_view line);
