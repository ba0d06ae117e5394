// The Help menu on the headless back end.
#include "shell/help/help_contents.h"

#include "app/help_menu.h"
#include "app/keys.h"
#include "app/open_book.h"
#include "test_form.h"

#include <doctest/doctest.h>

namespace {
constexpr std::string_view helpFile = "help 1\n= index: Welcome\nhello\n"
                                      "= opening mFileOpen: Opening\nopen it\n= end\n";
constexpr int keyF1 = 112;

struct WithHelp : TestForm {
    WithHelp() {
        Files().AddFile(u"/app/Norvaset.hlp", helpFile);
        Start();
    }
    void Press(int key) { Window().Events().onKeyDown(key, 0); }
};
} // namespace

TEST_CASE("help: the menu opens the index, in a window of its own") {
    WithHelp test;
    CHECK(test.Menu().mHelpTopics[0].caption == u"&Help Topics...\tF1");
    test.Menus().Click(test.Menu().mHelpTopics);
    const HelpContents& contents = test.Help().contents;
    REQUIRE(test.Help().open);
    CHECK(test.Help().page == 0);
    CHECK(contents.windowTitle == u"Norvaset Help");
    CHECK(contents.titles == std::vector<std::u16string>{u"Welcome", u"Opening"});
    CHECK(contents.page(1).starts_with("{\\rtf1"));
    CHECK(contents.page(1).find("open it") != std::string::npos);
    CHECK(contents.search(u"hello").size() == 1);
    CHECK(test.Dialogs().messages.empty());
}

TEST_CASE("help: F1 opens it, a second F1 only brings it to the front") {
    WithHelp test;
    test.Press(keyF1);
    CHECK(test.Help().page == 0);
    CHECK(test.Help().raised == 0);
    test.Help().page = 1; // as the reader has gone on
    test.Press(keyF1);
    CHECK(test.Help().page == 1);
    CHECK(test.Help().raised == 1);
    test.Help().open = false; // closed by its reader
    test.Press(keyF1);
    CHECK(test.Help().page == 0);
}

TEST_CASE("help: F1 does nothing while the item is disabled") {
    WithHelp test;
    test.Menu().mHelpTopics[0].enabled = false;
    test.Press(keyF1);
    mHelpTopics_Click(test.form, 0);
    CHECK_FALSE(test.Help().open);
    CHECK(test.Dialogs().messages.empty());
}

TEST_CASE("help: the Help button of a message opens its topic while the message waits") {
    WithHelp test;
    test.Dialogs().whileOpen = [&test] {
        const Message& message = test.Dialogs().messages.back();
        REQUIRE(message.helpButton);
        test.Dialogs().onHelp(message.helpTopic);
    };
    OpenBook(test.form, u"/b/a?.txt");
    CHECK(test.Help().page == 1);
    CHECK(test.Dialogs().messages.size() == 1);
    test.Help().page = 0;
    OpenBook(test.form, u"/b/missing.txt"); // while the help is still open
    CHECK(test.Help().page == 1);
}

TEST_CASE("help: a missing or damaged file is reported, and which") {
    TestForm test;
    test.Start();
    test.Menus().Click(test.Menu().mHelpTopics);
    CHECK_FALSE(test.Help().open);
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text ==
          u"The help file is missing:\r\n/app/Norvaset.hlp\r\nInstall the program again to have it "
          u"back.");
    CHECK(test.Dialogs().messages[0].title == u"Norvaset Message");
    CHECK(test.Dialogs().messages[0].icon == MessageIcon::Exclamation);
    CHECK_FALSE(test.Dialogs().messages[0].helpButton);

    test.Files().AddFile(u"/app/Norvaset.hlp", helpFile.substr(0, helpFile.size() - 3));
    test.Menus().Click(test.Menu().mHelpTopics);
    CHECK_FALSE(test.Help().open);
    REQUIRE(test.Dialogs().messages.size() == 2);
    CHECK(test.Dialogs().messages[1].text.starts_with(u"The help file is damaged:\r\n"));
}

TEST_CASE("help: the file is looked for beside the program, then in the shared folder") {
    TestForm test;
    const auto found = [&test](const std::u16string& shared) {
        return FindHelpFile(test.Files(), u"/app/Norvaset.hlp", shared);
    };
    test.Files().AddFile(u"/share/norvaset/Norvaset.hlp", helpFile);
    CHECK(found(u"/share/norvaset") == u"/share/norvaset/Norvaset.hlp");
    CHECK(found(u"/elsewhere") == u"/app/Norvaset.hlp");
    CHECK(found(u"") == u"/app/Norvaset.hlp");
    test.Start();
    test.Menus().Click(test.Menu().mHelpTopics);
    CHECK(test.Help().open);
    test.Files().AddFile(u"/app/Norvaset.hlp", helpFile);
    CHECK(found(u"/share/norvaset") == u"/app/Norvaset.hlp");
}
