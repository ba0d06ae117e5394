// Books whose files were moved, renamed or carried elsewhere.
#include "test_form.h"

#include "app/file_menu.h"
#include "app/open_book.h"
#include "books/moved_books.h"
#include "common/paths.h"

#include <doctest/doctest.h>

namespace {
std::string Text(int number) {
    return "Book number " + std::to_string(number) + "\n" + NumberedLines(200 + number);
}

struct Moved : TestForm {
    Moved() { Start(); }
    explicit Moved(Moved& earlier) : TestForm(earlier) {}

    // Read to its line 50 and marked at 700.
    void Read(const std::u16string& path, int number) {
        PutBook(path, Text(number));
        OpenBook(form, path);
        View().Select(700, 10);
        Menus().Open(Menu().mBookmark);
        Menus().Click(Menu().mBookmarkNew);
        View().ScrollLineToTop(500);
        form.find.history = {u"lamp"};
    }
    void Move(const std::u16string& from, const std::u16string& to) {
        const std::string bytes = Files().Bytes(from);
        const auto writeNumber = Files().Find(from)->writeNumber;
        Files().Remove(from);
        Files().AddFile(to, bytes).writeNumber = writeNumber;
    }
};
} // namespace

TEST_CASE("moved books: a renamed one is the same book") {
    Moved test;
    test.Read(u"/b/one.txt", 1);
    test.Close();
    test.Move(u"/b/one.txt", u"/b/two.txt");
    Moved next(test);
    REQUIRE(next.Start());
    OpenBook(next.form, u"/b/two.txt");
    CHECK(next.Order() == std::vector<std::u16string>{u"/b/two.txt"});
    CHECK(next.Record(0)[Field::Marks] == u"700,10");
    CHECK(next.form.find.history == std::vector<std::u16string>{u"lamp"});
    CHECK(next.View().FirstVisibleChar() > 400);
    CHECK(next.DataFile().find("/b/one.txt") == std::string::npos); // not even a header
    CHECK(next.DataFile().find("[Default\\/b/two.txt]\r\nText=") != std::string::npos);
}

TEST_CASE("moved books: also while it is shown") {
    Moved test;
    test.Read(u"/b/one.txt", 1);
    test.Move(u"/b/one.txt", u"/c/one.txt");
    OpenBook(test.form, u"/c/one.txt");
    CHECK(test.Order() == std::vector<std::u16string>{u"/c/one.txt"});
    CHECK(test.form.book.path == u"/c/one.txt");
    CHECK(test.Record(0)[Field::Marks] == u"700,10");
    CHECK(test.View().FirstVisibleChar() > 400);
}

TEST_CASE("moved books: a copy is another book, and so is one of two that are gone") {
    Moved test;
    test.Read(u"/b/one.txt", 1);
    SUBCASE("a copy") {
        test.PutBook(u"/c/one.txt", Text(1));
        OpenBook(test.form, u"/c/one.txt");
        CHECK(test.Order().size() == 2);
    }
    SUBCASE("two with the same text") {
        test.Read(u"/b/same.txt", 1);
        test.Read(u"/b/other.txt", 3);
        test.Move(u"/b/one.txt", u"/c/one.txt");
        test.Files().Remove(u"/b/same.txt");
        OpenBook(test.form, u"/c/one.txt");
        CHECK(test.Order().size() == 4);
    }
    SUBCASE("another text in another place") {
        test.Files().Remove(u"/b/one.txt");
        test.PutBook(u"/c/one.txt", Text(2));
        OpenBook(test.form, u"/c/one.txt");
        CHECK(test.Order().size() == 2);
    }
    CHECK(test.Record(0)[Field::Marks] == u"");
}

TEST_CASE("moved books: a folder comes back whole when the File menu opens") {
    Moved test;
    for (int i = 1; i <= 4; ++i)
        test.Read(u"/b/shelf/book " + std::u16string(1, static_cast<char16_t>(u'0' + i)) + u".txt",
                  i);
    test.Close();
    for (int i = 1; i <= 4; ++i) {
        const std::u16string name =
            u"/book " + std::u16string(1, static_cast<char16_t>(u'0' + i)) + u".txt";
        test.Move(u"/b/shelf" + name, u"/new/shelf" + name);
    }
    test.Files().AddFile(u"/new/shelf/book 3.txt", "Another book has taken this name meanwhile.");
    Moved next(test);
    REQUIRE(next.Start());
    OpenBook(next.form, u"/new/shelf/book 2.txt");
    mFile_Click(next.form, 0);
    CHECK(next.Order() ==
          std::vector<std::u16string>{u"/new/shelf/book 2.txt", u"/new/shelf/book 4.txt",
                                      u"/b/shelf/book 3.txt", u"/new/shelf/book 1.txt"});
    CHECK(next.Menu().mFileList[1].enabled);
    CHECK(next.Menu().mFileNonFound[0].enabled); // of the third
}

TEST_CASE("moved books: paths of both systems") {
    const auto after = [](std::u16string_view from, std::u16string_view to,
                          std::u16string_view path) {
        return PathAfter(MoveOf(FolderOf(from), FolderOf(to)), path);
    };
    CHECK(after(u"E:\\N\\Norvaset.dat", u"F:\\N\\Norvaset.dat", u"E:\\books\\a.txt") ==
          u"F:\\books\\a.txt");
    CHECK(after(u"E:\\N\\Norvaset.dat", u"/media/stick/N/Norvaset.dat", u"E:\\books\\x y\\a.txt") ==
          u"/media/stick/books/x y/a.txt");
    CHECK(after(u"/media/stick/N/Norvaset.dat", u"E:\\N\\Norvaset.dat",
                u"/media/stick/books/a.txt") == u"E:\\books\\a.txt");
    CHECK(after(u"/a/N/Norvaset.dat", u"/b/N/Norvaset.dat", u"/home/x.txt") == u"");
    CHECK(after(u"/a/N/Norvaset.dat", u"/b/N/Norvaset.dat", u"/ab/x.txt") == u"");
    CHECK(after(u"/a/b\\c/x", u"/a/d/x", u"/a/b\\c/y") == u"/a/d/y");
    CHECK(after(u"", u"/a/x", u"/b") == u"/a/b");
}

TEST_CASE("moved books: a data file carried elsewhere finds the books beside it") {
    constexpr const char* rest =
        "2026:01:31:22:15:09=0=Serif=14=0=0=0=0=0=1=0=0=16777215=300=5==700,9\r\n";
    TestForm test;
    test.PutBook(u"/books/one.txt", Text(1));
    test.PutDataFile("[Default]\r\nDataFile=E:\\app\\Norvaset.dat\r\n[Default\\mFileList]\r\n"
                     "E:\\books\\one.txt=" +
                     std::string(rest) + "C:\\home\\two.txt=" + rest +
                     "[Default\\E:\\books\\one.txt]\r\nHistFind=lamp\r\n");
    REQUIRE(test.Start());
    CHECK(test.Order() == std::vector<std::u16string>{u"/books/one.txt", u"C:\\home\\two.txt"});
    CHECK(test.form.book.path == u"/books/one.txt");
    CHECK(test.form.find.history == std::vector<std::u16string>{u"lamp"});
    CHECK(test.DataFile().find("DataFile=/app/Norvaset.dat") != std::string::npos);
    CHECK(test.DataFile().find("\nE:\\books") == std::string::npos);
}
