// What a record keeps of a book, as it is shown when the book opens.
#include "test_form.h"

#include <doctest/doctest.h>

TEST_CASE("open: the look of a record is shown as set") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/"
                     "a.txt=2021:1:1:1:1:1=0=Serif=14=204=1=0=1=0=0=1="
                     "255=65280=20=9==5,3|30,2\r\n");
    test.PutBook(u"/b/a.txt", NumberedLines(100));
    REQUIRE(test.Start());
    ViewFont font;
    font.name = u"Serif";
    font.size = 14;
    font.charset = 204;
    font.bold = font.underline = true;
    CHECK(test.View().Font() == font);
    CHECK(test.View().TextColor() == 255);
    CHECK(test.View().BackColor() == 65280);
    CHECK(test.View().ShownAlignment() == Alignment::Right);
    CHECK(test.Menu().mViewAlign[1].checked);
    CHECK_FALSE(test.Menu().mViewWordWrap[0].checked);
    CHECK(test.View().RightMargin() == 491520);
    CHECK(test.View().FirstVisibleChar() == 14);
    CHECK(test.View().ShownCursor() == CursorShape::Default);
    REQUIRE(test.Menu().mBookmarkList.Count() == 2);
    CHECK(test.Menu().mBookmarkList[0].caption == u"0 l");
    CHECK(test.Menu().mBookmarkDeleteList[1].caption == test.Menu().mBookmarkList[1].caption);
    CHECK(test.Menu().mBookmark[0].tag == u"-1");
    CHECK(test.Record(0)[Field::Marks] == u"5,3|30,2");
}

TEST_CASE("open: wild values in a record are kept within what can be shown") {
    TestForm test;
    test.PutDataFile(
        "[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/a.txt=x=y==999999999999=-5=x=2=-1=9=9=77="
        "=-1=99999999999=q==|||x,y|-5,-9|1,2,3|0,999999999|\r\n");
    test.PutBook(u"/b/a.txt", "short");
    REQUIRE(test.Start());
    CHECK(test.View().Font().size >= 1);
    CHECK(test.View().Font().size <= 1638);
    CHECK(test.View().Font().charset >= 0);
    CHECK(test.View().TextColor() <= 0xFFFFFF);
    CHECK(test.View().BackColor() <= 0xFFFFFF);
    CHECK(test.View().ShownAlignment() == Alignment::Left);
    CHECK(test.View().TextRange(0, 9) == u"short");
    CHECK(test.View().FirstVisibleChar() == 0);
    for (int mark = 0; mark < test.Menu().mBookmarkList.Count(); ++mark) {
        test.Menus().Click(test.Menu().mBookmarkList, mark);
        CHECK(test.View().SelStart() >= 0);
        CHECK(test.View().SelLength() >= 0);
        CHECK(test.View().SelStart() + test.View().SelLength() <= 5);
    }
    CHECK(test.Menu().mBookmarkList.Count() > 1);
    test.Close();
    CHECK(test.DataFile().find("/b/a.txt=2026:") != std::string::npos);
}

TEST_CASE("open: a record of a path alone shows a readable book") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/a.txt\r\n");
    test.PutBook(u"/b/a.txt", "text");
    REQUIRE(test.Start());
    CHECK(test.View().TextColor() != test.View().BackColor());
    CHECK(test.View().Font().size > 0);
}

TEST_CASE("open: 8-bit text is read in the code page of the book's charset") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/a.txt==0===204\r\n");
    test.PutBook(u"/b/a.txt", "\xCF\xF0\xE8\xE2\xE5\xF2");
    REQUIRE(test.Start());
    CHECK(test.View().TextRange(0, 9) == u"\u041F\u0440\u0438\u0432\u0435\u0442");
}
