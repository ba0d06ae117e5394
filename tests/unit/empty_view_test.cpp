#include "test_form.h"

#include "app/empty_view.h"
#include "app/open_book.h"

#include <doctest/doctest.h>

namespace {
constexpr const char16_t* welcome = u"/app/Welcome.txt";
constexpr int enter = 13;
} // namespace

TEST_CASE("empty view: the first run offers the welcome book, to a click and to Enter") {
    for (const bool byKey : {false, true}) {
        TestForm test;
        test.PutBook(welcome);
        REQUIRE(test.Start());
        CHECK(test.View().placeholder.text == u"Open a book with Ctrl+O, or drop it here.");
        CHECK_FALSE(test.View().placeholder.link.empty());
        CHECK(test.View().Name().starts_with(test.View().placeholder.text)); // read aloud
        if (byKey)
            test.Window().Events().onKeyDown(enter, 0);
        else
            test.View().onPlaceholderLink();
        CHECK(test.Window().title == u"Norvaset [Default] - /app/Welcome.txt");
        CHECK(test.View().placeholder.text.empty());
        CHECK(test.View().Name() == u"Welcome.txt");
    }
}

TEST_CASE("empty view: who has opened a book is offered none") {
    TestForm test;
    test.PutBook(welcome);
    test.PutDataFile("[Default\\mFileList]\r\n/b/gone.txt==0\r\n");
    REQUIRE(test.Start());
    CHECK_FALSE(test.View().placeholder.text.empty());
    CHECK(test.View().placeholder.link.empty());
    test.Window().Events().onKeyDown(enter, 0);
    CHECK(test.Window().title == u"Norvaset [Default]");
}

TEST_CASE("empty view: an installation has the welcome book in its folder; without one no offer") {
    TestForm installed;
    installed.PutBook(u"/share/norvaset/Welcome.txt");
    REQUIRE(installed.Start());
    installed.Window().Events().onKeyDown(enter, 0);
    CHECK(installed.Window().title == u"Norvaset [Default] - /share/norvaset/Welcome.txt");
    TestForm without;
    REQUIRE(without.Start());
    CHECK_FALSE(without.View().placeholder.text.empty());
    CHECK(without.View().placeholder.link.empty());
}

TEST_CASE("empty view: Enter in a book, or with Shift, opens nothing") {
    TestForm test;
    test.PutBook(welcome);
    test.PutBook(u"/b/a.txt");
    REQUIRE(test.Start());
    test.Window().Events().onKeyDown(enter, ShiftKey);
    CHECK(test.form.history.Count() == 0);
    OpenBook(test.form, u"/b/a.txt");
    test.Window().Events().onKeyDown(enter, 0);
    CHECK(test.Window().title == u"Norvaset [Default] - /b/a.txt");
}
