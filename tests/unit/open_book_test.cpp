// Opening books: by the dialog, by the list, by dropping them.
#include "test_form.h"

#include "app/file_menu.h"
#include "app/open_book.h"
#include "books/book_kind.h"
#include "shell/initial_folder.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <utility>

namespace {
void OpenByDialog(TestForm& test, const std::u16string& path, int filterIndex) {
    test.Dialogs().openAnswer = {DialogResult::Ok, path, filterIndex};
    test.Menus().Click(test.Menu().mFileOpen);
}
} // namespace

TEST_CASE("open: rich text in capitals is recognised by its content, for All Files only") {
    TestForm test;
    test.PutBook(u"/b/a.txt", "{\\RTF1 Hello}");
    REQUIRE(test.Start());
    OpenByDialog(test, u"/b/a.txt", 4);
    CHECK(test.Record(0)[Field::Filter] == u"1");
    CHECK(test.View().TextRange(0, 99) == u"Hello");
    REQUIRE(test.Dialogs().openRequests.size() == 1);
    CHECK(test.Dialogs().openRequests[0].title == u"Open File");
    CHECK(test.Dialogs().openRequests[0].filter == bookFilter);
    CHECK(test.Dialogs().openRequests[0].listed == ListedPatterns());
    CHECK(test.Dialogs().openRequests[0].initialFolder == u"/");
    test.PutBook(u"/b/b.log");
    OpenByDialog(test, u"/b/b.log", 1);
    CHECK(test.Record(0)[Field::Filter] == u"0"); // the filter says so
    CHECK(test.Dialogs().openRequests[1].initialFolder == u"/b");
}

namespace {
// A book scrolled to its middle, in which what a test does should leave everything as it is.
struct Undisturbed : TestForm {
    Undisturbed() {
        PutBook(u"/b/a.txt", NumberedLines(300));
        REQUIRE(Start());
        OpenBook(form, u"/b/a.txt");
        View().ScrollLineToTop(900);
        View().Select(910, 5);
        loads_ = View().loads;
        writes_ = Files().replaceCalls.size();
        top_ = View().FirstVisibleChar();
    }
    void CheckUnchanged() {
        CHECK(View().loads == loads_);
        CHECK(Files().replaceCalls.size() == writes_);
        CHECK(View().FirstVisibleChar() == top_);
        CHECK(View().SelStart() == 910);
        CHECK(View().SelLength() == 5);
        CHECK(Window().title == u"Norvaset [Default] - /b/a.txt");
        CHECK(Order() == std::vector<std::u16string>{u"/b/a.txt"});
        CHECK(Dialogs().messages.empty());
    }

  private:
    int loads_ = 0;
    std::size_t writes_ = 0;
    TextPos top_ = 0;
};
} // namespace

TEST_CASE("open: a cancelled dialog changes nothing") {
    Undisturbed test;
    test.PutBook(u"/b/b.txt");
    test.Dialogs().openAnswer = {DialogResult::Cancel, u"/b/b.txt", 1};
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.Dialogs().openRequests.size() == 1);
    test.CheckUnchanged();
}

TEST_CASE("open: files dropped while a dialog is open wait for its end, the first of each drop") {
    TestForm test;
    for (const char16_t* path : {u"/b/a.txt", u"/b/b.txt", u"/b/c.txt"})
        test.PutBook(path);
    REQUIRE(test.Start());
    test.Dialogs().whileOpen = [&] {
        test.View().onFilesDropped({u"/b/a.txt", u"/b/b.txt"});
        test.View().onFilesDropped({u"/b/c.txt"});
        test.View().onFilesDropped({});
        CHECK(test.form.history.Count() == 0);
    };
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.Window().title == u"Norvaset [Default] - /b/c.txt");
    REQUIRE(test.form.history.Count() == 2);
    CHECK(GetBookPath(test.form.history, 1) == u"/b/a.txt");
}

TEST_CASE("open: a dropped file of another kind opens in the text view, further ones are left") {
    TestForm test;
    test.PutBook(u"/b/a.log", "a log");
    test.PutBook(u"/b/b.txt");
    REQUIRE(test.Start());
    test.View().onFilesDropped({u"/b/a.log", u"/b/b.txt"});
    CHECK(test.Record(0)[Field::Filter] == u"3");
    CHECK(test.Menu().mFileEdit[0].tag == u"3");
    CHECK(test.View().TextRange(0, 99) == u"a log");
    CHECK(test.Order().size() == 1);
    test.View().onFilesDropped({});
    CHECK(test.Order().size() == 1);
}

TEST_CASE("open: the shown book again does nothing at all") {
    Undisturbed test;
    OpenBook(test.form, u"/b/a.txt");
    test.CheckUnchanged();
    test.View().onFilesDropped({u"/b/a.txt"});
    test.CheckUnchanged();
    test.Menus().Click(test.Menu().mFileList, 0);
    test.CheckUnchanged();
}

