#include "html_form.h"
#include "test_form.h"

#include "app/open_book.h"
#include "app/run_command.h"

#include <doctest/doctest.h>

TEST_CASE("start-up: the first run makes a data file with the scheme and the one profile") {
    TestForm test;
    REQUIRE(test.Start());
    CHECK(test.form.DataFilePath == TestForm::dataPath);
    CHECK(test.form.HelpFilePath == u"/app/Norvaset.hlp");
    CHECK(test.DataFile() ==
          "[Scheme]\r\n"
          "<Path>=<Access>=<Filter>=<FontName>=<FontSize>=<Charset>=<Bold>=<Italic>=<Underline>="
          "<Strikethru>=<Wrap>=<Align>=<ForeColor>=<BackColor>=<LastPos>=<Title>=<Size>=<Marks>\r\n"
          "<Marks>:=<SelStart>,<SelLength>|...\r\n"
          "[mProfileList]\r\n"
          "0=Default\r\n");
    CHECK(test.Menu().mUser[0].tag == u"Default");
    CHECK(test.Menu().mProfileList.Count() == 1);
    CHECK(test.Menu().mProfileList[0].checked);
    CHECK(test.form.history.Count() == 0);
    CHECK_FALSE(test.Menu().mFileList[0].visible);
    CHECK(test.Window().open);
    CHECK(test.Window().title == u"Norvaset [Default]");
}

TEST_CASE(
    "start-up: editor 0 has a default, the others are unset and nothing is written for them") {
    TestForm test;
    REQUIRE(test.Start());
    CHECK(test.Menu().mOptionsEditor[0].tag == u"/bin/plain-editor");
    CHECK(test.Menu().mOptionsEditor[0].caption == u"Set &TXT Editor...\t[plain-editor]");
    CHECK(test.Menu().mOptionsEditor[1].tag == u"");
    CHECK(test.Menu().mOptionsEditor[2].caption == u"Set &HTM Editor...");
    CHECK(test.DataFile().find("mOptionsEditor") == std::string::npos);
}

TEST_CASE("start-up: menu captions, headings and hidden items") {
    TestForm test;
    REQUIRE(test.Start());
    CHECK(test.Menu().mFileExit[0].caption == u"E&xit\tAlt+F4");
    CHECK(test.Menu().mHelpTopics[0].caption == u"&Help Topics...\tF1");
    CHECK(test.Menu().mViewFontSize[0].caption == u"Font Size +\tCtrl+ +");
    CHECK(test.Menu().mViewFontSize[1].caption == u"Font Size \u2013\tCtrl+ \u2013");
    CHECK(test.Menu().mBookmarkLast[0].caption == u"&Last Unmarked Position\tAlt+F2");
    CHECK(test.Menu().mFileRemovePlaceholder[0].heading);
    CHECK(test.Menu().mBookmarkDeletePlaceholder[0].heading);
    CHECK(test.Menu().mUserDeletePlaceholder[0].heading);
    CHECK_FALSE(test.Menu().mViewAlign[2].visible);
    CHECK(test.Menu().mViewAlign[0].checked);
    CHECK(test.Menu().mOptionsTitle[1].checked); // the profile's default
    CHECK_FALSE(test.Menu().mBookmark[0].enabled);
}

TEST_CASE("start-up: the panels of the status bar, and the system's font") {
    TestForm test;
    REQUIRE(test.Start());
    CHECK(test.Status().height == 18);
    REQUIRE(test.Status().panels.size() == 3);
    CHECK(test.Status().panels[0].key == u"Common");
    CHECK(test.Status().panels[1].key == u"Pagination");
    CHECK(test.Status().panels[2].key == u"Date");
    CHECK(test.Status().panels[2].style == PanelStyle::Date);
    CHECK(test.Window().systemFontApplied);
}

TEST_CASE("start-up: the registry is written only when it differs") {
    TestForm first;
    REQUIRE(first.Start());
    const std::u16string key = u"SOFTWARE\\The Company\\Norvaset";
    CHECK(first.Registry().Read(key, u"") == u"/app");
    CHECK(first.Registry().Read(key, u"CurrentVersion") == u"2.05.0012");
    CHECK(first.Registry().writes == 2);
    first.Close();
    TestForm second(first);
    REQUIRE(second.Start());
    CHECK(second.Registry().writes == 2);
    second.Close();
    TestForm newer(second);
    newer.Registry().Write(key, u"CurrentVersion", u"1.00");
    REQUIRE(newer.Start());
    CHECK(newer.Registry().Read(key, u"CurrentVersion") == u"2.05.0012");
    CHECK(newer.Registry().writes == 4); // the test's own, and this one
}

