#include "common/roman_numerals.h"

#include <doctest/doctest.h>

TEST_CASE("roman numerals: from 1 to 3999, others in digits") {
    CHECK(LowerRoman(1) == u"i");
    CHECK(LowerRoman(49) == u"xlix");
    CHECK(UpperRoman(1994) == u"MCMXCIV");
    CHECK(UpperRoman(3999) == u"MMMCMXCIX");
    CHECK(LowerRoman(4000) == u"4000");
    CHECK(UpperRoman(0) == u"0");
    CHECK(LowerRoman(-3) == u"-3");
}
