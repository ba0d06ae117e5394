#include "common/roman_numerals.h"

#include "common/text.h"

#include <string_view>

namespace {
constexpr int maxNumber = 3999;

struct Part {
    int value;
    std::u16string_view lower, upper;
};
constexpr Part parts[] = {{1000, u"m", u"M"},  {900, u"cm", u"CM"}, {500, u"d", u"D"},
                          {400, u"cd", u"CD"}, {100, u"c", u"C"},   {90, u"xc", u"XC"},
                          {50, u"l", u"L"},    {40, u"xl", u"XL"},  {10, u"x", u"X"},
                          {9, u"ix", u"IX"},   {5, u"v", u"V"},     {4, u"iv", u"IV"},
                          {1, u"i", u"I"}};

std::u16string Roman(int number, std::u16string_view Part::*letters) {
    if (number <= 0 || number > maxNumber) return NumberText(number);
    std::u16string text;
    for (const Part& part : parts)
        for (; number >= part.value; number -= part.value)
            text += part.*letters;
    return text;
}
} // namespace

std::u16string LowerRoman(int number) {
    return Roman(number, &Part::lower);
}

std::u16string UpperRoman(int number) {
    return Roman(number, &Part::upper);
}