TEST_CASE("start-up: a second instance reads and writes nothing") {
    TestForm test;
    test.Shell().claim.result = InstanceClaim::Result::Own;
    CHECK_FALSE(test.Start());
    CHECK(test.Shell().claimedPath == TestForm::dataPath);
    CHECK((test.Shell().handedOver == std::vector<std::u16string>{u""}));
    test.Close();
    CHECK(test.Files().readCalls.empty());
    CHECK(test.Files().replaceCalls.empty());
    CHECK(test.Registry().writes == 0);
    CHECK_FALSE(test.Window().open);
}

TEST_CASE("start-up: a second instance hands its book over and ends without a word") {
    TestForm test;
    test.form.ports.launch.commandLine = u"/b/a.txt";
    test.Shell().claim.result = InstanceClaim::Result::Own;
    CHECK_FALSE(test.Start());
    CHECK((test.Shell().handedOver == std::vector<std::u16string>{u"/b/a.txt"}));
    CHECK(test.Dialogs().messages.empty());
}

TEST_CASE("start-up: a first one that does not answer is reported after three seconds") {
    for (const HandOver answer : {HandOver::NoAnswer, HandOver::NobodyThere}) {
        TestForm test;
        test.Shell().claim.result = InstanceClaim::Result::Own;
        test.Shell().handOverAnswer = answer;
        CHECK_FALSE(test.Start());
        REQUIRE(test.Dialogs().messages.size() == 1);
        CHECK(test.Dialogs().messages[0].title == u"Norvaset Message");
        CHECK(test.Dialogs().messages[0].text.find(u"does not answer") != std::u16string::npos);
        CHECK(test.Shell().timeout <= 3000);
        CHECK(test.Clock().waited <= 3000);
        CHECK(test.Files().replaceCalls.empty());
    }
}

TEST_CASE("start-up: a first one that ends is waited for, as long as a page may take it") {
    TestForm test;
    test.Shell().claim.result = InstanceClaim::Result::Own;
    test.Shell().handOverAnswer = HandOver::Refused;
    test.Clock().whileWaiting = [&] {
        if (test.Clock().waited > maxPageWait) test.Shell().handOverAnswer = HandOver::NobodyThere;
        if (test.Clock().waited > maxPageWait + 1000)
            test.Shell().claim.result = InstanceClaim::Result::Granted;
    };
    CHECK(test.Start());
    CHECK(test.Dialogs().messages.empty());
}

TEST_CASE("start-up: a first one that ends just then makes place") {
    TestForm test;
    test.PutBook(u"/b/a.txt");
    test.form.ports.launch.commandLine = u"/b/a.txt";
    test.Shell().claim.result = InstanceClaim::Result::Own;
    test.Shell().handOverAnswer = HandOver::NobodyThere;
    test.Clock().whileWaiting = [&] { test.Shell().claim.result = InstanceClaim::Result::Granted; };
    REQUIRE(test.Start());
    CHECK(test.Window().title == u"Norvaset [Default] - /b/a.txt");
    CHECK(test.Dialogs().messages.empty());
}

TEST_CASE("a later start: its book opens as one that is dropped, and the window comes up") {
    TestForm test;
    test.PutBook(u"/b/a.txt");
    REQUIRE(test.Start());
    test.Window().ComeUp();
    test.Shell().onStartRequest({u"/b/a.txt", u"token"});
    CHECK(test.Window().title == u"Norvaset [Default] - /b/a.txt");
    CHECK((test.Window().activations == std::vector<std::u16string>{u"token"}));
    test.Shell().onStartRequest({});
    CHECK(test.Window().activations.size() == 2);
    CHECK(test.form.history.Count() == 1);
    test.Shell().onStartRequest({u"/b/none.txt", u""});
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text == u"/b/none.txt\r\nfile not found.");
}

