#include "view/page/list_marker.h"

#include "common/roman_numerals.h"
#include "common/text.h"

#include <algorithm>
#include <string_view>

namespace {
// a to z, then aa: no letter is a zero.
std::u16string Letters(int number, std::u16string_view letters) {
    const int count = int(letters.size());
    std::u16string text;
    for (; number > 0; number = (number - 1) / count)
        text.insert(text.begin(), letters[std::size_t((number - 1) % count)]);
    return text;
}

std::u16string Upper(std::u16string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char16_t letter) { return char16_t(letter - u'a' + u'A'); });
    return text;
}

std::u16string Number(CssListStyleType type, int number) {
    constexpr std::u16string_view latin = u"abcdefghijklmnopqrstuvwxyz";
    constexpr std::u16string_view greek = u"αβγδεζηθικλμνξοπρστυφχψω";
    const bool positive = number > 0;
    switch (type) {
    case CssListStyleType::LowerAlpha:
        return positive ? Letters(number, latin) : NumberText(number);
    case CssListStyleType::UpperAlpha:
        return positive ? Upper(Letters(number, latin)) : NumberText(number);
    case CssListStyleType::LowerGreek:
        return positive ? Letters(number, greek) : NumberText(number);
    case CssListStyleType::LowerRoman: return LowerRoman(number);
    case CssListStyleType::UpperRoman: return UpperRoman(number);
    case CssListStyleType::DecimalLeadingZero:
        return (number >= 0 && number < 10 ? u"0" : u"") + NumberText(number);
    default: return NumberText(number);
    }
}
} // namespace

std::u16string CounterText(CssListStyleType type, int number) {
    switch (type) {
    case CssListStyleType::None: return u"";
    case CssListStyleType::Disc: return u"\u2022";
    case CssListStyleType::Circle: return u"\u25E6";
    case CssListStyleType::Square: return u"\u25AA";
    default: return Number(type, number);
    }
}

std::u16string ListMarker(CssListStyleType type, int number) {
    return CounterText(type, number) + (type < CssListStyleType::Decimal ? u"" : u".");
}
