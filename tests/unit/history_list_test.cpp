#include "common/utf.h"
#include "test_form.h"

#include "app/open_book.h"
#include "books/history_caption.h"

#include <doctest/doctest.h>

namespace {
std::u16string CaptionOf(const std::u16string& record) {
    DateNames names;
    names.ShortMonthNames.fill(u"Jul ");
    return HistoryCaption(BookRecord::Parse(record), names, {2026, 11, 21});
}

std::u16string WithTitle(std::size_t length) {
    return u"/b=" + std::u16string(15, u'=') + std::u16string(length, u'x');
}

std::string ThreeBooks() {
    return "[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n"
           "/b/0.txt=2021:07:04:18:05:30=0\r\n/b/1.txt=2021:07:04:18:05:30=0\r\n"
           "/b/2.txt=2021:07:04:18:05:30=0\r\n";
}
} // namespace

TEST_CASE("record: any number of fields becomes 18") {
    CHECK(BookRecord::Parse(u"/b=1=2").ToText() == u"/b=1=2" + std::u16string(15, u'='));
    const BookRecord longOne =
        BookRecord::Parse(u"0=1=2=3=4=5=6=7=8=9=10=11=12=13=14=15=16=17=18=19");
    CHECK(longOne.ToText() == u"0=1=2=3=4=5=6=7=8=9=10=11=12=13=14=15=16=17");
    CHECK(longOne[Field::Size] == u"15");
    CHECK(longOne[Field::Title] == u"16");
    CHECK(longOne[Field::Marks] == u"17");
    CHECK(BookRecord::Parse(u"").ToText() == std::u16string(17, u'='));
}

TEST_CASE("record: a key is the path with = as *") {
    const std::pair<const char16_t*, const char16_t*> table[] = {
        {u"/a=b/c=.txt", u"/a*b/c*.txt"}, {u"=", u"*"}, {u"/b/a.txt", u"/b/a.txt"}, {u"", u""}};
    for (const auto& [path, key] : table) {
        CHECK(PathToKey(path) == key);
        CHECK(KeyToPath(key) == path);
    }
}

TEST_CASE("history caption: date, size, path and title") {
    CHECK(CaptionOf(u"/b=2021:7:4:18:5:30=0=============125952=The &#233;nd=") ==
          u"[2021 Jul  04] (123K) /b\t= The \u00E9nd");
    const std::pair<const char16_t*, const char16_t*> sizes[] = {
        {u"2048", u"(2K) /b"}, {u"511", u"(0K) /b"}, {u"2560", u"(2K) /b"}, {u"3584", u"(4K) /b"},
        {u"513", u"(1K) /b"},  {u"0", u"(0K) /b"},   {u"", u"/b"},
    };
    for (const auto& [size, caption] : sizes)
        CHECK(CaptionOf(u"/b==0=============" + std::u16string(size) + u"==") == caption);
}

TEST_CASE("history caption: shown with path and title each in its own direction") {
    const struct {
        const char16_t *caption, *shown;
    } rows[] = {
        {u"(2K) C:\\Books\\story.txt\t= The Title", u""}, // as it is
        {u"/home/a=b/\u00E9.txt", u""},
        {u"(2K) /b/a.txt\t= \u05E9\u05DC\u05D5\u05DD!",
         u"(2K) /b/a.txt\t= \u202B\u05E9\u05DC\u05D5\u05DD!\u202C"},
        {u"/\u05D0/\u05D1.txt", u"\u200E/\u05D0/\u200E\u05D1.txt"},
        {u"\\\u0628\t= Yes, \u0628", u"\u200E\\\u0628\t= Yes, \u0628"},
        {u"/\u05D0\t\u05D1", u"\u200E/\u05D0\t\u05D1"}, // a tab in a name
        {u"[2026 \u05E0\u05D5\u05D1  23] (2K) /b/a.txt",
         u"[2026 \u05E0\u05D5\u05D1\u200E  23] (2K) /b/a.txt"},
        {u"[2026 Nov  23] /\u05D0.txt", u"[2026 Nov  23]\u200E /\u05D0.txt"},
        {u"[\u05D0", u"\u200E[\u05D0"}, // no date
        {u"/b\t= 12, \uFE8F.", u"/b\t= \u202B12, \uFE8F.\u202C"},
    };
    for (const auto& row : rows)
        CHECK(Utf16ToUtf8(DirectedCaption(row.caption)) == Utf16ToUtf8(row.shown));
}

