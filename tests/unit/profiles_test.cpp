#include "test_form.h"

#include "app/open_book.h"
#include "app/profile_menu.h"
#include "app/profiles.h"

#include <doctest/doctest.h>

namespace {
std::vector<std::u16string> Captions(const MenuArray& list) {
    std::vector<std::u16string> captions;
    for (const MenuItem& item : list.items)
        captions.push_back(item.caption);
    return captions;
}

constexpr const char* threeProfiles = "[mProfileList]\r\n0=A\r\n1=B\r\n2=C\r\n";
} // namespace

TEST_CASE("profiles: without a list there is Default alone") {
    TestForm test;
    test.PutDataFile("[Other]\r\nx=1\r\n");
    REQUIRE(test.Start());
    CHECK(Captions(test.Menu().mProfileList) == std::vector<std::u16string>{u"Default"});
}

TEST_CASE("profiles: the list read again takes the place of the one before") {
    TestForm test;
    test.PutDataFile(threeProfiles);
    REQUIRE(test.Start());
    LoadProfileList(test.form);
    CHECK(Captions(test.Menu().mProfileList) == std::vector<std::u16string>{u"A", u"B", u"C"});
    CHECK(Captions(test.Menu().mUserDeleteList) == std::vector<std::u16string>{u"A", u"B", u"C"});
}

TEST_CASE("profiles: an entry without a name does not take the others along") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=\r\n1=Anna\r\n2=\r\n3=Bo\r\n");
    REQUIRE(test.Start());
    CHECK(Captions(test.Menu().mProfileList) == std::vector<std::u16string>{u"Anna", u"Bo"});
    CHECK(test.Menu().mUser[0].tag == u"Anna");
    CHECK(test.DataFile().find("[mProfileList]\r\n0=Anna\r\n1=Bo\r\n") != std::string::npos);
}

TEST_CASE("profiles: a chosen one moves to the top, the others keep their order") {
    TestForm test;
    test.PutDataFile(threeProfiles);
    REQUIRE(test.Start());
    CHECK(test.Menu().mUser[0].tag == u"A");
    test.Menus().Click(test.Menu().mProfileList, 2);
    CHECK(Captions(test.Menu().mProfileList) == std::vector<std::u16string>{u"C", u"A", u"B"});
    CHECK(Captions(test.Menu().mUserDeleteList) == std::vector<std::u16string>{u"C", u"A", u"B"});
    CHECK_FALSE(test.Menu().mUserDeleteList[0].enabled);
    CHECK(test.Menu().mUserDeleteList[1].enabled);
    CHECK(test.Menu().mUser[0].tag == u"C");
    CHECK(test.DataFile().find("[mProfileList]\r\n0=C\r\n1=A\r\n2=B\r\n") != std::string::npos);
}

TEST_CASE("profiles: the ticked one does nothing and writes nothing") {
    TestForm test;
    test.PutDataFile(threeProfiles);
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.View().ScrollLineToTop(900);
    const TextPos top = test.View().FirstVisibleChar();
    const int loads = test.View().loads;
    const auto writes = test.Files().replaceCalls.size();
    test.Menus().Click(test.Menu().mProfileList, 0);
    CHECK(test.Files().replaceCalls.size() == writes);
    CHECK(test.View().loads == loads);
    CHECK(test.View().FirstVisibleChar() == top);
}

TEST_CASE("profiles: removing is offered only when there are two") {
    TestForm one;
    REQUIRE(one.Start());
    one.Menus().Open(one.Menu().mUser);
    CHECK_FALSE(one.Menu().mUserDelete[0].enabled);
    TestForm three;
    three.PutDataFile(threeProfiles);
    REQUIRE(three.Start());
    three.Menus().Open(three.Menu().mUser);
    CHECK(three.Menu().mUserDelete[0].enabled);
}

