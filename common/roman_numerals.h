// Roman numerals.
#pragma once

#include <string>

// From 1 to 3999; any other number in digits.
std::u16string LowerRoman(int number);
std::u16string UpperRoman(int number);
