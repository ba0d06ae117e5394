#include "test_form.h"

#include "app/open_book.h"

#include <doctest/doctest.h>

namespace {
struct Reading : TestForm {
    Reading() {
        PutBook(u"/b/a.txt", NumberedLines(300));
        Start();
        OpenBook(form, u"/b/a.txt");
    }
};
} // namespace

TEST_CASE("options: the title mode is a radio pair, kept per profile") {
    Reading test;
    test.Menus().Click(test.Menu().mOptionsTitle, 0);
    CHECK(test.Menu().mOptionsTitle[0].checked);
    CHECK_FALSE(test.Menu().mOptionsTitle[1].checked);
    CHECK(test.DataFile().find("mOptionsTitle=0\r\n") != std::string::npos);
    test.Menus().Click(test.Menu().mOptionsTitle,
                       1); // a book without a caption still shows its path
    CHECK(test.Window().title == u"Norvaset [Default] - /b/a.txt");
    CHECK(test.DataFile().find("mOptionsTitle=1\r\n") != std::string::npos);
    test.Menus().Click(test.Menu().mOptionsTitle, 0);
    test.Dialogs().textAnswer = u"B";
    test.Menus().Click(test.Menu().mUserNew);
    CHECK(test.Menu().mOptionsTitle[1].checked);
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(test.Menu().mOptionsTitle[0].checked);
    CHECK(test.DataFile().find("[Default]\r\nmOptionsTitle=0\r\n") != std::string::npos);
}

TEST_CASE("options: the title changes with its option") {
    Reading test;
    test.View().Select(2, 3);
    test.Menus().Open(test.Menu().mEdit);
    test.Menus().Click(test.Menu().mEditTitle);
    CHECK(test.Window().title == u"Norvaset [Default] - ne");
    test.Menus().Click(test.Menu().mOptionsTitle, 0);
    CHECK(test.Window().title == u"Norvaset [Default] - /b/a.txt");
    test.Menus().Click(test.Menu().mOptionsTitle, 1);
    CHECK(test.Window().title == u"Norvaset [Default] - ne");
}

TEST_CASE(
    "options: colours of rich text on loads the book again at its place, off only recolours") {
    Reading test;
    test.View().ScrollLineToTop(900);
    const TextPos top = test.View().FirstVisibleChar();
    const int loads = test.View().loads;
    test.Menus().Click(test.Menu().mOptionsFileColor);
    CHECK(test.View().loads > loads);
    CHECK(test.View().AutoColor());
    CHECK(test.View().FirstVisibleChar() == top);
    CHECK(test.Menu().mFileList[0].checked);
    CHECK(test.DataFile().find("mOptionsFileColor=1\r\n") != std::string::npos);
    const int loadsOn = test.View().loads;
    test.Menus().Click(test.Menu().mOptionsFileColor);
    CHECK(test.View().loads == loadsOn);
    CHECK_FALSE(test.View().AutoColor());
    CHECK(test.View().TextColor() == test.form.format.textColor);
    CHECK(test.DataFile().find("mOptionsFileColor=0\r\n") != std::string::npos);
}

TEST_CASE("options: an editor is chosen, kept for all profiles, and cancelled without a trace") {
    Reading test;
    test.Files().AddFolder(u"/tools");
    const auto writes = test.Files().replaceCalls.size();
    test.Menus().Click(test.Menu().mOptionsEditor, 1);
    CHECK(test.Files().replaceCalls.size() == writes);
    test.Dialogs().openAnswer = {DialogResult::Ok, u"/tools/MyEdit.exe", 1};
    test.Menus().Click(test.Menu().mOptionsEditor, 1);
    CHECK(test.Menu().mOptionsEditor[1].caption == u"Set &RTF Editor...\t[myedit.exe]");
    CHECK(test.DataFile().find("[fwMain]\r\nmOptionsEditor-1=/tools/MyEdit.exe\r\n") !=
          std::string::npos);
    test.Dialogs().textAnswer = u"B";
    test.Menus().Click(test.Menu().mUserNew); // another profile
    CHECK(test.Menu().mOptionsEditor[1].caption == u"Set &RTF Editor...\t[myedit.exe]");
    CHECK(test.Menu().mOptionsEditor[1].tag == u"/tools/MyEdit.exe");
    test.Menus().Click(test.Menu().mOptionsEditor, 1);
    const OpenFileRequest& request = test.Dialogs().openRequests.back();
    CHECK(request.title == u"Set RTF Editor");
    CHECK(request.filter == u"Programs (*.exe)|*.exe|All Files (*.*)|*.*");
    CHECK(request.fileName == u"/tools/MyEdit.exe");
    CHECK(request.initialFolder == u"/tools");
    test.Menu().mOptionsEditor[1].tag = u"/tools/";
    test.Menus().Click(test.Menu().mOptionsEditor, 1);
    CHECK(test.Dialogs().openRequests.back().initialFolder == u"/tools");
}

TEST_CASE("options: the dialog for an editor begins where programs are") {
    Reading test;
    test.form.ports.launch.programsFolder = u"/programs";
    for (const char16_t* editor : {u"", u"editor", u"/gone/editor"}) {
        test.Menu().mOptionsEditor[2].tag = editor;
        test.Menus().Click(test.Menu().mOptionsEditor, 2);
        CHECK(test.Dialogs().openRequests.back().initialFolder == u"/programs");
    }
}

TEST_CASE("options: numbers that the program would not write") {
    const struct {
        const char* value;
        int title;
        bool fileColors;
    } cases[] = {
        {"0", 0, false}, {"1", 1, true}, {"2", 1, false}, {"-1", 1, false}, {"x", 0, false}};
    for (const auto& c : cases) {
        CAPTURE(std::string(c.value));
        TestForm test;
        std::string dataFile = "[mProfileList]\r\n0=A\r\n[A]\r\n";
        dataFile.append("mOptionsTitle=").append(c.value).append("\r\n");
        dataFile.append("mOptionsFileColor=").append(c.value).append("\r\n");
        test.PutDataFile(dataFile);
        REQUIRE(test.Start());
        CHECK(CheckedItem(test.Menu().mOptionsTitle) == c.title);
        CHECK(test.Menu().mOptionsFileColor[0].checked == c.fileColors);
    }
}

TEST_CASE("options: an editor is described by its version information, else by its name") {
    TestForm test;
    test.PutDataFile(
        "[fwMain]\r\nmOptionsEditor-0=/bin/MyEdit.EXE\r\nmOptionsEditor-1=/bin/writer\r\n");
    static_cast<NoneVersionInfo&>(*test.form.ports.versionInfo).descriptions[u"/bin/writer"] =
        u"The Writer";
    REQUIRE(test.Start());
    CHECK(test.Menu().mOptionsEditor[0].caption == u"Set &TXT Editor...\t[myedit.exe]");
    CHECK(test.Menu().mOptionsEditor[1].caption == u"Set &RTF Editor...\t[The Writer]");
}