TEST_CASE("profiles: each has its own history, window place and options") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n1=B\r\n"
                     "[B]\r\nLeft=10\r\nTop=20\r\nWidth=300\r\nHeight=400\r\nState=0\r\n"
                     "mOptionsTitle=0\r\nmOptionsFileColor=1\r\n"
                     "[B\\mFileList]\r\n/b/of-b.txt=2021:07:04:18:05:30=0\r\n");
    test.PutBook(u"/b/of-a.txt");
    test.PutBook(u"/b/of-b.txt");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/of-a.txt");
    const Rect placeOfA = test.Window().Bounds();
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/of-b.txt"});
    CHECK(test.Window().Bounds() == Rect{10, 20, 300, 400});
    CHECK(test.Menu().mOptionsTitle[0].checked);
    CHECK(test.Menu().mOptionsFileColor[0].checked);
    CHECK(test.View().AutoColor());
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/of-a.txt"});
    CHECK(test.Window().Bounds() == placeOfA);
    CHECK(test.Menu().mOptionsTitle[1].checked);
    CHECK_FALSE(test.Menu().mOptionsFileColor[0].checked);
}

TEST_CASE("profiles: a reader without books does not see another's book") {
    TestForm test;
    test.PutDataFile(threeProfiles);
    test.PutBook(u"/b/secret.txt", "secret");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/secret.txt");
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(test.View().TextLength() == 0);
    CHECK(test.Window().title == u"Norvaset [B]");
    CHECK_FALSE(test.Menus().enabled.at(3)); // the Bookmark menu, as the bar shows it
    CHECK(test.DataFile().find("[B\\mFileList]") == std::string::npos);
    OpenBook(test.form, u"/b/secret.txt");
    CHECK(test.Menus().enabled.at(3));
}

TEST_CASE("profiles: a book on the command line opens again in each profile switched to") {
    TestForm test;
    test.PutDataFile(threeProfiles);
    test.PutBook(u"/b/given.txt");
    test.form.ports.launch.commandLine = u"/b/given.txt";
    REQUIRE(test.Start());
    CHECK(test.Window().title == u"Norvaset [A] - /b/given.txt");
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(test.Window().title == u"Norvaset [B] - /b/given.txt");
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/given.txt"});
}

TEST_CASE("profiles: a missing book at the top keeps its record when another is opened") {
    TestForm test;
    test.PutDataFile(
        "[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n"
        "/stick/away.txt=2021:07:04:18:05:30=0=Serif=12=0=0=0=0=0=1=0=0=16777215=777=9==\r\n"
        "/b/here.txt=2021:07:04:18:05:30=0\r\n");
    test.PutBook(u"/b/here.txt");
    REQUIRE(test.Start());
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/here.txt", u"/stick/away.txt"});
    CHECK(test.Record(1)[Field::LastPos] == u"777");
    test.Close();
    CHECK(test.DataFile().find("=777=9=") != std::string::npos);
}

namespace {
void AddProfile(TestForm& test, const std::u16string& name) {
    test.Dialogs().textAnswer = name;
    test.Menus().Click(test.Menu().mUserNew);
}
} // namespace

TEST_CASE("profiles: a new name loses its blanks; an old one is switched to, in any case") {
    TestForm test;
    REQUIRE(test.Start());
    AddProfile(test, u" Anna Maria \nsecond line");
    CHECK(test.Dialogs().textRequests[0].first == u"Add New...");
    CHECK(test.Dialogs().textRequests[0].second == u"Enter new user name:");
    CHECK(Captions(test.Menu().mProfileList) ==
          std::vector<std::u16string>{u"AnnaMaria", u"Default"});
    CHECK(Captions(test.Menu().mUserDeleteList) == Captions(test.Menu().mProfileList));
    AddProfile(test, u"annamaria"); // the current one
    CHECK(test.Menu().mProfileList.Count() == 2);
    AddProfile(test, u"Bo");
    AddProfile(test, u"ANNAMARIA");
    CHECK(Captions(test.Menu().mProfileList) ==
          std::vector<std::u16string>{u"AnnaMaria", u"Bo", u"Default"});
    AddProfile(test, u"");
    CHECK(test.Menu().mProfileList.Count() == 3);
}

TEST_CASE("profiles: names that the data file cannot hold are refused") {
    TestForm test;
    REQUIRE(test.Start());
    const auto writes = test.Files().replaceCalls.size();
    for (const char16_t* name : {u"who?", u"A\\mFileList", u"a]", u"[a", u"\"a\""}) {
        AddProfile(test, name);
        CHECK(test.Dialogs().messages.back().text == u"You tried to use unsupported character(s).");
        CHECK(test.Dialogs().messages.back().title == u"Norvaset");
        CHECK(test.Dialogs().messages.back().icon == MessageIcon::Information);
    }
    AddProfile(test, u"MProfileList");
    CHECK(test.Dialogs().messages.back().text == u"This name is used by the program itself.");
    CHECK(test.Menu().mProfileList.Count() == 1);
    CHECK(test.Files().replaceCalls.size() == writes);
}

