// Places of the shown text when its file has been changed by another program.
#include "places_form.h"

#include "app/book_state.h"
#include "app/open_book.h"
#include "app/view_menu.h"

#include <doctest/doctest.h>

TEST_CASE("places: the words around them stand in the book's own section") {
    Places test;
    test.Define(5000);
    test.View().ScrollLineToTop(9000);
    SaveBookState(test.form, 0);
    const std::u16string section = test.Section();
    CHECK(section.find(u"\nText=") != section.npos);
    CHECK(section.find(u"\nMark-5000=") != section.npos);
    CHECK(section.find(u"\nPlace=") != section.npos);
    CHECK(section.find(u"\nFile=") != section.npos);
}

TEST_CASE("places: Refresh finds them in an edited text") {
    Places test;
    test.Define(5000);
    test.Define(12000);
    test.View().ScrollLineToTop(9000);
    const std::u16string top = test.TextAt(test.View().FirstVisibleChar());
    const std::u16string first = test.TextAt(5000), second = test.TextAt(12000);
    test.Put(test.text.substr(0, 2000) + added + test.text.substr(2000));
    test.Refresh();
    CHECK(test.Mark(0) == 5000 + static_cast<TextPos>(added.size()));
    CHECK(test.TextAt(test.Mark(0)) == first);
    CHECK(test.TextAt(test.Mark(1)) == second);
    const TextPos topNow = test.View().FirstVisibleChar();
    CHECK(test.TextAt(topNow, 200).find(top.substr(0, 8)) != std::u16string::npos);
    CHECK(test.Menu().mBookmarkList[0].caption.substr(0, 2) != u"? ");
}

TEST_CASE("places: found when the program starts again") {
    Places test;
    test.Define(12000);
    const std::u16string words = test.TextAt(12000);
    test.Close();
    test.Put(added + test.text);
    Places next(test);
    REQUIRE(next.Start());
    CHECK(next.TextAt(next.Mark(0)) == words);
    CHECK(next.Record(0)[Field::Marks] == u"12060,10");
    SUBCASE("and kept when that ends") {
        next.Close();
        Places third(next);
        REQUIRE(third.Start());
        CHECK(third.TextAt(third.Mark(0)) == words);
    }
    SUBCASE("also after more than one change") {
        next.Put(test.text.substr(3000));
        next.Refresh();
        CHECK(next.TextAt(next.Mark(0)) == words);
    }
}

TEST_CASE("places: a book that did not change costs no look at its text") {
    Places test;
    test.Define(5000);
    test.Close();
    Places next(test);
    REQUIRE(next.Start());
    CHECK(next.View().visits == 0);
}

TEST_CASE("places: only the time of the file has changed") {
    Places test;
    test.Define(5000);
    test.Put(test.text);
    test.Refresh();
    CHECK(test.Mark(0) == 5000);
    test.Close();
    Places next(test);
    REQUIRE(next.Start());
    CHECK(next.View().visits == 0); // which is known by now
}

TEST_CASE("places: another encoding and other line ends") {
    Places test;
    test.Define(5000);
    test.Close();
    std::string utf16 = "\xFF\xFE";
    for (const char16_t unit : test.text) {
        if (unit == u'\n') utf16 += std::string("\r\0", 2);
        utf16 += static_cast<char>(unit & 0xFF);
        utf16 += static_cast<char>(unit >> 8);
    }
    test.Files().EditInPlace(Places::path, utf16);
    Places next(test);
    REQUIRE(next.Start());
    CHECK(next.Mark(0) == 5000);
    CHECK(next.TextAt(5000) == test.TextAt(5000));
}

TEST_CASE("places: rich text by the same name") {
    Places test;
    const std::u16string english = u"He had gone there at seven. ";
    std::u16string text;
    for (int i = 0; i < 200; ++i)
        text +=
            u"Evening number " + Utf8ToUtf16(std::to_string(i * 7919)) + u", " + english + u"\n";
    test.Put(text);
    test.Refresh();
    test.Define(4004);
    const std::u16string words = test.TextAt(4004);
    std::string rich = "{\\rtf1\\ansi{\\fonttbl{\\f0 Serif;}}{\\b A title of its own}\\par ";
    for (const char16_t unit : text)
        rich += unit == u'\n' ? std::string("\\par ") : std::string(1, static_cast<char>(unit));
    test.Files().EditInPlace(Places::path, rich + "}");
    test.Refresh();
    CHECK(test.TextAt(test.Mark(0)) == words);
    CHECK(test.Mark(0) != 4004);
}

