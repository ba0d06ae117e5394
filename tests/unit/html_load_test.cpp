#include "html_form.h"

#include "formats/codepages/charsets.h"

#include <doctest/doctest.h>

TEST_CASE("html charsets: an engine's names become those of the table") {
    struct Case {
        const char* name;
        int codePage;
    };
    const Case table[] = {
        {"Shift_JIS", 932},      {"GBK", 936},
        {"gb18030", 936},        {"GB2312", 936},
        {"EUC-KR", 949},         {"ks_c_5601-1987", 949},
        {"Big5", 950},           {"windows-1251", 1251},
        {"Windows-1258", 1258},  {"windows-874", 874},
        {"TIS-620", 874},        {"UTF-8", 1200},
        {"ISO-8859-1", 1200},    {"EUC-JP", 1200},
        {"KOI8-R", 1200},        {"", 1200},
        {"windows-12511", 1200}, {"JOHAB", 1361},
        {"IBM437", 437},
    };
    for (const Case& row : table)
        CHECK_MESSAGE(CharsetCodePage(CharsetTableName(row.name)) == row.codePage, row.name);
}

TEST_CASE("html load: the view changes, and the page is brought to what the record says") {
    HtmlForm test;
    test.PutHistory("/b/p.htm=2021:1:1:1:1:1=2==2=0=0=0=0=0=1=0=0=16711680=1200=6=Old=20,4\r\n");
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    CHECK(test.Page().navigations == std::vector<std::u16string>{u"/b/p.htm"});
    CHECK(test.Page().visible);
    CHECK(test.Page().focused > 0);
    CHECK_FALSE(test.View().Visible());
    CHECK(test.View().TextLength() == 0);
    CHECK(test.View().BackColor() == 0xFF0000);
    CHECK(test.Menu().mFileEdit[0].tag == u"2");
    CHECK(test.ZoomTag() == u"2");
    CHECK(test.Page().bounds == Rect{-2, -2, 800, 562});
    CHECK(test.Menu().mBookmarkList[0].caption == u" "); // named when the page is there
    CHECK(test.Page().zoomKeys.empty());

    const auto writes = test.Files().replaceCalls.size();
    test.Page().FinishLoading();
    CHECK(test.Files().replaceCalls.size() == writes);
    CHECK(test.Page().ScrollTop() == 1200);
    CHECK(test.Page().backColors == std::vector<Color>{0xFF0000});
    CHECK(test.Page().zoomKeys == std::vector<bool>{true, true});
    CHECK(test.Record(0)[Field::Title] == u"A Page");
    CHECK(test.Window().title == u"Norvaset [A] - A Page");
    CHECK(test.Menu().mFileList[0].caption.ends_with(u"/b/p.htm\t= A Page"));
    CHECK(test.Menu().mBookmarkList[0].caption == u" lin");
    CHECK(test.Menu().mBookmarkDeleteList[0].caption == u" lin");
    CHECK(test.Record(0)[Field::Marks] == u"20,4");
    test.Autosave();
    CHECK(test.Record(0)[Field::LastPos] == u"1200");
    CHECK(test.Record(0)[Field::FontSize] == u"2");
}

TEST_CASE("html load: addresses without a document are nothing") {
    for (const char16_t* url : {u"", u"http:///", u"HTTP:///"}) {
        HtmlForm test;
        test.PutPage(u"/b/p.htm");
        REQUIRE(test.Start());
        OpenBook(test.form, u"/b/p.htm");
        test.Page().onLoaded(test.Page().loads.back(), url);
        CHECK(test.Record(0)[Field::Title] == u"");
        CHECK(test.Page().scrolls.empty());
        test.Page().FinishLoading(); // the document itself still comes
        CHECK(test.Record(0)[Field::Title] == u"A Page");
    }
}

TEST_CASE("html load: titles become one line of a record") {
    struct Case {
        const char16_t *title, *stored;
    };
    const Case table[] = {
        {u"", u""},
        {u"  two words  ", u"two words"},
        {u"&#1050;&#x43D;iga", u"\u041A\u043Diga"},
        {u"a = b", u"a &#61; b"},
        {u"a&#61;b", u"a&#61;b"},
        {u"one\r\ntwo\tthree", u"one  two three"},
        {u"\u041A\u043D", u"\u041A\u043D"},
    };
    for (const Case& row : table) {
        HtmlForm test;
        NonePage page = HtmlForm::LongPage();
        page.title = row.title;
        test.PutPage(u"/b/p.htm", page);
        REQUIRE(test.Start());
        test.OpenLoaded(u"/b/p.htm");
        CHECK(test.Record(0)[Field::Title] == row.stored);
        CHECK(test.Record(0)[Field::Marks] == u"");
    }
}

