// The program on a data file that cannot be read or written for a while.
#include "test_form.h"

#include "app/data_file.h"
#include "app/open_book.h"
#include "common/text.h"
#include "reading/bookmarks.h"

#include <doctest/doctest.h>

namespace {
const std::string stored =
    "[mProfileList]\r\n0=Anna\r\n1=Bert\r\n[fwMain]\r\nmOptionsEditor-1=/bin/w\r\n"
    "[Anna]\r\nLeft=11\r\nTop=12\r\nWidth=613\r\nHeight=414\r\nState=0\r\n"
    "mOptionsTitle=0\r\n[Anna\\mFileList]\r\n"
    "/b/a.txt=2021:07:04:18:05:30=0=Serif=12=0=0=0=0=0=1=0=0=16777215=7=2048=T=5,6\r\n"
    "/b/gone.txt=2021:07:04:18:05:30=0============7=2048==\r\n"
    "[Bert\\mFileList]\r\n/b/x.txt==0\r\n";

struct Troubled : TestForm {
    Troubled() {
        PutDataFile(stored);
        PutBook(u"/b/a.txt", NumberedLines(500));
        PutBook(u"/b/new.txt", NumberedLines(500));
        Deny();
    }
    void Deny(ReadStatus status = ReadStatus::Denied) { Files().readFailure[dataPath] = status; }
    void Allow() { Files().readFailure.clear(); }
    std::u16string Told(std::size_t index = 0) {
        return index < Dialogs().messages.size() ? Dialogs().messages[index].text : u"";
    }
    bool WroteNothing() { return Files().replaceCalls.empty() && DataFile() == stored; }
};

bool Names(const std::u16string& text, std::u16string_view part) {
    return text.find(part) != text.npos;
}
} // namespace

TEST_CASE("data file: one that cannot be read just now is tried again for a while") {
    Troubled test;
    test.Clock().whileWaiting = [&] {
        if (test.Clock().waited >= 500) test.Allow();
    };
    REQUIRE(test.Start());
    CHECK(test.Clock().waited == 500);
    CHECK(test.Dialogs().messages.empty());
    CHECK(test.Window().title == u"Norvaset [Anna] - /b/a.txt");
}

TEST_CASE("data file: one that cannot be read is never written over, and its reader is told once") {
    for (const ReadStatus status :
         {ReadStatus::Denied, ReadStatus::Failed, ReadStatus::NotAFile, ReadStatus::TooLarge}) {
        Troubled test;
        test.Deny(status);
        REQUIRE(test.Start());
        CHECK(test.Window().open);
        CHECK(test.Clock().waited <= 1000);
        REQUIRE(test.Dialogs().messages.size() == 1);
        CHECK(Names(test.Told(), u"/app/Norvaset.dat\r\ncannot be read"));
        CHECK(test.Dialogs().messages[0].helpTopic == "trouble");
        OpenBook(test.form, u"/b/new.txt");
        test.Timer().Tick(120);
        test.Dialogs().textAnswer = u"Carla";
        test.Menus().Click(test.Menu().mUserNew); // nowhere to keep one
        CHECK(Names(test.Told(1), u"cannot be read"));
        CHECK(test.Menu().mProfileList.Count() == 1);
        test.Menus().Click(test.Menu().mOptionsTitle, 0);
        test.Menus().Click(test.Menu().mFileRemoveList, 0);
        test.Menus().Click(test.Menu().mFileNonFound);
        test.Close();
        CHECK(test.Dialogs().messages.size() == 2);
        CHECK(test.WroteNothing());
    }
}