TEST_CASE("a later start: books wait for the end of a dialog, and come in their order") {
    TestForm test;
    for (const char16_t* path : {u"/b/a.txt", u"/b/b.txt", u"/b/c.txt"})
        test.PutBook(path);
    REQUIRE(test.Start());
    test.Window().ComeUp();
    test.Dialogs().whileOpen = [&] {
        for (const char16_t* path : {u"/b/a.txt", u"/b/b.txt", u"/b/c.txt"})
            test.Shell().onStartRequest({path, u""});
        CHECK(test.form.history.Count() == 0);
        CHECK(test.Window().activations.size() == 3); // its dialog comes to the front
    };
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.Window().title == u"Norvaset [Default] - /b/c.txt");
    REQUIRE(test.form.history.Count() == 3);
    CHECK(GetBookPath(test.form.history, 2) == u"/b/a.txt");
}

TEST_CASE("a later start: a program that ends listens no more") {
    TestForm test;
    REQUIRE(test.Start());
    CHECK(test.Shell().onStartRequest);
    test.Close();
    CHECK_FALSE(test.Shell().onStartRequest);
}

TEST_CASE("a later start: none is taken while the end waits for a page") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().zoomsAtOnce = false;
    test.Press(PlusKey, CtrlKey);
    int waits = 0, waitsForEnd = 0;
    test.Page().whileWaiting = [&] {
        ++waits;
        if (test.Page().closing) ++waitsForEnd;
        CHECK_FALSE(test.Shell().onStartRequest);
    };
    test.Close();
    CHECK(waits > 0);
    CHECK(waitsForEnd == waits); // the view knows it before it is asked anything
}

TEST_CASE("the end: no command begins while it waits for a page") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutBook(u"/b/a.txt");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    int waits = 0;
    test.Page().whileWaiting = [&] {
        ++waits;
        test.Page().onFilesDropped({u"/b/a.txt"});
    };
    test.Close();
    CHECK(waits == 1);
    CHECK(GetBookPath(test.form.history, 0) == u"/b/p.htm");
}

TEST_CASE("start-up: a run without a change writes only the state it leaves") {
    TestForm first;
    first.PutBook(u"/b/a.txt");
    REQUIRE(first.Start());
    OpenBook(first.form, u"/b/a.txt");
    first.Close();
    TestForm second(first);
    const auto writes = second.Files().replaceCalls.size();
    REQUIRE(second.Start());
    CHECK(second.Files().replaceCalls.size() == writes); // opening the last book changes nothing
    const std::string before = second.DataFile();
    second.Close();
    CHECK(second.Files().replaceCalls.size() == writes + 1);
    CHECK(second.DataFile() == before);
}

TEST_CASE("start-up: the user's folder is used when the program's cannot be written") {
    TestForm readOnly;
    readOnly.Files().readOnlyFolders.insert(u"/app");
    REQUIRE(readOnly.Start());
    CHECK(readOnly.form.DataFilePath == u"/home/reader/.local/share/Norvaset/Norvaset.dat");
}

TEST_CASE("start-up: a data file beside the program that cannot be written is taken over once") {
    const std::string beside = "[mProfileList]\r\n0=Anna\r\n[Anna\\mFileList]\r\n/b/a.txt==0\r\n";
    TestForm first;
    first.PutDataFile(beside);
    first.PutBook(u"/b/a.txt", NumberedLines(300));
    first.Files().readOnlyFolders.insert(u"/app");
    REQUIRE(first.Start());
    CHECK(first.form.DataFilePath == u"/home/reader/.local/share/Norvaset/Norvaset.dat");
    CHECK(first.Window().title == u"Norvaset [Anna] - /b/a.txt");
    first.View().ScrollLineToTop(900);
    const TextPos top = first.View().FirstVisibleChar();
    first.Close();
    CHECK(first.DataFile() == beside);
    TestForm second(first);
    REQUIRE(second.Start());
    CHECK(second.View().FirstVisibleChar() == top);
}

