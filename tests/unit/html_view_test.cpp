// Zoom, colour, keys and commands of a page.
#include "html_form.h"

#include <doctest/doctest.h>

namespace {
struct Reading : HtmlForm {
    Reading() {
        PutPage(u"/b/p.htm");
        PutBook(u"/b/a.txt", NumberedLines(300));
        Start();
        OpenLoaded(u"/b/p.htm");
    }
};
} // namespace

TEST_CASE("html view: what only a text can have is greyed") {
    Reading test;
    MenuTree& menu = test.Menu();
    for (const bool text : {false, true}) {
        if (text) OpenBook(test.form, u"/b/a.txt");
        test.Menus().Open(menu.mView);
        CHECK(menu.mViewFont[0].enabled == text);
        CHECK(menu.mViewWordWrap[0].enabled == text);
        for (const MenuItem& item : menu.mViewAlign.items)
            CHECK(item.enabled == text);
        CHECK(menu.mViewRefresh[0].enabled);
        CHECK(menu.mViewBackground[0].enabled);
        CHECK(menu.mViewFontSize[0].enabled);
        CHECK(menu.mViewFontSize[1].enabled);
    }
}

TEST_CASE(
    "html zoom: larger twice is a step of 2, and the keys that arrive are not counted again") {
    Reading test;
    for (int i = 0; i < 2; ++i)
        test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 0);
    CHECK(test.ZoomTag() == u"2");
    CHECK(test.form.page.pendingZoomKeys == 2);
    CHECK(test.Record(0)[Field::FontSize] == u"2");
    CHECK(test.form.format.font.size == 10); // the text's own size stays
    test.DeliverZoomKeys();
    CHECK(test.form.page.pendingZoomKeys == 0);
    CHECK(test.ZoomTag() == u"2");
    test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 1);
    CHECK(test.Page().zoomKeys == std::vector<bool>{false});
    test.DeliverZoomKeys();
    CHECK(test.Record(0)[Field::FontSize] == u"1");
}

TEST_CASE("html zoom: keys that arrive under a dialog are counted off, too") {
    Reading test;
    test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 0);
    test.Dialogs().whileOpen = [&] { test.DeliverZoomKeys(); };
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.form.page.pendingZoomKeys == 0);
    test.Press(PlusKey, CtrlKey);
    CHECK(test.ZoomTag() == u"2");
}

TEST_CASE("html zoom: the user's keys") {
    struct Case {
        int key, shift;
        const char16_t* step; // from 3
    };
    const Case table[] = {
        {PlusKey, CtrlKey, u"4"},     {MinusKey, CtrlKey, u"2"},
        {48, CtrlKey, u"0"},          {PlusKey, 0, u"3"},
        {MinusKey, AltKey, u"3"},     {49, CtrlKey, u"3"},
        {107, CtrlKey, u"3"},         {PlusKey, CtrlKey | ShiftKey, u"4"},
        {48, CtrlKey | AltKey, u"3"}, // types a character on some keyboards
    };
    for (const Case& row : table) {
        Reading test;
        for (int i = 0; i < 3; ++i)
            test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 0);
        test.DeliverZoomKeys();
        test.Press(row.key, row.shift);
        CHECK(test.ZoomTag() == row.step);
        CHECK(test.Record(0)[Field::FontSize] == row.step);
        CHECK(test.Page().zoomKeys.empty()); // the view has zoomed by itself
        CHECK(test.form.format.font.size == 10);
    }
}

TEST_CASE("html zoom: in a text the keys size the font when they go up") {
    Reading test;
    OpenBook(test.form, u"/b/a.txt");
    test.form.menu.mViewFont[0].tag = u"3";
    test.Window().Events().onKeyDown(PlusKey, CtrlKey);
    CHECK(test.form.format.font.size == 10);
    test.Window().Events().onKeyUp(PlusKey, CtrlKey);
    CHECK(test.form.format.font.size == 11);
    test.Press(48, CtrlKey);
    CHECK(test.form.format.font.size == 11);
    CHECK(test.ZoomTag() == u"3");
}

TEST_CASE("html zoom: the wheel sends a key for each step") {
    Reading test;
    test.Window().Events().onZoom(-2);
    CHECK(test.Page().zoomKeys == std::vector<bool>{false, false});
    test.DeliverZoomKeys();
    CHECK(test.ZoomTag() == u"-2");
}

TEST_CASE("html zoom: keys of a page left do not swallow those of the next") {
    Reading test;
    test.PutPage(u"/b/q.htm");
    test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 0);
    test.OpenLoaded(u"/b/q.htm"); // with the present step
    CHECK(test.form.page.pendingZoomKeys == 1);
    test.Page().zoomKeys.erase(test.Page().zoomKeys.begin());
    test.DeliverZoomKeys();
    test.Press(PlusKey, CtrlKey);
    CHECK(test.ZoomTag() == u"2");
}

TEST_CASE("html background: goes to the page") {
    Reading test;
    test.Page().backColors.clear();
    test.Dialogs().colorAnswer = {DialogResult::Ok, 0x112233};
    test.Choose(test.Menu().mView, test.Menu().mViewBackground);
    CHECK(test.Page().backColors == std::vector<Color>{0x112233});
    CHECK(test.Record(0)[Field::BackColor] == u"1122867");
    test.Choose(test.Menu().mView, test.Menu().mViewBackground); // the same again
    CHECK(test.Page().backColors.size() == 1);
    test.Choose(test.Menu().mView, test.Menu().mViewRefresh);
    test.Dialogs().colorAnswer = {DialogResult::Ok, 0x445566};
    test.Choose(test.Menu().mView, test.Menu().mViewBackground);
    CHECK(test.Page().backColors.size() == 1); // no document yet
    test.Page().FinishLoading();
    CHECK(test.Page().backColors.back() == 0x445566);
}

TEST_CASE("html commands: those of the view's menu are the program's, but Print, which is the "
          "view's own") {
    Reading test;
    test.Page().Select({5, 2});
    test.Page().onCommand(PageCommand::Copy);
    CHECK(test.Clip() == u"0\n");
    test.Page().onCommand(PageCommand::Print);
    CHECK(test.Dialogs().findRequests.empty());
    CHECK(test.Dialogs().openRequests.empty());
    test.Page().onCommand(PageCommand::Find);
    CHECK(test.Dialogs().findRequests.size() == 1);
    test.Page().onCommand(PageCommand::Open);
    CHECK(test.Dialogs().openRequests.size() == 1);
    test.Page().onCommand(PageCommand::SelectAll);
    CHECK(test.Page().Selection().span.length ==
          static_cast<TextPos>(HtmlForm::LongPage().text.size()));
}

TEST_CASE("html drop: a file dropped on the page is opened") {
    Reading test;
    test.Page().onFilesDropped({u"/b/a.txt"});
    CHECK(test.Order()[0] == u"/b/a.txt");
    CHECK(test.View().Visible());
}