TEST_CASE("data file: when it can be read at last, it is, and nothing of either side is lost") {
    Troubled test;
    REQUIRE(test.Start());
    CHECK(test.Window().title == u"Norvaset [Default]");
    SUBCASE("a new book is on the screen") {
        OpenBook(test.form, u"/b/new.txt");
        test.View().ScrollLineToTop(300);
        test.View().Select(310, 5);
        test.Menus().Click(test.Menu().mBookmarkNew);
        const TextPos top = test.View().FirstVisibleChar();
        test.Timer().Tick();
        CHECK(test.WroteNothing());
        test.Allow();
        test.Timer().Tick();
        CHECK(test.Window().title == u"Norvaset [Anna] - /b/new.txt");
        CHECK(test.Order() ==
              std::vector<std::u16string>{u"/b/new.txt", u"/b/a.txt", u"/b/gone.txt"});
        CHECK(test.View().FirstVisibleChar() == top);
        CHECK(test.Record(0)[Field::Marks] == u"310,5");
        CHECK(test.Menu().mBookmarkList[0].visible);
        CHECK(test.Record(1)[Field::LastPos] == u"7");
    }
    SUBCASE("a book of the list is on the screen: its place is the stored one") {
        OpenBook(test.form, u"/b/a.txt");
        test.View().Select(310, 5);
        test.Menus().Click(test.Menu().mBookmarkNew);
        test.Allow();
        test.Timer().Tick();
        CHECK(test.Window().title == u"Norvaset [Anna] - /b/a.txt");
        CHECK(test.Order() == std::vector<std::u16string>{u"/b/a.txt", u"/b/gone.txt"});
        CHECK(test.Record(0)[Field::LastPos] == u"7");
        CHECK(test.Record(0)[Field::Marks] == u"5,6|310,5");
    }
    SUBCASE("no book is on the screen: the last one comes") {
        test.Allow();
        test.Timer().Tick();
        CHECK(test.Window().title == u"Norvaset [Anna] - /b/a.txt");
    }
    SUBCASE("it has gone: a new one is made of what is there") {
        OpenBook(test.form, u"/b/new.txt");
        test.Allow();
        test.Files().Remove(test.dataPath);
        test.Timer().Tick();
        CHECK(test.Window().title == u"Norvaset [Default] - /b/new.txt");
        CHECK(Names(Utf8ToUtf16(test.DataFile()), u"[Default\\mFileList]\r\n/b/new.txt="));
        return;
    }
    CHECK(test.Window().Bounds() == Rect{11, 12, 613, 414});
    CHECK(test.Menu().mProfileList.Count() == 2);
    CHECK(test.Menu().mOptionsEditor[1].tag == u"/bin/w");
    CHECK(CheckedItem(test.Menu().mOptionsTitle) == 0);
    test.Close();
    const std::u16string data = Utf8ToUtf16(test.DataFile());
    for (const char16_t* kept :
         {u"0=Anna\r\n1=Bert", u"Left=11\r\nTop=12\r\nWidth=613\r\nHeight=414", u"/b/gone.txt=2021",
          u"[Bert\\mFileList]\r\n/b/x.txt==0"})
        CHECK(Names(data, kept));
    CHECK_FALSE(Names(data, u"Default"));
    CHECK(test.Dialogs().messages.size() == 1);
}

TEST_CASE(
    "data file: a write that fails is tried for some seconds, reported once, and made up for") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(500));
    REQUIRE(test.Start());
    SUBCASE("it can be written in time") {
        test.Files().failReplace = true;
        OpenBook(test.form, u"/b/a.txt");
        test.Timer().Tick();
        test.Files().failReplace = false;
        test.Timer().Tick();
        CHECK(test.Dialogs().messages.empty());
    }
    SUBCASE("it cannot") {
        test.Files().failReplace = true;
        OpenBook(test.form, u"/b/a.txt");
        const auto tries = [&test] { return test.Files().replaceCalls.size(); };
        std::size_t before = tries();
        for (int second = 1; second <= 3; ++second) {
            CHECK(test.Dialogs().messages.empty());
            test.Timer().Tick();
            CHECK(tries() > before);
            before = tries();
        }
        CHECK(test.Dialogs().messages.size() == 1);
        test.Timer().Tick(200);
        REQUIRE(test.Dialogs().messages.size() == 1);
        CHECK(Names(test.Dialogs().messages[0].text, u"/app/Norvaset.dat\r\ncannot be written"));
        test.Files().failReplace = false;
        test.Timer().Tick(60);
    }
    CHECK(Names(Utf8ToUtf16(test.DataFile()), u"/b/a.txt="));
}

TEST_CASE("data file: what cannot be written when the program ends is reported") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(500));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.Files().failReplace = true;
    SUBCASE("for good") {
        test.Close();
        REQUIRE(test.Dialogs().messages.size() == 1);
        CHECK(Names(test.Dialogs().messages[0].text, u"/app/Norvaset.dat\r\ncannot be written"));
        CHECK(test.Dialogs().messages[0].title == u"Norvaset Message");
        CHECK(test.Clock().waited <= 1000);
    }
    SUBCASE("for a moment") {
        test.Clock().whileWaiting = [&] { test.Files().failReplace = false; };
        test.View().ScrollLineToTop(300);
        test.Close();
        CHECK(test.Dialogs().messages.empty());
        CHECK(Names(Utf8ToUtf16(test.DataFile()),
                    u"=" + NumberText(test.View().FirstVisibleChar()) + u"="));
    }
}

TEST_CASE("data file: one that rights forbid to write is reported at the start") {
    TestForm test;
    test.PutDataFile(stored);
    test.Files().readOnlyFolders.insert(u"/app");
    test.Files().AddFile(u"/home/reader/.local/share/Norvaset/Norvaset.dat", stored);
    test.Files().othersFiles.insert(u"/home/reader/.local/share/Norvaset/Norvaset.dat");
    REQUIRE(test.Start());
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(Names(test.Dialogs().messages[0].text, u"cannot be written"));
    test.Timer().Tick(120);
    test.Close();
    CHECK(test.Dialogs().messages.size() == 1);
}

