// Numeric character references ("&#1234;"), and texts of one line.
#pragma once

#include <string>
#include <string_view>

// Every unit from 128 on becomes "&#" decimal ";". Stops before the piece that would make the
// result longer than `maxLength` (0: no limit).
std::u16string EncodeNonAscii(std::u16string_view text, int maxLength = 0);

// "&#" decimal ";" and "&#x" hexadecimal ";" become the characters they stand for; a number that is
// no character stays as it is written.
std::u16string DecodeCharRefs(std::u16string_view text);

std::u16string OneLine(std::u16string text); // control characters become blanks
