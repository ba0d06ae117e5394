#include "test_form.h"

#include "app/book_state.h"
#include "app/open_book.h"

#include "allocations.h"
#include "common/utf.h"

#include <doctest/doctest.h>

TEST_CASE("save: place and look go into the record and the data file") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.form.format.font.name = u"Old Serif";
    test.form.format.font.size = 12.5;
    test.form.format.font.italic = true;
    test.form.format.font.charset = 177;
    test.form.format.textColor = 0x0000FF;
    test.View().SetBackColor(0x00FF00);
    test.View().ScrollLineToTop(100);
    test.Clock().now = {2027, 8, 9, 10, 11, 12};
    SaveBookState(test.form, 0);
    const std::u16string record =
        u"/b/a.txt=2027:08:09:10:11:12=0=Old Serif=12=177=0=1=0=0=1=0=255=65280=" +
        test.Record(0)[Field::LastPos] + u"=2590==";
    CHECK(test.Menu().mFileList[0].tag == record);
    CHECK(LoadSectionLines(*test.form.dataFile, u"Default\\mFileList").at(0) == record);
    CHECK(test.Record(0).Number(Field::LastPos) == test.View().FirstVisibleChar());
}

TEST_CASE("save: a new record gets no place") {
    TestForm test;
    REQUIRE(test.Start());
    for (const char16_t* path : {u"/0", u"/1", u"/2"}) {
        test.PutBook(path, NumberedLines(100));
        OpenBook(test.form, path, BookKind::Text);
    }
    test.View().ScrollLineToTop(50);
    const int added = AddHistoryItem(test.form.history, u"/3==0");
    SaveBookState(test.form, added);
    CHECK(added == 3);
    CHECK(test.Record(3)[Field::LastPos] == u"");
    CHECK(test.Record(3)[Field::FontName] == u"Plain");
}

TEST_CASE("save: records come out with 18 fields") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n"
                     "/b/a.txt=2021:1:1:1:1:1=0=Serif=14\r\n"
                     "/b/b.txt=1=0=3=4=5=6=7=8=9=10=11=12=13=14=15=16=17=18=19\r\n");
    test.PutBook(u"/b/a.txt");
    test.PutBook(u"/b/b.txt");
    REQUIRE(test.Start());
    SaveBookState(test.form, 0);
    test.Menus().Click(test.Menu().mFileList, 1);
    SaveBookState(test.form, 0);
    const auto lines = LoadSectionLines(*test.form.dataFile, u"A\\mFileList");
    REQUIRE(lines.size() == 2);
    for (const auto& line : lines)
        CHECK(std::count(line.begin(), line.end(), u'=') == 17);
    CHECK(test.Record(0)[Field::Title] == u"16");
    CHECK(test.Record(1)[Field::FontName] == u"Serif");
}

TEST_CASE("save: an HTML record keeps what only the HTML view knows") {
    TestForm test;
    test.PutBook(u"/b/a.txt");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    // As if the page were still loading: only time, charset and background are taken.
    test.Menu().mFileList[0].tag = u"/b/p.htm=old=2=Web=-2=0=0=0=0=0=1=0=5=6=1200=9=Page=1,2";
    test.form.book.path = u"/b/p.htm";
    test.form.format.font.charset = 204;
    test.View().SetBackColor(7);
    SaveBookState(test.form, 0);
    CHECK(test.Menu().mFileList[0].tag ==
          u"/b/p.htm=2026:01:02:03:04:05=2=Web=-2=204=0=0=0=0=1=0=5=7=1200=9=Page=1,2");
}

TEST_CASE("save: nothing is saved while no book is shown") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/gone.txt=2021:1:1:1:1:1=0\r\n");
    REQUIRE(test.Start());
    const std::string before = test.DataFile();
    test.Timer().Tick(60);
    CHECK(test.DataFile() == before);
}

TEST_CASE("save: a failing disk leaves the old data file, and the next save brings it up to date") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(100));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    const std::string before = test.DataFile();
    test.Files().failReplace = true;
    test.View().ScrollLineToTop(80);
    test.Timer().Tick(60);
    CHECK(test.DataFile() == before);
    test.Files().failReplace = false;
    test.Timer().Tick(60);
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.View().FirstVisibleChar() == test.View().FirstVisibleChar());
}

TEST_CASE("save: the data file is as it was when a book is left and opened again without reading") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.View().ScrollLineToTop(700);
    test.Close();
    const std::string left = test.DataFile();
    TestForm second(test);
    REQUIRE(second.Start());
    CHECK(second.View().FirstVisibleChar() == test.View().FirstVisibleChar());
    second.Close();
    CHECK(second.DataFile() == left);
}

TEST_CASE("save: the clock's save is one write, and costs the same for any number of books") {
    const auto savedAmong = [](int books) {
        TestForm test;
        std::string list = "[Default\\mFileList]\r\n";
        for (int i = 0; i < books; ++i) {
            const std::string path = "/b/volume " + std::to_string(i) + ".txt";
            test.PutBook(Utf8ToUtf16(path));
            list += path + "=2026:01:31:22:15:09=0=Serif=14=0=0=0=0=0=1=0=0=16777215=3=18==1,5\r\n";
        }
        test.PutDataFile(list);
        REQUIRE(test.Start());
        test.Timer().Tick(60); // of which the last one saves
        NoneFiles& files = test.Files();
        files.replaceCalls.clear();
        files.readCalls.clear();
        files.existsCalls = files.versionCalls = 0;
        test.Clock().Advance(std::chrono::minutes(1)); // which the record keeps
        const AllocationCounter counter;
        SaveBookState(test.form, 0);
        CHECK(files.replaceCalls.size() == 1);
        CHECK(files.readCalls.empty());
        CHECK(files.existsCalls == 0);
        CHECK(files.versionCalls < 20);
        return counter.Counts().count;
    };
    const std::size_t few = savedAmong(50);
    CHECK(savedAmong(5000) <= few + 10);
}