TEST_CASE(
    "profiles: removing asks, closes the gap and keeps the data for a later one of that name") {
    TestForm test;
    test.PutDataFile(threeProfiles);
    test.PutBook(u"/b/of-c.txt");
    REQUIRE(test.Start());
    test.Menus().Click(test.Menu().mProfileList, 2);
    OpenBook(test.form, u"/b/of-c.txt");
    test.Window().DragTo({11, 22, 333, 444});
    CHECK(Captions(test.Menu().mProfileList) == std::vector<std::u16string>{u"C", u"A", u"B"});
    test.Menus().Click(test.Menu().mUserDeleteList, 0); // the current one is greyed
    CHECK(test.Dialogs().messages.empty());
    test.Dialogs().messageAnswer = DialogResult::Cancel;
    test.Menus().Click(test.Menu().mUserDeleteList, 1);
    CHECK(test.Menu().mProfileList.Count() == 3);
    CHECK(test.Dialogs().messages[0].text ==
          u"All data of the profile will be lost.\r\nAre you sure you wish to continue?");
    test.Dialogs().messageAnswer = DialogResult::Ok;
    test.Menus().Click(test.Menu().mUserDeleteList, 1);
    CHECK(Captions(test.Menu().mProfileList) == std::vector<std::u16string>{u"C", u"B"});
    CHECK(Captions(test.Menu().mUserDeleteList) == std::vector<std::u16string>{u"C", u"B"});
    CHECK(test.DataFile().find("[mProfileList]\r\n0=C\r\n1=B\r\n") != std::string::npos);
    test.Menus().Click(test.Menu().mProfileList, 1);
    test.Menus().Click(test.Menu().mUserDeleteList, 1);
    AddProfile(test, u"C");
    CHECK(test.Order() == std::vector<std::u16string>{u"/b/of-c.txt"});
    CHECK(test.Window().Bounds() == Rect{11, 22, 333, 444});
}

TEST_CASE("profiles: the list is read in the order of its keys, wherever its lines stand") {
    const struct {
        const char* section;
        std::vector<std::u16string> names;
    } cases[] = {
        {"5=Eve\r\n0=Adam\r\n", {u"Adam", u"Eve"}},
        {"10=c\r\n9=b\r\n0=a\r\n", {u"a", u"b", u"c"}},
        {"x=last\r\nalone\r\n1=b\r\n0=a\r\n", {u"a", u"b", u"last", u"alone"}},
        {"0=a\r\n1=\r\n2=A\r\n3=b\r\n", {u"a", u"b"}},
        {"0=-\r\n1=a=b\r\n", {u"-", u"a=b"}},
    };
    for (const auto& c : cases) {
        CAPTURE(c.section);
        TestForm test;
        test.PutDataFile(std::string("[mProfileList]\r\n") + c.section + "[Eve]\r\nLeft=77\r\n");
        REQUIRE(test.Start());
        std::vector<std::u16string> names;
        for (const MenuItem& item : test.Menu().mProfileList.items)
            names.push_back(item.caption);
        CHECK(names == c.names);
        CHECK(test.Menu().mUser[0].tag == c.names[0]);
        test.Close();
        CHECK(test.DataFile().find("[Eve]\r\nLeft=77\r\n") != std::string::npos);
    }
}

TEST_CASE("profiles: one named - is an item like others, and is kept") {
    TestForm test;
    REQUIRE(test.Start());
    test.Dialogs().textAnswer = u"-";
    test.Menus().Click(test.Menu().mUserNew);
    CHECK(test.Menu().mUser[0].tag == u"-");
    CHECK_FALSE(test.Menu().mProfileList[0].IsSeparator());
    CHECK(LoadSectionLines(*test.form.dataFile, u"mProfileList") ==
          std::vector<std::u16string>{u"0=-", u"1=Default"});
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.Menu().mUser[0].tag == u"-");
    CHECK(next.Menu().mUserDeleteList.Count() == 2);
}
