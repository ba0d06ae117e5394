// The size of a page and the place in it belong together, whatever happens before a size is
// settled.
#include "html_form.h"

#include <doctest/doctest.h>

#include <functional>

namespace {
// A page at normal size and 640, whose next size takes its time.
struct Zooming : HtmlForm {
    Zooming() {
        PutPage(u"/b/p.htm");
        PutPage(u"/b/q.htm");
        Start();
        OpenLoaded(u"/b/q.htm");
        OpenLoaded(u"/b/p.htm");
        Page().ScrollByHand(640);
        Page().zoomsAtOnce = false;
    }
    std::u16string Pair(int index = 0) const {
        return Record(index)[Field::FontSize] + u" at " + Record(index)[Field::LastPos];
    }
    // The page settles while it is asked something, as a question comes after all orders.
    void SettleWhileWaiting(int scrollTop) {
        Page().whileWaiting = [this, scrollTop] { Page().FinishZoom(scrollTop); };
    }
};
} // namespace

TEST_CASE("html zoom: the record has size and place of one moment") {
    Zooming test;
    test.Press(PlusKey, CtrlKey);
    CHECK(test.ZoomTag() == u"1");
    CHECK(test.Pair() == u"0 at 640");
    test.Press(PlusKey, CtrlKey);
    test.Autosave();
    CHECK(test.Pair() == u"0 at 640");
    test.Page().FinishZoom(900);
    CHECK(test.Pair() == u"2 at 900");
    CHECK(test.DataFile().find("=900=") != std::string::npos);
    test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 1);
    CHECK(test.Pair() == u"2 at 900");
    test.Page().FinishZoom(800);
    CHECK(test.Pair() == u"1 at 800");
}

TEST_CASE("html zoom: a size that settles under a dialog is stored when that is done") {
    Zooming test;
    test.Press(PlusKey, CtrlKey);
    test.Dialogs().whileOpen = [&] { test.Page().FinishZoom(900); };
    test.Menus().Click(test.Menu().mFileOpen);
    CHECK(test.Pair() == u"1 at 900");
}

TEST_CASE("html zoom: before a page is left its size settles") {
    const std::function<void(Zooming&)> ways[] = {
        [](Zooming& test) { test.Menus().Click(test.Menu().mFileList, 1); },
        [](Zooming& test) { test.Page().onLink(u"file:///b/q.htm", u"/b/q.htm"); },
        [](Zooming& test) { test.Choose(test.Menu().mView, test.Menu().mViewRefresh); },
        [](Zooming& test) {
            test.PutPage(u"/b/new.htm");
            OpenBook(test.form, u"/b/new.htm");
        },
        [](Zooming& test) { test.Close(); },
    };
    for (const bool answers : {true, false})
        for (const auto& leave : ways) {
            Zooming test;
            if (answers) test.SettleWhileWaiting(900);
            test.Page().answers = answers;
            test.Press(PlusKey, CtrlKey);
            leave(test);
            const int index = test.Order()[0] == u"/b/p.htm" ? 0 : 1;
            CHECK(test.Order()[static_cast<std::size_t>(index)] == u"/b/p.htm");
            CHECK(test.Pair(index) == (answers ? u"1 at 900" : u"0 at 640"));
        }
}

TEST_CASE("html zoom: a settled page is left without a question") {
    Zooming test;
    const int asked = test.Page().questions;
    test.Menus().Click(test.Menu().mFileList, 1);
    CHECK(test.Page().questions == asked);
}

TEST_CASE("html zoom: keys pressed while a page loads come after its place") {
    HtmlForm test;
    test.PutHistory("/b/p.htm=2021:1:1:1:1:1=2==2=0=0=0=0=0=1=0=0=16711680=1200=6=Old=\r\n");
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    test.Press(PlusKey, CtrlKey);
    CHECK(test.ZoomTag() == u"3");
    CHECK(test.Record(0)[Field::FontSize] == u"2");
    test.Page().zoomsAtOnce = false;
    test.Page().FinishLoading();
    CHECK(test.Page().zoomKeys == std::vector<bool>{true, true, true});
    test.Autosave();
    CHECK(test.Record(0)[Field::FontSize] == u"2"); // the place is of this size
    CHECK(test.Record(0)[Field::LastPos] == u"1200");
    test.Page().FinishZoom(1500);
    CHECK(test.Record(0)[Field::FontSize] == u"3");
    CHECK(test.Record(0)[Field::LastPos] == u"1500");
}