TEST_CASE("history caption: what is shown follows the record, and the caption stays exact") {
    TestForm test;
    test.PutBook(u"/\u05D1/\u05D0.txt");
    test.PutBook(u"/b/b.txt");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/\u05D1/\u05D0.txt");
    OpenBook(test.form, u"/b/b.txt");
    CHECK(test.Menu().mFileList[1].caption.ends_with(u"/\u05D1/\u05D0.txt"));
    CHECK(test.Menu().mFileList[1].ShownCaption().ends_with(u"/\u05D1/\u200E\u05D0.txt"));
    CHECK(test.Menu().mFileRemoveList[1].ShownCaption().ends_with(u"/\u05D1/\u200E\u05D0.txt"));
    CHECK(test.Menu().mFileList[0].ShownCaption() == test.Menu().mFileList[0].caption);
    OpenBook(test.form, u"/\u05D1/\u05D0.txt");
    CHECK(test.Menu().mFileList[1].ShownCaption() == test.Menu().mFileList[1].caption);
}

TEST_CASE("history caption: a malformed access time shows today") {
    CHECK(CaptionOf(u"/b=soon") == u"[2026 Jul  21] /b");
}

TEST_CASE("history caption: a title is cut to 40 only above 41") {
    CHECK(CaptionOf(WithTitle(41)) == u"/b\t= " + std::u16string(41, u'x'));
    CHECK(CaptionOf(WithTitle(42)) == u"/b\t= " + std::u16string(40, u'x'));
    CHECK(CaptionOf(WithTitle(60)) == u"/b\t= " + std::u16string(40, u'x'));
}

TEST_CASE("history: a missing book is greyed and the File menu offers to remove it") {
    TestForm test;
    test.PutDataFile(ThreeBooks());
    test.PutBook(u"/b/0.txt");
    test.PutBook(u"/b/2.txt");
    REQUIRE(test.Start());
    CHECK_FALSE(test.Menu().mFileList[1].enabled);
    CHECK(test.Menu().mFileList[2].enabled);
    test.Menus().Open(test.Menu().mFile);
    CHECK(test.Menu().mFileNonFound[0].enabled);
    test.Menus().Click(test.Menu().mFileNonFound);
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/0.txt", u"/b/2.txt"});
    CHECK(LoadSectionLines(*test.form.dataFile, u"A\\mFileList").size() == 2);
    test.Menus().Open(test.Menu().mFile);
    CHECK_FALSE(test.Menu().mFileNonFound[0].enabled);
}

TEST_CASE("history: an empty list hides its item and separator and disables the remove submenu") {
    TestForm test;
    test.PutBook(u"/b/0.txt");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/0.txt");
    REQUIRE(test.Menu().mFileList[0].visible);
    REQUIRE(test.Menu().mFileSeparator[0].visible);
    REQUIRE(test.Menu().mFileRemove[0].enabled);
    test.Menus().Click(test.Menu().mFileRemoveList, 0);
    CHECK_FALSE(test.Menu().mFileList[0].visible);
    CHECK_FALSE(test.Menu().mFileSeparator[0].visible);
    CHECK_FALSE(test.Menu().mFileRemove[0].enabled);
    test.Menus().Open(test.Menu().mFile);
    CHECK_FALSE(test.Menu().mFileNonFound[0].enabled);
    CHECK_FALSE(test.Menu().mFileEdit[0].enabled);
}

TEST_CASE("history: removing books, the last one and the shown one") {
    TestForm test;
    test.PutDataFile(ThreeBooks());
    for (const char16_t* path : {u"/b/0.txt", u"/b/1.txt", u"/b/2.txt"})
        test.PutBook(path, "text");
    REQUIRE(test.Start());
    test.Menus().Click(test.Menu().mFileRemoveList, 1);
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/0.txt", u"/b/2.txt"});
    CHECK(test.Menu().mFileRemoveList[1].caption == u"/b/2.txt");
    const int loads = test.View().loads;
    test.Menus().Click(test.Menu().mFileRemoveList, 0); // the shown one: its text stays
    CHECK(test.View().loads == loads);
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/2.txt"});
    CHECK(test.Menu().mFileList[0].checked);
    test.Menus().Click(test.Menu().mFileRemoveList, 0);
    CHECK_FALSE(test.Menu().mFileList[0].visible);
    CHECK_FALSE(test.Menu().mFileSeparator[0].visible);
    CHECK_FALSE(test.Menu().mFileRemove[0].enabled);
}

