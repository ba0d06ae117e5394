#include "platform/windows/portable/text_map.h"

#include <doctest/doctest.h>

#include <string>

TEST_CASE("windows text map: marks of the control and what it left out") {
    struct {
        const char16_t *book, *control;
        TextPos inBook, inControl;
        bool bothWays;
    } const cases[] = {
        {u"", u"", 0, 0, true},
        {u"one\ntwo", u"one\rtwo", 4, 4, true},
        {u"one\ntwo", u"one\rtwo\r", 7, 7, true},
        // Marks around a row, of two kinds of control.
        {u"in\nA\aB\a\nout", u"in\r\uFFF9\rA\aB\a\uFFFB\rout", 3, 5, true},
        {u"in\nA\aB\a\nout", u"in\r\uFFF9\rA\aB\a\uFFFB\rout", 8, 11, true},
        {u"in\nA\aB\a\nout", u"in\r\r\nA\tB\t\r\nout", 3, 5, true},
        {u"in\nA\aB\a\nout", u"in\r\r\nA\tB\t\r\nout", 8, 11, true},
        // A picture and a soft hyphen left out: the next place that there is.
        {u"a \uFFFC, and more", u"a , and more", 3, 2, true},
        {u"a \uFFFC, and more", u"a , and more", 2, 2, false},
        {u"a soft\u00ADhyphen.", u"a softhyphen.", 7, 6, true},
        // Another character in its place.
        {u"one\u2011two", u"one-two", 3, 3, true},
        {u"one\u2011two", u"one-two", 6, 6, true},
        // Left out at the end.
        {u"end\uFFFC", u"end", 3, 3, true},
    };
    for (const auto& test : cases) {
        CAPTURE(&test - cases);
        const TextMap map(test.book, test.control);
        CHECK(map.ToControl(test.inBook) == test.inControl);
        if (test.bothWays) CHECK(map.ToBook(test.inControl) == test.inBook);
    }
}

TEST_CASE("windows text map: without texts every place is the same") {
    CHECK(TextMap().ToControl(1234) == 1234);
    CHECK(TextMap().ToBook(0) == 0);
}

TEST_CASE("windows text map: texts that have nothing in common end it soon") {
    const std::u16string book(400'000, u'b'), control(300'000, u'c');
    const TextMap map(book, control);
    CHECK(map.ToControl(200'000) == 200'000);
    CHECK(map.ToBook(1) == 1);
}

TEST_CASE("windows control text: one unit stays one unit") {
    const std::u16string given =
        std::u16string(u"a\nb\vc\fd\u2028e\u2029f\ag\uFFFCh\uFDD0i") + u'\0';
    const std::u16string expected = u"a\rb\vc\vd\ve\vf g\uFFFDh\uFFFDi ";
    CHECK(ToControlText(given) == expected);
}
