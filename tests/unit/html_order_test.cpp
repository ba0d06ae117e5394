// Every order in which a page can load, fail, wait and go: no stored place is lost by it.
#include "html_form.h"

#include <doctest/doctest.h>

namespace {
// Two pages read before, with places 1200 and 800.
struct TwoPages : HtmlForm {
    TwoPages() {
        PutHistory("/b/a.htm=2021:1:1:1:1:1=2==1=0=0=0=0=0=1=0=0=16777215=1200=6=A=20,4\r\n"
                   "/b/b.htm=2021:1:1:1:1:1=2===0=0=0=0=0=1=0=0=16777215=800=6=B=\r\n"
                   "/b/c.txt=2021:1:1:1:1:1=0=Serif=12=0=0=0=0=0=1=0=0=16777215=500=6==\r\n");
        PutPage(u"/b/a.htm");
        PutPage(u"/b/b.htm");
        PutBook(u"/b/c.txt", NumberedLines(300));
        Start(); // navigates to a.htm
    }
    std::u16string PlaceOf(const std::u16string& path) {
        for (int i = 0; i < form.history.Count(); ++i)
            if (GetBookPath(form.history, i) == path) return Record(i)[Field::LastPos];
        return u"not in the list";
    }
    void Open(const std::u16string& path) { OpenBook(form, path); }
    void Click(int index) { Menus().Click(Menu().mFileList, index); }
};
} // namespace

TEST_CASE(
    "html order: saved before the document is there, only time, charset and background change") {
    TwoPages test;
    test.form.format.font.charset = 204;
    test.View().SetBackColor(7);
    test.Autosave();
    CHECK(test.Menu().mFileList[0].tag ==
          u"/b/a.htm=2026:01:02:03:04:05=2==1=204=0=0=0=0=1=0=0=7=1200=6=A=20,4");
}

TEST_CASE("html order: another page is opened before the first has loaded") {
    TwoPages test;
    const int first = test.Page().loads.back();
    test.Click(1);
    CHECK(test.Page().loads.back() != first);
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    test.Page().onLoaded(first, u"file:///b/a.htm"); // a late event of the page left
    CHECK(test.Page().scrolls.empty());
    CHECK(test.Record(0)[Field::Title] == u"B");
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/b.htm") == u"800");
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 800);
    test.Page().ScrollByHand(900);
    test.Page().onLoaded(first, u"file:///b/a.htm");
    test.Close();
    CHECK(test.PlaceOf(u"/b/b.htm") == u"900");
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
}

TEST_CASE("html order: back to the first page before either has loaded") {
    TwoPages test;
    const int first = test.Page().loads.back();
    test.Click(1);
    test.Click(1);
    CHECK(test.Order()[0] == u"/b/a.htm");
    test.Page().onLoaded(first, u"file:///b/a.htm"); // of the load given up, though of this file
    CHECK(test.Page().scrolls.empty());
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 1200);
}

TEST_CASE("html order: a book of text is opened while the page loads") {
    TwoPages test;
    const int first = test.Page().loads.back();
    test.Click(2);
    test.Page().onLoaded(first, u"file:///b/a.htm");
    CHECK(test.Record(0)[Field::Title] == u"");
    CHECK(test.Page().backColors.empty());
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/c.txt") == u"494"); // the start of the line of 500
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    CHECK(test.View().Visible());
}

TEST_CASE("html order: the window closes while the page loads") {
    TwoPages test;
    test.Close();
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    test.Page().FinishLoading(); // too late
    CHECK(test.Page().scrolls.empty());
    CHECK(test.DataFile().find("=1200=6=A=20,4") != std::string::npos);
}

TEST_CASE("html order: a load that never ends blocks nothing") {
    TwoPages test;
    test.Autosave();
    test.Choose(test.Menu().mView, test.Menu().mViewRefresh);
    CHECK(test.Page().navigations.size() == 2);
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 0);
    CHECK(test.Record(0)[Field::FontSize] == u"1");
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkList);
    CHECK(test.Menu().mBookmarkLast[0].tag == u""); // there is no place to come back to
    CHECK_FALSE(test.Menu().mBookmarkNew[0].enabled);
    test.Click(1);
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 800);
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
}

TEST_CASE("html order: a page that loads while a dialog waits is taken in when that is done") {
    TwoPages test;
    test.Dialogs().whileOpen = [&] {
        test.Page().FinishLoading();
        CHECK(test.Page().scrolls.empty());
        test.Autosave();
    };
    test.Dialogs().openAnswer = {DialogResult::Cancel, u"", 1};
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.Page().ScrollTop() == 1200);
    test.Page().ScrollByHand(1300);
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1300");
}

