// The script of a plain text: which are chosen, which guessed, and of which book each is.
#include "test_form.h"

#include "app/file_menu.h"
#include "app/open_book.h"

#include <doctest/doctest.h>

namespace {
// "called" in French, and a Greek and a Russian sentence of the same bytes' charsets.
constexpr std::string_view french =
    "Elle l'a appel\xE9\x65, et l'\xE9t\xE9 a \xE9t\xE9 tr\xE8s beau.\n";
constexpr std::string_view greek = "\xCC\xE9\xE1 \xF6\xEF\xF1\xDC \xEA\xE9 \xDD\xED\xE1\xED "
                                   "\xEA\xE1\xE9\xF1\xFC \xE6\xEF\xFD\xF3\xE5 \xDD\xED\xE1\xF2 "
                                   "\xE2\xE1\xF3\xE9\xEB\xE9\xDC\xF2.\n";

std::u16string Shown(TestForm& test) {
    return test.View().TextRange(0, test.View().TextLength());
}

void ChooseScript(TestForm& test, int charset) {
    ViewFont font = test.form.format.font;
    font.charset = charset;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
    test.Menus().Open(test.Menu().mView);
    test.Menus().Click(test.Menu().mViewFont);
}
} // namespace

TEST_CASE("script: one that was chosen for the shown book does not leak into a new one") {
    TestForm test;
    test.PutBook(u"/b/short.txt", "\xE1\xE2\xE3");
    test.PutBook(u"/b/french.txt", french);
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/short.txt");
    ChooseScript(test, 161);
    CHECK(Shown(test) == u"\u03B1\u03B2\u03B3");
    OpenBook(test.form, u"/b/french.txt");
    CHECK(Shown(test).starts_with(u"Elle l'a appel\u00E9e"));
    CHECK(test.form.format.font.charset == 0);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(Shown(next).starts_with(u"Elle l'a appel\u00E9e"));
    mFileList_Click(next.form, 1);
    CHECK(Shown(next) == u"\u03B1\u03B2\u03B3"); // for which it was chosen
}

TEST_CASE("script: a killed program leaves no choice behind that nobody made") {
    TestForm test;
    test.PutBook(u"/b/greek.txt", greek);
    test.PutBook(u"/b/french.txt", french);
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/greek.txt");
    CHECK(Shown(test).starts_with(u"\u039C\u03B9\u03B1 \u03C6\u03BF\u03C1\u03AC"));
    OpenBook(test.form, u"/b/french.txt");
    TestForm next(test); // without closing
    REQUIRE(next.Start());
    CHECK(Shown(next).starts_with(u"Elle l'a appel\u00E9e"));
    mFileList_Click(next.form, 1);
    CHECK(Shown(next).starts_with(u"\u039C\u03B9\u03B1 \u03C6\u03BF\u03C1\u03AC"));
}

TEST_CASE("script: one that was only guessed is guessed anew when the file is another") {
    TestForm test;
    test.PutBook(u"/b/a.txt", greek);
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    CHECK(Shown(test).starts_with(u"\u039C\u03B9\u03B1 \u03C6\u03BF\u03C1\u03AC"));
    test.Close();
    TestForm next(test);
    next.PutBook(u"/b/a.txt", french);
    REQUIRE(next.Start());
    CHECK(Shown(next).starts_with(u"Elle l'a appel\u00E9e"));
}

TEST_CASE("script: a record of an older version is read in the script of its number") {
    TestForm test;
    test.PutBook(u"/b/french.txt", french);
    test.PutDataFile(
        "[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/french.txt=2026:01:01:01:01:01=0"
        "=Serif=12=161=0=0=0=0=1=0=0=0=0=0==\r\n");
    REQUIRE(test.Start());
    CHECK(Shown(test).starts_with(u"Elle l'a appel\u03B9e"));
    ChooseScript(test, 0);
    CHECK(Shown(test).starts_with(u"Elle l'a appel\u00E9e"));
    test.Close();
    CHECK(test.DataFile().find("[A\\/b/french.txt]\r\nCodePage=1252") != std::string::npos);
}

TEST_CASE("script: a charset that is kept for the book is just that") {
    TestForm test;
    test.PutBook(u"/b/a.txt", "\xE0\xE1\xE2 \xA0\xA1");
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/a.txt=2026:01:01:01:01:01=0"
                     "=Serif=12=204=0=0=0=0=1=0=0=0=0=0==\r\n[A\\/b/a.txt]\r\nCodePage=866\r\n");
    REQUIRE(test.Start());
    CHECK(Shown(test).starts_with(u"\u0440\u0441\u0442 \u0430\u0431"));
    CHECK(test.form.book.codePage == 866);
}