TEST_CASE("open: a listed book moves to the top and the place of the one left is not saved") {
    TestForm test;
    for (const char16_t* path : {u"/b/a.txt", u"/b/b.txt"})
        test.PutBook(path, NumberedLines(300));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    OpenBook(test.form, u"/b/b.txt");
    test.View().ScrollLineToTop(500);
    OpenBook(test.form, u"/b/a.txt");
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/a.txt", u"/b/b.txt"});
    CHECK(test.Record(1)[Field::LastPos] == u"");
}

TEST_CASE("open: a new book has its size, the present style, no place, and starts at the top") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    test.PutBook(u"/b/b.txt", "12345");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.View().ScrollLineToTop(500);
    OpenBook(test.form, u"/b/b.txt");
    const BookRecord record = test.Record(0);
    CHECK(record[Field::Size] == u"5");
    CHECK(record[Field::FontName] == u"Plain");
    CHECK(record[Field::FontSize] == u"10");
    CHECK(record[Field::Charset] == u"0");
    CHECK(record[Field::Wrap] == u"1");
    CHECK(record[Field::Align] == u"0");
    CHECK(record[Field::ForeColor] == u"0");
    CHECK(record[Field::BackColor] == u"16777215");
    CHECK(record[Field::LastPos] == u"");
    CHECK(record[Field::Access] == u"2026:01:02:03:04:05");
    CHECK(test.View().FirstVisibleChar() == 0);
    CHECK(test.Record(1)[Field::LastPos] == u"494"); // the book left keeps its place
    CHECK(test.Menu().mBookmark[0].enabled);
}

TEST_CASE("open: history item 3 comes first, the others keep their order") {
    TestForm test;
    REQUIRE(test.Start());
    for (const char16_t* path : {u"/4", u"/3", u"/2", u"/1", u"/0"}) {
        test.PutBook(path);
        OpenBook(test.form, path, BookKind::Text);
    }
    test.Menus().Click(test.Menu().mFileList, 3);
    CHECK(test.Order() == std::vector<std::u16string>{u"/3", u"/0", u"/1", u"/2", u"/4"});
    CHECK(test.Menu().mFileList[0].checked);
    for (int i = 1; i < 5; ++i)
        CHECK_FALSE(test.Menu().mFileList[i].checked);
    TestForm next((test.Close(), test));
    REQUIRE(next.Start());
    CHECK(next.Order() == std::vector<std::u16string>{u"/3", u"/0", u"/1", u"/2", u"/4"});
}

TEST_CASE(
    "open: a book with an equals sign in its name is stored with an asterisk, and added again") {
    TestForm test;
    test.PutBook(u"/b/e=mc2.txt", "energy");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/e=mc2.txt");
    CHECK(test.View().TextRange(0, 6) == u"energy");
    CHECK(test.Menu().mFileList[0].tag.starts_with(u"/b/e*mc2.txt="));
    CHECK(test.Menu().mFileList[0].caption.ends_with(u"/b/e=mc2.txt"));
    CHECK(test.DataFile().find("/b/e*mc2.txt=") != std::string::npos);
    OpenBook(test.form, u"/b/e=mc2.txt");
    CHECK(test.form.history.Count() == 2);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.View().TextRange(0, 6) == u"energy");
}

TEST_CASE("open: what cannot be opened is reported, and nothing changes") {
    TestForm test;
    test.PutBook(u"/b/a.txt", "shown");
    test.PutBook(u"/b/locked.txt");
    test.PutBook(u"/b/huge.txt");
    test.PutBook(u"/b/pipe");
    test.Files().AddFolder(u"/b/folder");
    test.Files().readFailure = {{u"/b/locked.txt", ReadStatus::Denied},
                                {u"/b/huge.txt", ReadStatus::TooLarge},
                                {u"/b/pipe", ReadStatus::NotAFile}};
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    const std::pair<const char16_t*, const char16_t*> table[] = {
        {u"/b/none.txt", u"/b/none.txt\r\nfile not found."},
        {u"", u"\r\nfile not found."},
        {u"/b/folder", u"/b/folder\r\nfile not found."},
        {u"/b/w?.txt", u"Undecipherable file name:\r\n/b/w?.txt\r\n"
                       u"Rename the file before opening in this application."},
        {u"/b/*.txt", u"Undecipherable file name:\r\n/b/*.txt\r\n"
                      u"Rename the file before opening in this application."},
        {u"/b/two\nlines", u"Undecipherable file name:\r\n/b/two\nlines\r\n"
                           u"Rename the file before opening in this application."},
        {u"/b/blank ", u"Undecipherable file name:\r\n/b/blank \r\n"
                       u"Rename the file before opening in this application."},
        {u"/b/locked.txt", u"/b/locked.txt\r\ncannot be read: access is denied."},
        {u"/b/huge.txt", u"/b/huge.txt\r\nis too large: a book may have up to 256 MB."},
        {u"/b/pipe", u"/b/pipe\r\nis not a file that can be read as a book."},
    };
    const std::string before = test.DataFile();
    for (const auto& [path, text] : table) {
        OpenBook(test.form, path);
        REQUIRE_FALSE(test.Dialogs().messages.empty());
        const Message& message = test.Dialogs().messages.back();
        CHECK(message.text == text);
        CHECK(message.title == u"Norvaset Message");
        CHECK(message.icon == MessageIcon::Exclamation);
        CHECK(message.helpButton);
        CHECK(message.helpTopic == "mFileOpen");
    }
    CHECK(test.Dialogs().messages.size() == std::size(table));
    CHECK(test.DataFile() == before);
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/a.txt"});
    CHECK(test.View().TextRange(0, 9) == u"shown");
}