TEST_CASE(
    "html order: a page that loads under the dialog that leaves it is not taken for the next") {
    TwoPages test;
    test.Dialogs().whileOpen = [&] { test.Page().FinishLoading(); };
    test.Dialogs().openAnswer = {DialogResult::Ok, u"/b/b.htm", 3};
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.Page().scrolls.empty());
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 800);
}

TEST_CASE("html order: a second event for the page does not take the reader back") {
    TwoPages test;
    test.Page().FinishLoading();
    test.Page().ScrollByHand(100);
    test.Page().onLoaded(test.Page().loads.back(), u"file:///b/a.htm");
    CHECK(test.Page().ScrollTop() == 100);
}

TEST_CASE("html order: refresh loads again and comes back to the place") {
    TwoPages test;
    test.Page().FinishLoading();
    test.DeliverZoomKeys();
    test.Page().ScrollByHand(1500);
    test.Choose(test.Menu().mView, test.Menu().mViewRefresh);
    test.Autosave(); // while it loads
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 1500);
    CHECK(test.Page().zoomKeys == std::vector<bool>{true});
    CHECK(test.Menu().mFileList[0].checked);
}

TEST_CASE(
    "html order: the engine dies: what was read last is kept, and a refresh starts it again") {
    TwoPages test;
    test.Page().FinishLoading();
    test.Page().ScrollByHand(1400);
    test.Page().Die();
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1400");
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text.starts_with(u"/b/a.htm\r\n"));
    test.Page().ScrollByHand(0);
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1400");
    test.Choose(test.Menu().mEdit, test.Menu().mEditAll);
    CHECK_FALSE(test.Menu().mEditAll[0].enabled);
    test.Choose(test.Menu().mView, test.Menu().mViewRefresh);
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 1400);
}

TEST_CASE("html order: the engine dies while the page loads, and while a text is read") {
    TwoPages test;
    test.Page().Die();
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    CHECK(test.Dialogs().messages.size() == 1);
    test.Click(2);
    test.Page().Die();
    CHECK(test.Dialogs().messages.size() == 1);
    test.Close();
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
}

TEST_CASE("html order: a page that does not answer changes nothing") {
    TwoPages test;
    test.Page().FinishLoading();
    test.Page().Select({50, 6});
    test.Clip() = u"before";
    test.Page().answers = false;
    const auto record = test.Menu().mFileList[0].tag;
    const auto writes = test.Files().replaceCalls.size();
    const auto tops = test.Page().scrolls;
    test.form.find.text = u"line 7";
    MenuTree& menu = test.Menu();
    test.Choose(menu.mEdit, menu.mEditCopy);
    test.Choose(menu.mEdit, menu.mEditCopyRTF);
    test.Choose(menu.mEdit, menu.mEditNext);
    test.Choose(menu.mEdit, menu.mEditTitle);
    test.Choose(menu.mBookmark, menu.mBookmarkNew);
    CHECK(test.Page().questions == 6); // the first one named the bookmark that is there
    CHECK(test.Clip() == u"before");
    CHECK(test.Menu().mFileList[0].tag == record);
    CHECK(test.Page().scrolls == tops);
    CHECK(test.Files().replaceCalls.size() == writes);
    CHECK(test.Menu().mBookmarkList[0].caption == u" lin");
}

TEST_CASE("html order: marks without an answer keep their names at their places") {
    TwoPages test;
    test.Page().FinishLoading();
    test.Page().Select({10, 6});
    test.Page().whileWaiting = [&] {
        // The mark's own text is told, the captions of the list are not.
        if (test.Record(0)[Field::Marks] == u"10,6|20,4") test.Page().answers = false;
    };
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    REQUIRE(test.Menu().mBookmarkList.Count() == 2);
    CHECK(test.Menu().mBookmarkList[0].caption == u"e 1 li");
    CHECK(test.Menu().mBookmarkList[1].caption == u" lin");
    CHECK(test.Menu().mBookmarkDeleteList[1].caption == u" lin");
}