TEST_CASE("html load: a title of any length leaves room for the rest of the record") {
    HtmlForm test;
    NonePage page = HtmlForm::LongPage();
    page.title = std::u16string(1 << 20, u'=');
    test.PutPage(u"/b/p.htm", page);
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().Select({100, 5});
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    test.Close();
    HtmlForm next(test);
    next.PutPage(u"/b/p.htm", page);
    REQUIRE(next.Start());
    CHECK(next.Record(0)[Field::Marks] == u"100,5");
}

TEST_CASE("html load: without a title the caption shows the path only, also after one was set") {
    HtmlForm test;
    test.PutHistory("/b/p.htm=2021:1:1:1:1:1=2=============Set by hand=\r\n");
    NonePage page;
    page.text = u"text";
    test.PutPage(u"/b/p.htm", page);
    REQUIRE(test.Start());
    test.Page().FinishLoading();
    CHECK(test.Record(0)[Field::Title] == u"");
    CHECK(test.Menu().mFileList[0].caption.ends_with(u"/b/p.htm"));
    CHECK(test.Window().title == u"Norvaset [A] - /b/p.htm");
}

TEST_CASE("html load: the charset of the document is kept") {
    struct Case {
        const char* name;
        const char16_t* charset;
    };
    for (const Case& row : {Case{"windows-1251", u"204"}, Case{"utf-8", u"0"},
                            Case{"Shift_JIS", u"128"}, Case{"GBK", u"134"}}) {
        HtmlForm test;
        NonePage page = HtmlForm::LongPage();
        page.charset = row.name;
        test.PutPage(u"/b/p.htm", page);
        REQUIRE(test.Start());
        test.OpenLoaded(u"/b/p.htm");
        CHECK(test.Record(0)[Field::Charset] == row.charset);
        test.Autosave();
        CHECK(test.Record(0)[Field::Charset] == row.charset);
    }
}

TEST_CASE("html load: a step of -2 sends two keys, of 0 none, and an absurd one a bounded number") {
    struct Case {
        const char* stored;
        std::size_t keys;
        bool larger;
    };
    for (const Case& row : {Case{"-2", 2, false}, Case{"0", 0, false}, Case{"", 0, false},
                            Case{"3", 3, true}, Case{"2000000000", 100, true}}) {
        HtmlForm test;
        test.PutHistory("/b/p.htm==2==" + std::string(row.stored) + "=\r\n");
        test.PutPage(u"/b/p.htm");
        REQUIRE(test.Start());
        test.Page().FinishLoading();
        CHECK(test.Page().zoomKeys == std::vector<bool>(row.keys, row.larger));
        CHECK(test.form.page.pendingZoomKeys == static_cast<int>(row.keys));
        const auto tag = test.ZoomTag();
        test.DeliverZoomKeys();
        CHECK(test.form.page.pendingZoomKeys == 0);
        CHECK(test.ZoomTag() == tag); // counted when they were sent
    }
}

TEST_CASE("html load: a document without a body keeps place, zoom and its charset field") {
    HtmlForm test;
    test.PutHistory("/b/p.htm=2021:1:1:1:1:1=2==-1=0=0=0=0=0=1=0=0=0=700=6==\r\n");
    NonePage page;
    page.hasBody = false;
    page.title = u"Frames";
    test.PutPage(u"/b/p.htm", page);
    REQUIRE(test.Start());
    test.Page().FinishLoading();
    CHECK(test.Record(0)[Field::Title] == u"Frames");
    test.Autosave();
    CHECK(test.Record(0)[Field::LastPos] == u"700");
    CHECK(test.Record(0)[Field::FontSize] == u"-1");
}

TEST_CASE("html load: reopened at its place, in its size and colour, with its marks") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().Select({100, 5});
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    test.Page().ScrollByHand(777);
    test.Press(MinusKey, CtrlKey);
    test.Dialogs().colorAnswer = {DialogResult::Ok, 0x00FF10};
    test.Choose(test.Menu().mView, test.Menu().mViewBackground);
    OpenBook(test.form, u"/b/a.txt");
    CHECK(test.View().Visible());
    CHECK_FALSE(test.Page().visible);
    CHECK_FALSE(test.Page().HasBody());
    test.View().ScrollLineToTop(500);
    test.Menus().Click(test.Menu().mFileList, 1);
    CHECK(test.Record(1).Number(Field::LastPos) == 494);
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 777);
    CHECK(test.ZoomTag() == u"-1");
    CHECK(test.Page().backColors.back() == 0x00FF10);
    CHECK(test.Record(0)[Field::Marks] == u"100,5");
    test.Close();
    HtmlForm next(test);
    next.PutPage(u"/b/p.htm");
    REQUIRE(next.Start());
    next.Page().FinishLoading();
    CHECK(next.Page().ScrollTop() == 777);
    CHECK(next.Page().zoomKeys == std::vector<bool>{false});
    CHECK(next.Page().backColors.back() == 0x00FF10);
    CHECK(next.Record(0)[Field::Marks] == u"100,5");
}