TEST_CASE("history: the neighbour of a shown book taken off the list keeps its record") {
    const std::string neighbour = "/b/1.txt=2021:07:04:18:05:30=0=Serif=14=0=0=0=0=0=1=0=0=16777215"
                                  "=500=2590=Caption=100,6";
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n"
                     "/b/0.txt=2021:07:04:18:05:30=0=Plain=10=0=0=0=0=0=1=0=0=16777215=0=2590==20,6"
                     "\r\n" +
                     neighbour + "\r\n");
    test.PutBook(u"/b/0.txt", NumberedLines(300));
    test.PutBook(u"/b/1.txt", NumberedLines(300));
    REQUIRE(test.Start());
    MenuTree& menu = test.Menu();
    SUBCASE("by the reader") {
        test.Menus().Click(menu.mFileRemoveList, 0);
    }
    SUBCASE("because its file has gone") {
        test.Files().Remove(u"/b/0.txt");
        SetHistoryCaption(test.form.history, 0);
        test.Menus().Open(menu.mFile);
        test.Menus().Click(menu.mFileNonFound);
    }
    REQUIRE(test.Order() == std::vector<std::u16string>{u"/b/1.txt"});
    test.View().Select(900, 6);
    test.View().ScrollLineToTop(900);
    test.Menus().Open(menu.mView);
    test.Menus().Click(menu.mViewFontSize, 0);
    test.Menus().Open(menu.mEdit);
    CHECK_FALSE(menu.mEditTitle[0].enabled);
    test.Menus().Open(menu.mBookmark);
    CHECK_FALSE(menu.mBookmarkNew[0].enabled);
    test.Menus().Click(menu.mBookmarkDeleteList, 0);
    test.Menus().Click(menu.mOptionsTitle, 1);
    CHECK(test.Window().title == u"Norvaset [A] - /b/0.txt");
    test.Timer().Tick(60);
    test.Close();
    CHECK(test.DataFile().find(neighbour + "\r\n") != std::string::npos);
}

TEST_CASE("history: the editor is offered for a known kind whose editor and book exist") {
    TestForm test;
    test.PutBook(u"/b/a book.txt");
    test.PutBook(u"/b/a.log");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a book.txt");
    test.Menus().Open(test.Menu().mFile);
    CHECK_FALSE(test.Menu().mFileEdit[0].enabled); // no such program
    test.PutBook(u"/bin/plain-editor");
    test.Menus().Open(test.Menu().mFile);
    CHECK(test.Menu().mFileEdit[0].enabled);
    test.Files().Remove(u"/b/a book.txt");
    test.Menus().Open(test.Menu().mFile);
    CHECK_FALSE(test.Menu().mFileEdit[0].enabled); // no such book
    test.PutBook(u"/b/a book.txt");
    test.Menus().Open(test.Menu().mFile);
    test.Menus().Click(test.Menu().mFileEdit);
    REQUIRE(test.Shell().started.size() == 1);
    CHECK(test.Shell().started[0].second == u"/b/a book.txt");
    OpenBook(test.form, u"/b/a.log");
    test.Menus().Open(test.Menu().mFile);
    CHECK_FALSE(test.Menu().mFileEdit[0].enabled); // a kind without an editor
}

TEST_CASE("history: two books whose names differ only in case stay two") {
    TestForm test;
    test.PutBook(u"/b/Book.txt", NumberedLines(300));
    test.PutBook(u"/b/book.txt", NumberedLines(300));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/Book.txt");
    OpenBook(test.form, u"/b/book.txt");
    test.View().ScrollLineToTop(700);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.Order() == std::vector<std::u16string>{u"/b/book.txt", u"/b/Book.txt"});
    CHECK(next.Record(0)[Field::LastPos] != u"0");
    CHECK(next.Record(1)[Field::LastPos] == u"0");
}