TEST_CASE("autosave: nothing for 59 ticks, then the state, then from the start again") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(500));
    REQUIRE(test.Start());
    CHECK(test.Timer().interval == 1000);
    OpenBook(test.form, u"/b/a.txt");
    const std::string before = test.DataFile();
    test.View().ScrollLineToTop(300);
    test.Timer().Tick(59);
    CHECK(test.DataFile() == before);
    test.Timer().Tick();
    const std::string saved = test.DataFile();
    CHECK(saved != before);
    CHECK(test.form.autosaveTick == 0);
    test.View().ScrollLineToTop(600);
    test.Timer().Tick(59);
    CHECK(test.DataFile() == saved);
    test.Timer().Tick();
    CHECK(test.DataFile() != saved);
}

TEST_CASE("autosave: held back while a command waits for a dialog") {
    TestForm test;
    test.PutBook(u"/b/a.txt");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.form.autosaveTick = 58;
    test.Dialogs().whileOpen = [&] { test.Timer().Tick(5); };
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.form.autosaveTick == 58);
    test.Timer().Tick();
    CHECK(test.form.autosaveTick == 59);
}

TEST_CASE("shutdown: saves place and placement in one write") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(500));
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.View().ScrollLineToTop(1000);
    test.Window().DragTo({15, 16, 417, 318});
    const auto writes = test.Files().replaceCalls.size();
    test.Close();
    CHECK(test.Files().replaceCalls.size() == writes + 1);
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.Window().Bounds() == Rect{15, 16, 417, 318});
    CHECK(next.View().FirstVisibleChar() == test.View().FirstVisibleChar());
}

TEST_CASE("start-up: a book on the command line opens in place of the last one") {
    TestForm first;
    first.PutBook(u"/b/a.txt");
    first.PutBook(u"/b/given.txt");
    REQUIRE(first.Start());
    OpenBook(first.form, u"/b/a.txt");
    first.Close();
    TestForm second(first);
    second.form.ports.launch.commandLine = u"/b/given.txt";
    REQUIRE(second.Start());
    CHECK(second.Order() == std::vector<std::u16string>{u"/b/given.txt", u"/b/a.txt"});
    CHECK(second.Menu().mFileList[0].checked);
    second.Close();
    TestForm third(second); // and it is the last one read from now on
    REQUIRE(third.Start());
    CHECK(third.Window().title == u"Norvaset [Default] - /b/given.txt");
}

TEST_CASE("start-up: a missing book on the command line is reported, and the last one opens") {
    TestForm first;
    first.PutBook(u"/b/a.txt");
    REQUIRE(first.Start());
    OpenBook(first.form, u"/b/a.txt");
    first.Close();
    TestForm second(first);
    second.form.ports.launch.commandLine = u"/b/none.txt";
    REQUIRE(second.Start());
    REQUIRE(second.Dialogs().messages.size() == 1);
    CHECK(second.Dialogs().messages[0].text == u"/b/none.txt\r\nfile not found.");
    CHECK(second.Window().title == u"Norvaset [Default] - /b/a.txt");
}

TEST_CASE("start-up: a message waits for the window") {
    TestForm test;
    test.form.ports.launch.commandLine = u"/b/gone.txt";
    REQUIRE(Form_Load(test.form));
    CHECK(test.Window().open);
    CHECK(test.Dialogs().messages.empty());
    bool answered = false;
    test.Dialogs().whileOpen = [&] { answered = test.Window().open && test.form.handling; };
    test.Window().ComeUp();
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text == u"/b/gone.txt\r\nfile not found.");
    CHECK(answered);
    OpenBook(test.form, u"/b/gone.txt"); // later ones come at once
    CHECK(test.Dialogs().messages.size() == 2);
}

TEST_CASE(
    "start-up: messages that wait come when a command is done, and not over a closed window") {
    TestForm test;
    test.form.ports.launch.commandLine = u"/b/gone.txt";
    REQUIRE(Form_Load(test.form));
    RunCommand(test.form, [&] {
        test.Window().ComeUp();
        CHECK(test.Dialogs().messages.empty());
    });
    CHECK(test.Dialogs().messages.size() == 1);

    TestForm closed;
    closed.form.ports.launch.commandLine = u"/b/gone.txt";
    REQUIRE(Form_Load(closed.form));
    ShowBookMessage(closed.form.messages, u"another");
    closed.Dialogs().whileOpen = [&] { closed.Close(); };
    closed.Window().ComeUp();
    CHECK(closed.Dialogs().messages.size() == 1);
}