TEST_CASE("places: one whose words have gone is uncertain until they come back") {
    Places test;
    test.Define(5000);
    test.Define(12000);
    const std::u16string cut = test.text.substr(0, 4000) + test.text.substr(7000);
    test.Put(cut);
    test.Refresh();
    REQUIRE(test.Menu().mBookmarkList.Count() == 2);
    CHECK(test.Menu().mBookmarkList[0].caption.substr(0, 2) == u"? ");
    CHECK(test.Menu().mBookmarkDeleteList[0].caption.substr(0, 2) == u"? ");
    CHECK(test.Menu().mBookmarkList[1].caption.substr(0, 2) != u"? ");
    CHECK(test.Mark(1) == 9000);
    test.Menus().Open(test.Menu().mBookmark);
    CHECK(test.Menu().mBookmarkList[0].caption.substr(0, 3) != u"? ?");

    test.Close();
    Places next(test);
    REQUIRE(next.Start());
    CHECK(next.Menu().mBookmarkList[0].caption.substr(0, 2) == u"? ");
    SUBCASE("in the file") {
        next.Put(test.text);
        next.Refresh();
        CHECK(next.Mark(0) == 5000);
        CHECK(next.Menu().mBookmarkList[0].caption.substr(0, 2) != u"? ");
    }
    SUBCASE("or the reader marks the place anew") {
        next.Define(next.Mark(0));
        CHECK(next.Menu().mBookmarkList[0].caption.substr(0, 2) != u"? ");
    }
}

TEST_CASE("places: no bookmark is dropped when nothing is left of the book") {
    Places test;
    for (int i = 1; i <= 5; ++i)
        test.Define(i * 3000);
    test.Put(u"Nothing.");
    test.Refresh();
    CHECK(test.Menu().mBookmarkList.Count() == 5);
    test.Put(test.text);
    test.Refresh();
    for (int i = 1; i <= 5; ++i)
        CHECK(test.Mark(i - 1) == i * 3000);
}

TEST_CASE("places: those of a record from an older version stay as they are") {
    TestForm test;
    test.PutBook(u"/b/book.txt", Utf16ToUtf8(BookText()));
    test.PutDataFile("[Default\\mFileList]\r\n"
                     "/b/"
                     "book.txt=2026:01:31:22:15:09=0=Serif=14=0=0=0=0=0=1=0=0=16777215=900=5==3000,"
                     "9|6000,9\r\n");
    REQUIRE(test.Start());
    CHECK(test.Record(0)[Field::Marks] == u"3000,9|6000,9");
    CHECK(test.View().SelStart() == 900);
    test.Close();
    CHECK(test.DataFile().find("Mark-3000=") != std::string::npos);
}

TEST_CASE("places: a section that was damaged by hand does no harm") {
    for (const std::string_view lines :
         {"Text=\r\nFile=\r\nPlace=\r\nMark-=\r\n",
          "Text=5,zz\r\nFile=,,\r\nPlace=|?\r\nMark-x=|||\r\n",
          "Text=-7,0123456789abcdef\r\nFile=99999999999999999999999,-4\r\nPlace=99999999999,a|b\r\n"
          "Mark--5=a|b|?\r\nMark-3000=no place\r\n"}) {
        CAPTURE(std::string(lines));
        TestForm test;
        test.PutBook(u"/b/book.txt", Utf16ToUtf8(BookText()));
        test.PutDataFile(
            "[Default\\mFileList]\r\n/b/book.txt=2026:01:31:22:15:09=0=Serif=14=0=0=0=0=0=1=0"
            "=0=16777215=900=5==3000,9\r\n[Default\\/b/book.txt]\r\n" +
            std::string(lines));
        REQUIRE(test.Start());
        CHECK(test.Menu().mBookmarkList.Count() == 1);
        test.Close();
        TestForm next(test);
        REQUIRE(next.Start());
        CHECK(next.Menu().mBookmarkList.Count() == 1);
    }
}

TEST_CASE("places: a thousand bookmarks take a few hundred KB, written once") {
    Places test;
    std::u16string marks;
    for (int i = 1; i <= 1000; ++i)
        marks += Utf8ToUtf16(std::to_string(i * 18)) + u",5|";
    BookRecord record = test.Record(0);
    record[Field::Marks] = marks;
    test.form.history.SetRecord(0, record);
    FillBookmarks(test.form.bookmarks, marks);
    SaveBookState(test.form, 0);
    CHECK(test.DataFile().size() < 400'000);
    const std::size_t writes = test.Files().replaceCalls.size();
    SaveBookState(test.form, 0);
    CHECK(test.Files().replaceCalls.size() <= writes + 1);
}