TEST_CASE("data file: another user's beside the program is left alone, which is reported once") {
    TestForm test;
    test.PutDataFile(stored);
    test.PutBook(u"/b/a.txt", NumberedLines(500));
    test.Files().othersFiles.insert(TestForm::dataPath);
    REQUIRE(test.Start());
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(Names(test.Dialogs().messages[0].text, u"/app/Norvaset.dat\r\nbelongs to another user"));
    CHECK(test.Window().title == u"Norvaset [Default]"); // their books are not this user's
    OpenBook(test.form, u"/b/a.txt");
    test.Close();
    CHECK(test.DataFile() == stored);
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.Dialogs().messages.empty());
    CHECK(next.Window().title == u"Norvaset [Default] - /b/a.txt");
}

TEST_CASE("data file: it is not kept in a folder for everybody's temporary files") {
    TestForm test;
    test.Files().publicFolders.insert(u"/app");
    REQUIRE(test.Start());
    CHECK(test.form.DataFilePath == u"/home/reader/.local/share/Norvaset/Norvaset.dat");
}

TEST_CASE("data file: in use by somebody else, the message says by whom, and nothing is read or "
          "written") {
    TestForm test;
    test.PutDataFile(stored);
    test.Shell().claim = {InstanceClaim::Result::SomebodyElse, u"bert on desk"};
    CHECK_FALSE(test.Start());
    CHECK_FALSE(test.Window().open);
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(Names(test.Dialogs().messages[0].text, u"is in use by bert on desk"));
    CHECK(test.Files().readCalls.empty());
    CHECK(test.Files().replaceCalls.empty());
}

TEST_CASE("data file: two programs that use one lose nothing of each other's") {
    TestForm test;
    test.PutDataFile(stored);
    test.PutBook(u"/b/a.txt", NumberedLines(500));
    test.PutBook(u"/b/new.txt", NumberedLines(500));
    test.PutBook(u"/b/other.txt", NumberedLines(500));
    REQUIRE(test.Start());
    // The other one opens a book, moves on in another, and adds a profile.
    std::string theirs = stored;
    const std::string list = "[Anna\\mFileList]\r\n";
    theirs.insert(theirs.find(list) + list.size(),
                  "/b/other.txt==0=Serif=12=0=0=0=0=0=1=0=0=9=33=5==\r\n");
    theirs.replace(theirs.find("=7=2048==\r\n[Bert"), 3, "=8=");
    theirs.insert(theirs.find("[fwMain]"), "2=Carla\r\n");
    test.Files().EditInPlace(TestForm::dataPath, theirs);

    OpenBook(test.form, u"/b/new.txt");
    CHECK(test.Order() ==
          std::vector<std::u16string>{u"/b/new.txt", u"/b/other.txt", u"/b/a.txt", u"/b/gone.txt"});
    CHECK(test.Record(1)[Field::LastPos] == u"33");
    CHECK(test.Record(3)[Field::LastPos] == u"8");
    CHECK(test.Menu().mFileRemoveList[1].caption == u"/b/other.txt");
    CHECK(LoadSectionLines(*test.form.dataFile, u"Anna\\mFileList").size() == 4);

    test.Menus().Click(test.Menu().mFileRemoveList, 1); // what this one removes is removed
    CHECK(LoadSectionLines(*test.form.dataFile, u"Anna\\mFileList").size() == 3);
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(LoadSectionLines(*test.form.dataFile, u"mProfileList") ==
          std::vector<std::u16string>{u"0=Bert", u"1=Carla", u"2=Anna"});
    CHECK(test.Menu().mProfileList.Count() == 3);
    CHECK(test.Menu().mUserDeleteList[1].caption == u"Carla");

    theirs = test.DataFile(); // it adds one more, while this one removes Carla
    theirs.insert(theirs.find("2=Anna\r\n"), "3=Dora\r\n");
    test.Files().EditInPlace(TestForm::dataPath, theirs);
    test.Menus().Click(test.Menu().mUserDeleteList, 1);
    CHECK(LoadSectionLines(*test.form.dataFile, u"mProfileList").size() == 3);
    for (const MenuArray* shown : {&test.Menu().mProfileList, &test.Menu().mUserDeleteList}) {
        REQUIRE(shown->Count() == 3);
        CHECK((*shown)[0].caption == u"Bert");
        CHECK((*shown)[1].caption == u"Dora");
        CHECK((*shown)[2].caption == u"Anna");
    }
}

TEST_CASE("data file: bookmarks of two records are joined by their starts") {
    CHECK(JoinedMarks(u"", u"") == u"");
    CHECK(JoinedMarks(u"5,6", u"") == u"5,6");
    CHECK(JoinedMarks(u"", u"5,6|9,1") == u"5,6|9,1");
    CHECK(JoinedMarks(u"5,6|100,81", u"9,1|5,80||200,3") == u"5,6|9,1|100,81|200,3");
}
