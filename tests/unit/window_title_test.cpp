#include "test_form.h"

#include "app/main_window.h"
#include "app/shown_book.h"

#include <doctest/doctest.h>

namespace {
std::u16string TitleFor(TestForm& test, const char* record) {
    test.PutDataFile(std::string("[mProfileList]\r\n0=Anna\r\n[Anna\\mFileList]\r\n") + record +
                     "\r\n");
    test.PutBook(u"/b/a.txt");
    REQUIRE(test.Start());
    return test.Window().title;
}
} // namespace

TEST_CASE("title: the caption, where it is wanted and can be shown, else the path") {
    const char* captioned = "/b/a.txt=1=0=Serif=12=0=0=0=0=0=1=0=0=0=0=9= A &#233;tude =";
    TestForm shown;
    CHECK(TitleFor(shown, captioned) == u"Norvaset [Anna] - A \u00E9tude");
    CheckRadioItem(0, shown.Menu().mOptionsTitle);
    UpdateWindowTitle(shown.form);
    CHECK(shown.Window().title == u"Norvaset [Anna] - /b/a.txt");
    TestForm none;
    CHECK(TitleFor(none, "/b/a.txt=1=0=Serif=12=0=0=0=0=0=1=0=0=0=0=9==") ==
          u"Norvaset [Anna] - /b/a.txt");
    TestForm cyrillic;
    CHECK(TitleFor(cyrillic, "/b/a.txt=1=0=Serif=12=204=0=0=0=0=1=0=0=0=0=9=Caption=") ==
          u"Norvaset [Anna] - /b/a.txt");
    TestForm atHome;
    atHome.Locale().codePage = 1251;
    CHECK(TitleFor(atHome, "/b/a.txt=1=0=Serif=12=204=0=0=0=0=1=0=0=0=0=9=Caption=") ==
          u"Norvaset [Anna] - Caption");
    TestForm shortRecord;
    CHECK(TitleFor(shortRecord, "/b/a.txt=1") == u"Norvaset [Anna] - /b/a.txt");
}

TEST_CASE("title: the text is called by its caption, in any script, else by the name of its file") {
    TestForm captioned;
    TitleFor(captioned, "/b/a.txt=1=0=Serif=12=204=0=0=0=0=1=0=0=0=0=9= A &#233;tude =");
    CHECK(captioned.View().Name() == u"A \u00E9tude");
    CheckRadioItem(0, captioned.Menu().mOptionsTitle);
    UpdateWindowTitle(captioned.form);
    CHECK(captioned.View().Name() == u"A \u00E9tude");
    TestForm none;
    TitleFor(none, "/b/a.txt=1");
    CHECK(none.View().Name() == u"a.txt");
    TestForm noBook;
    REQUIRE(noBook.Start());
    CHECK(noBook.View().Name() == u"Open a book with Ctrl+O, or drop it here.");
}