TEST_CASE("html load: who scrolls a page without a place while it loads stays there") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/p.htm");
    test.Page().ShowPage();
    test.Page().ScrollByHand(300);
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 300);
    test.Autosave();
    CHECK(test.Record(0)[Field::LastPos] == u"300");
}

TEST_CASE("html load: a new book takes the present zoom, its size and no place") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutPage(u"/b/q.htm");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/p.htm");
    CHECK(test.Record(0)[Field::Filter] == u"2");
    CHECK(test.Record(0)[Field::FontSize] == u"");
    CHECK(test.Record(0)[Field::LastPos] == u"");
    test.Page().FinishLoading();
    test.Press(PlusKey, CtrlKey);
    test.Page().ScrollByHand(400);
    OpenBook(test.form, u"/b/q.htm");
    CHECK(test.Record(0)[Field::FontSize] == u"1");
    CHECK(test.Record(0)[Field::LastPos] == u"");
    CHECK(test.Record(0)[Field::Size] == u"6");
    CHECK(test.Record(1)[Field::LastPos] == u"400"); // the book left keeps its place
}

TEST_CASE("html load: a page whose file is gone or barred is reported, and the shown book stays") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutPage(u"/b/q.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/q.htm");
    test.OpenLoaded(u"/b/p.htm");
    test.Files().readFailure[u"/b/q.htm"] = ReadStatus::Denied;
    test.Menus().Click(test.Menu().mFileList, 1);
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text == u"/b/q.htm\r\ncannot be read: access is denied.");
    test.Files().readFailure.clear();
    test.Files().Remove(u"/b/q.htm");
    OpenBook(test.form, u"/b/q.htm");
    REQUIRE(test.Dialogs().messages.size() == 2);
    CHECK(test.Dialogs().messages[1].text == u"/b/q.htm\r\nfile not found.");
    CHECK(test.Page().visible);
    CHECK(test.Order()[0] == u"/b/p.htm");
    CHECK(test.Page().navigations.back() == u"/b/p.htm");
    test.Page().ScrollByHand(300);
    test.Autosave();
    CHECK(test.Record(0)[Field::LastPos] == u"300");
}

TEST_CASE("html load: a page is recognised by any of its usual endings") {
    for (const char16_t* path : {u"/b/p.htm", u"/b/p.HTML", u"/b/p.xhtml"}) {
        HtmlForm test;
        test.PutPage(path);
        REQUIRE(test.Start());
        test.OpenLoaded(path);
        CHECK(test.Page().navigations == std::vector<std::u16string>{path});
        CHECK(test.Record(0)[Field::Filter] == u"2");
    }
}

TEST_CASE("html load: a place is stored as it is known, and exactly when its page is left") {
    enum class Left { Closed, OtherBook, ReadAgain };
    for (const Left left : {Left::Closed, Left::OtherBook, Left::ReadAgain}) {
        CAPTURE(int(left));
        HtmlForm test;
        test.PutPage(u"/b/p.htm");
        test.PutBook(u"/b/other.txt", "text");
        REQUIRE(test.Start());
        test.OpenLoaded(u"/b/p.htm");
        test.Page().ScrollByHand(300);
        test.Autosave();
        test.Page().isMeasured = false; // by another width, say
        test.Page().ScrollByHand(700);
        const int questions = test.Page().questions;
        test.Autosave();
        CHECK(test.Page().questions == questions);
        CHECK(test.Record(0)[Field::LastPos] == u"300");
        if (left == Left::Closed) test.Close();
        if (left == Left::OtherBook) OpenBook(test.form, u"/b/other.txt");
        if (left == Left::ReadAgain) test.Choose(test.Menu().mView, test.Menu().mViewRefresh);
        CHECK(test.Record(left == Left::OtherBook ? 1 : 0)[Field::LastPos] == u"700");
    }
}

TEST_CASE("html load: keys wait for a place, where a page is brought to one") {
    struct Case {
        const char* place;
        bool expected;
    };
    for (const Case& row : {Case{"1200", true}, Case{"0", false}, Case{"", false}}) {
        HtmlForm test;
        test.PutHistory(std::string("/b/p.htm=2021:1:1:1:1:1=2==0=0=0=0=0=0=1=0=0=16711680=") +
                        row.place + "=6=Old=\r\n");
        test.PutPage(u"/b/p.htm");
        REQUIRE(test.Start());
        CHECK(test.Page().placeExpected == row.expected);
        CHECK(test.Page().backColorExpected == 0xFF0000); // as the record has it
    }
}