TEST_CASE("html order: while a question waits nothing else starts") {
    TwoPages test;
    test.Page().FinishLoading();
    test.Page().Select({49, 6});
    test.Page().whileWaiting = [&] {
        test.Press('O', CtrlKey);
        test.Menus().Click(test.Menu().mFileList, 1);
        test.Autosave();
        test.Page().onCommand(PageCommand::Find);
    };
    const auto record = test.Menu().mFileList[0].tag;
    test.Choose(test.Menu().mEdit, test.Menu().mEditCopy);
    CHECK(test.Clip() == u"line 7"); // and the copy is done
    CHECK(test.Menu().mFileList[0].tag == record);
    CHECK(test.Dialogs().openRequests.empty());
    CHECK(test.Dialogs().findRequests.empty());
    CHECK(test.Order()[0] == u"/b/a.htm");
}

TEST_CASE("html order: a zoom key of the user counts also while a question waits") {
    TwoPages test;
    test.Page().FinishLoading();
    test.DeliverZoomKeys();
    test.Page().Select({50, 6});
    test.Page().whileWaiting = [&] { test.Press(PlusKey, CtrlKey); };
    test.Choose(test.Menu().mEdit, test.Menu().mEditCopy);
    test.Autosave();
    CHECK(test.Record(0)[Field::FontSize] == u"2");
}

TEST_CASE("html order: the window closes while a question waits") {
    TwoPages test;
    test.Page().FinishLoading();
    test.Page().Select({90, 4});
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    test.Page().ScrollByHand(1600);
    test.Page().whileWaiting = [&] {
        if (test.Page().closing) return;
        test.Page().answers = false;
        test.Close();
        CHECK(test.DataFile().find("=1600=6=") != std::string::npos);
    };
    SUBCASE("for the text to find") {
        test.Choose(test.Menu().mEdit, test.Menu().mEditFind);
        CHECK(test.Dialogs().findRequests.empty());
    }
    SUBCASE("for a mark") {
        test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
        CHECK(test.Record(0)[Field::Marks] == u"20,4|90,4");
    }
    SUBCASE("for the names after a mark was deleted") {
        test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkDeleteList);
        CHECK(test.DataFile().find("=1600=6=A Page=90,4\r\n") != std::string::npos);
    }
    CHECK(test.Window().closed);
    CHECK(test.PlaceOf(u"/b/a.htm") == u"1600");
    test.Autosave();
    test.Press('O', CtrlKey);
    CHECK(test.Dialogs().openRequests.empty());
}

TEST_CASE("html order: the window closes while the captions of a page just loaded are asked for") {
    TwoPages test;
    test.Page().whileWaiting = [&] { test.Close(); };
    test.Page().FinishLoading();
    CHECK(test.Page().questions == 1);
    CHECK(test.DataFile().find("=1200=6=A Page=20,4") != std::string::npos);
}

TEST_CASE("html order: the shown page is taken off the list, its neighbour keeps its record") {
    TwoPages test;
    const std::u16string neighbour = test.Menu().mFileList[1].tag;
    test.Menus().Click(test.Menu().mFileRemoveList, 0);
    test.Page().FinishLoading();
    CHECK(test.Menu().mFileList[0].tag == neighbour);
    test.Page().ScrollByHand(50);
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/b.htm") == u"800");
    CHECK(test.Record(0)[Field::Title] == u"B");
    CHECK(test.Record(0)[Field::Marks] == u"");
}

TEST_CASE("html order: a book of text that moved up under a page keeps place and look") {
    TwoPages test;
    test.Menus().Click(test.Menu().mFileRemoveList, 1);
    test.Page().FinishLoading();
    test.Menus().Click(test.Menu().mFileRemoveList, 0);
    test.Autosave();
    CHECK(test.PlaceOf(u"/b/c.txt") == u"500");
    CHECK(test.Record(0)[Field::FontName] == u"Serif");
}

TEST_CASE("html order: another profile leaves the page, also one that is still loading") {
    for (const bool loaded : {true, false}) {
        CAPTURE(loaded);
        TwoPages test;
        const int first = test.Page().loads.back();
        if (loaded) test.Page().FinishLoading();
        const std::size_t scrolls = test.Page().scrolls.size();
        test.Dialogs().textAnswer = u"Bob";
        test.Menus().Click(test.Menu().mUserNew);
        CHECK(test.Window().title == u"Norvaset [Bob]");
        CHECK_FALSE(test.Page().visible);
        CHECK(test.View().Visible());
        test.Page().onLoaded(first, u"file:///b/a.htm");
        CHECK(test.Page().scrolls.size() == scrolls);
        CHECK(test.Order().empty());
        test.Menus().Click(test.Menu().mProfileList, 1);
        test.Page().FinishLoading();
        CHECK(test.Page().ScrollTop() == 1200);
        CHECK(test.PlaceOf(u"/b/a.htm") == u"1200");
    }
}