TEST_CASE("history: two books whose names differ only in case keep their own marks and searches") {
    TestForm test;
    test.PutBook(u"/b/Book.txt", "one\nThe first book has this text.\nthree\n");
    test.PutBook(u"/b/book.txt", "1\n2\nThe other one, which is longer, has that.\n4\n");
    REQUIRE(test.Start());
    const auto mark = [&](const std::u16string& path, TextPos position) {
        OpenBook(test.form, path);
        test.View().Select(position, 0);
        test.Menus().Open(test.Menu().mBookmark);
        test.Menus().Click(test.Menu().mBookmarkNew);
    };
    mark(u"/b/Book.txt", 8);
    mark(u"/b/book.txt", 4);
    for (int i = 0; i < 3; ++i) {
        OpenBook(test.form, u"/b/Book.txt");
        CHECK(test.Record(0)[Field::Marks] == u"8,81");
        OpenBook(test.form, u"/b/book.txt");
        CHECK(test.Record(0)[Field::Marks] == u"4,81");
    }
}

TEST_CASE("history: a hand-edited section keeps every line that names a book") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/only-a-path\r\n"
                     "; a comment\r\n/b/five=2021:1:1:1:1:1=0=Serif=14\r\n"
                     "/b/twenty=1=2=3=4=5=6=7=8=9=10=11=12=13=14=15=16=17=18=19\r\n");
    REQUIRE(test.Start());
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/only-a-path", u"/b/five", u"/b/twenty"});
    test.PutBook(u"/b/new.txt");
    OpenBook(test.form, u"/b/new.txt"); // which writes the list
    test.Close();
    for (const char* line : {"\r\n/b/only-a-path=\r\n", "\r\n; a comment\r\n",
                             "\r\n/b/new.txt=2026", "\r\n/b/five=2021:1:1:1:1:1=0=Serif=14\r\n",
                             "\r\n/b/twenty=1=2=3=4=5=6=7=8=9=10=11=12=13=14=15=16=17=18=19\r\n"}) {
        CAPTURE(std::string(line));
        CHECK(test.DataFile().find(line) != std::string::npos);
    }
}

TEST_CASE("history: after the last book is removed, saving leaves no nameless record behind") {
    TestForm test;
    test.PutBook(u"/b/0.txt");
    test.PutBook(u"/b/1.txt");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/0.txt");
    test.Menus().Click(test.Menu().mFileRemoveList, 0);
    test.Timer().Tick(60);
    CHECK(test.form.history.Count() == 0);
    CHECK(test.DataFile().find("\n=") == std::string::npos);
    OpenBook(test.form, u"/b/1.txt");
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/1.txt"});
}

TEST_CASE("history: the only book, missing, is removed without a word") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/gone.txt=1=0\r\n");
    REQUIRE(test.Start());
    test.Menus().Click(test.Menu().mFileRemoveList, 0);
    CHECK(test.Dialogs().messages.empty());
    CHECK(test.Order().empty());
    CHECK(test.DataFile().find("/gone.txt") == std::string::npos);
}

TEST_CASE("history: the section of a book whose name differs from another's in case") {
    TestForm test;
    REQUIRE(test.Start());
    const History& history = test.form.history;
    const auto section = [&](const std::u16string& key) { return BookSection(history, u"A", key); };
    AddHistoryItem(test.form.history, u"/b/book.txt=2021:07:04:18:05:30=0");
    AddHistoryItem(test.form.history, u"/b/Book.txt.old=2021:07:04:18:05:30=0");
    CHECK(section(u"/b/Book.txt") == u"A\\/b/Book.txt\\43e9dd42");
    CHECK(section(u"/b/book.txt") == u"A\\/b/book.txt");
    CHECK(section(u"/b/Book.tx") == u"A\\/b/Book.tx");
    CHECK(section(u"/b/Book.txt.") == u"A\\/b/Book.txt.");
    AddHistoryItem(test.form.history, u"/b/BOOK.TXT"); // a record without fields
    CHECK(section(u"/b/book.txt").size() == std::u16string(u"A\\/b/book.txt\\01234567").size());
}