TEST_CASE("open: names that trouble a data file open and come back as themselves") {
    for (const char16_t* path :
         {u"/b/[section].txt", u"/b/;comment.txt", u"/b/a;b.txt", u"/b/\"q\".txt",
          u"/b/\u05D0\u4E2D\U0001F4D6 #&.txt", u"/b/it's.txt"}) {
        TestForm test;
        test.PutBook(path, NumberedLines(300));
        REQUIRE(test.Start());
        OpenBook(test.form, path);
        test.View().ScrollLineToTop(100);
        const TextPos left = test.View().FirstVisibleChar();
        REQUIRE(left > 0);
        test.Close();
        TestForm next(test);
        REQUIRE(next.Start());
        CHECK(next.Order() == std::vector<std::u16string>{path});
        CHECK(next.View().FirstVisibleChar() == left);
    }
}

TEST_CASE("open: a book that vanished while the list still offers it leaves the shown one") {
    TestForm test;
    test.PutBook(u"/b/a.txt", "first");
    test.PutBook(u"/b/b.txt", "second");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    OpenBook(test.form, u"/b/b.txt");
    test.Files().Remove(u"/b/a.txt");
    test.Menus().Click(test.Menu().mFileList, 1);
    CHECK(test.Dialogs().messages.back().text == u"/b/a.txt\r\nfile not found.");
    CHECK(test.View().TextRange(0, 9) == u"second");
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/b.txt", u"/b/a.txt"});
    CHECK_FALSE(test.Menu().mFileList[1].enabled);
}

TEST_CASE("open: an HTML book without an HTML view is reported, and the shown book stays") {
    TestForm test;
    test.form.ports.htmlView.reset();
    test.PutBook(u"/b/a.txt", "shown");
    test.PutBook(u"/b/p.htm", "<html>");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    OpenBook(test.form, u"/b/p.htm");
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text ==
          u"/b/p.htm\r\nThis program has no view for HTML books.");
    CHECK(test.View().TextRange(0, 9) == u"shown");
    CHECK(test.Menu().mFileEdit[0].tag == u"0"); // the kind of the book that stays
}

TEST_CASE("open: a file is looked into once, whichever way its book is opened") {
    TestForm test;
    test.PutBook(u"/b/one.txt", NumberedLines(100));
    test.PutBook(u"/b/two.txt", NumberedLines(200));
    test.PutBook(u"/b/page.htm", "<p>Once upon a time.");
    const auto readings = [](TestForm& form, const std::u16string& path) {
        return std::ranges::count(std::exchange(form.Files().readCalls, {}), path);
    };
    const auto opened = [&](const std::u16string& path) {
        OpenBook(test.form, path);
        return readings(test, path);
    };
    REQUIRE(test.Start());
    CHECK(opened(u"/b/one.txt") == 1);
    CHECK(opened(u"/b/page.htm") == 1);
    CHECK(opened(u"/b/two.txt") == 1);
    CHECK(opened(u"/b/one.txt") == 1); // of the list
    test.Menus().Click(test.Menu().mFileList, 1);
    CHECK(readings(test, u"/b/two.txt") == 1);
    test.Menus().Click(test.Menu().mViewRefresh);
    CHECK(readings(test, u"/b/two.txt") == 1);
    const std::string bytes = test.Files().Bytes(u"/b/two.txt");
    test.Files().Remove(u"/b/two.txt");
    test.PutBook(u"/b/moved.txt", bytes);
    CHECK(opened(u"/b/moved.txt") == 1);
    CHECK(test.Order().size() == 3);
    test.Close();
    readings(test, u"");

    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(readings(next, u"/b/moved.txt") == 1);
    next.Close();
    TestForm withBook(next);
    withBook.form.ports.launch.commandLine = u"/b/one.txt";
    readings(withBook, u"");
    REQUIRE(withBook.Start());
    CHECK(readings(withBook, u"/b/one.txt") == 1);
    CHECK(withBook.form.book.path == u"/b/one.txt");
}

TEST_CASE("open: a dialog's first folder") {
    TestForm test;
    test.Files().AddFolder(u"/b/x");
    CHECK(InitialFolder(test.Files(), u"/b/x/a.txt", u"/", u"/") == u"/b/x");
    CHECK(InitialFolder(test.Files(), u"/b/x/", u"/", u"/") == u"/b/x");
    CHECK(InitialFolder(test.Files(), u"", u"/b", u"/") == u"/b");
    CHECK(InitialFolder(test.Files(), u"/gone/a.txt", u"/b", u"/") == u"/");
}
