#include "common/hash.h"
#include "common/text.h"

#include <doctest/doctest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

TEST_CASE("text: folding gives the simple upper case") {
    const struct {
        char16_t unit, folded;
    } cases[] = {
        {u'a', u'A'},           {u'Z', u'Z'},
        {u'1', u'1'},           {u'[', u'['},
        {u'\u00E9', u'\u00C9'}, {u'\u00F7', u'\u00F7'},
        {u'\u00FF', u'\u0178'}, {u'\u00B5', u'\u039C'},
        {u'\u00DF', u'\u00DF'}, // sharp s has no single upper case
        {u'\u0131', u'I'},      {u'\u0130', u'\u0130'},
        {u'\u044F', u'\u042F'}, {u'\u0451', u'\u0401'},
        {u'\u03C2', u'\u03A3'}, {u'\u03C3', u'\u03A3'},
        {u'\u1F80', u'\u1F88'}, {u'\u01C6', u'\u01C4'},
        {u'\u01C5', u'\u01C4'}, {u'\uFF41', u'\uFF21'},
        {u'\u4E00', u'\u4E00'}, {0xD801, 0xD801},
        {u'\uFB01', u'\uFB01'}, {u'\uFFFF', u'\uFFFF'},
    };
    for (const auto& c : cases) {
        CAPTURE(static_cast<int>(c.unit));
        CHECK(FoldCase(c.unit) == c.folded);
    }
    for (int unit = 0; unit < 0x10000; ++unit) {
        const char16_t once = FoldCase(static_cast<char16_t>(unit));
        if (FoldCase(once) != once) FAIL_CHECK("folding twice differs for ", unit);
    }
}

TEST_CASE("text: comparing without case") {
    CHECK(EqualIgnoringCase(u"", u""));
    CHECK(EqualIgnoringCase(u"Readme.TXT", u"README.txt"));
    CHECK(EqualIgnoringCase(u"\u0412\u043E\u0439\u043D\u0430", u"\u0432\u041E\u0419\u041D\u0410"));
    CHECK_FALSE(EqualIgnoringCase(u"a", u"b"));
    CHECK_FALSE(EqualIgnoringCase(u"a", u"ab"));
    CHECK_FALSE(EqualIgnoringCase(u"ab", u"a"));

    CHECK(StartsWithIgnoringCase(u"{\\RTF1", u"{\\rtf"));
    CHECK(StartsWithIgnoringCase(u"a", u""));
    CHECK_FALSE(StartsWithIgnoringCase(u"{\\rt", u"{\\rtf"));
    CHECK_FALSE(StartsWithIgnoringCase(u"", u"a"));
}

TEST_CASE("text: trimming takes blanks and nothing else") {
    CHECK(TrimBlanks(u"") == u"");
    CHECK(TrimBlanks(u"   ") == u"");
    CHECK(TrimBlanks(u"  a b ") == u"a b");
    CHECK(TrimBlanks(u"\ta\u00A0") == u"\ta\u00A0");
}

TEST_CASE("text: splitting, joining and replacing") {
    using Parts = std::vector<std::u16string>;
    CHECK(Split(u"", u"=") == Parts{u""});
    CHECK(Split(u"a", u"=") == Parts{u"a"});
    CHECK(Split(u"a=b==c=", u"=") == Parts{u"a", u"b", u"", u"c", u""});
    CHECK(Split(u"a, b,c", u", ") == Parts{u"a", u"b,c"});
    CHECK(Split(u"aaa", u"aa") == Parts{u"", u"a"});
    CHECK(Split(u"abc", u"") == Parts{u"abc"});

    CHECK(Join({}, u"=") == u"");
    CHECK(Join({u"a"}, u"=") == u"a");
    CHECK(Join({u"a", u"", u"c"}, u", ") == u"a, , c");

    CHECK(Replace(u"", u"a", u"b") == u"");
    CHECK(Replace(u"a=b=", u"=", u"*") == u"a*b*");
    CHECK(Replace(u"aaa", u"aa", u"a") == u"aa"); // what was put in is not searched again
    CHECK(Replace(u"a b c", u" ", u"") == u"abc");
    CHECK(Replace(u"abc", u"", u"x") == u"abc");
}

TEST_CASE("text: the number at the start of a text") {
    const struct {
        const char16_t* text;
        double value;
    } cases[] = {
        {u"", 0},
        {u"x12", 0},
        {u"12", 12},
        {u"  12abc", 12},
        {u"-7", -7},
        {u"+7.5", 7.5},
        {u"1.2.3", 1.2},
        {u".5", 0.5},
        {u"5.", 5},
        {u".", 0},
        {u"-", 0},
        {u"--1", 0},
        {u"- 1", 0},
        {u"1e3", 1},
        {u"\t1", 0},
        {u"0.1", 0.1},
        {u"1,5", 1},
        {u"\u0661", 0},
        {u"inf", 0},
        {u"nan", 0},
        {u"2147483648", 2147483648.0},
        {u"9007199254740993", 9007199254740992.0},
    };
    for (const auto& c : cases) {
        CAPTURE(std::string(c.text, c.text + std::char_traits<char16_t>::length(c.text)));
        CHECK(NumericValue(c.text) == c.value);
    }
    CHECK(NumericValue(std::u16string(400, u'9')) == std::numeric_limits<double>::infinity());
    CHECK(NumericValue(u"-" + std::u16string(400, u'9')) ==
          -std::numeric_limits<double>::infinity());
    CHECK(NumericValue(u"0." + std::u16string(400, u'0') + u"1") == 0);
    CHECK(NumericValue(std::u16string(400, u'0') + u"5") == 5);
}

TEST_CASE("text: whole numbers, a half to the even one, kept in 32 bits") {
    const struct {
        double value;
        std::int32_t rounded;
    } cases[] = {
        {0, 0},
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {2.4999, 2},
        {2.5001, 3},
        {-2.6, -3},
        {511 / 1024.0, 0},
        {1e20, 2147483647},
        {-1e20, -2147483647 - 1},
        {2147483647.5, 2147483647},
        {2147483646.5, 2147483646},
        {-2147483647.5, -2147483647 - 1},
    };
    for (const auto& c : cases) {
        CAPTURE(c.value);
        CHECK(RoundToEven(c.value) == c.rounded);
    }
    CHECK(RoundToEven(std::nan("")) == 0);
    CHECK(WholeNumber(u" 12.5 pt") == 12);
    CHECK(WholeNumber(u"13.5") == 14);
    CHECK(WholeNumber(u"99999999999") == 2147483647);
    CHECK(WholeNumber(std::u16string(400, u'9')) == 2147483647);
    CHECK(WholeNumber(u"none") == 0);
}

TEST_CASE("text: numbers as text") {
    CHECK(NumberText(0) == u"0");
    CHECK(NumberText(-12) == u"-12");
    CHECK(NumberText(std::numeric_limits<std::int64_t>::min()) == u"-9223372036854775808");
    CHECK(NumberText(std::numeric_limits<std::int64_t>::max()) == u"9223372036854775807");
}

TEST_CASE("a hash of a text is the same everywhere") {
    CHECK(Fnv1a(std::string_view()) == 0x811C9DC5);
    CHECK(Fnv1a(std::string_view("foobar")) == 0xBF9CF968);
    CHECK(Fnv1a(std::u16string_view(u"foobar")) == 0xBF9CF968);
    CHECK(Fnv1a(std::string_view("\xFF")) == Fnv1a(std::u16string_view(u"\u00FF")));
}
