// Bookmarks of a page.
#include "html_form.h"

#include <doctest/doctest.h>

namespace {
struct Reading : HtmlForm {
    explicit Reading(const NonePage& page = LongPage()) {
        PutPage(u"/b/p.htm", page);
        Start();
        OpenLoaded(u"/b/p.htm");
    }
    void Define() { Choose(Menu().mBookmark, Menu().mBookmarkNew); }
    void DefineAt(TextPos start, TextPos length) {
        Page().Select({start, length});
        Define();
    }
    bool CanDefine() {
        Menus().Open(Menu().mBookmark);
        return Menu().mBookmarkNew[0].enabled;
    }
    std::u16string Marks() { return Record(0)[Field::Marks]; }
};
} // namespace

TEST_CASE("html marks: refused at the beginning of the book only") {
    Reading test;
    CHECK_FALSE(test.CanDefine());
    test.Page().Select({3, 0});
    CHECK_FALSE(test.CanDefine()); // still the first line
    test.Page().Select({9, 0});
    CHECK(test.CanDefine());
    test.Page().Select({0, 0});
    test.Page().ScrollByHand(160);
    CHECK(test.CanDefine());
    test.Page().ScrollSpanToTop({700, 1});
    test.Page().Select({700, 1}); // the first line of the view, but not of the book
    CHECK(test.Page().Selection().top == test.Page().TopMargin());
    CHECK(test.CanDefine());
    test.Choose(test.Menu().mView, test.Menu().mViewRefresh);
    CHECK_FALSE(test.CanDefine());     // no body
    CHECK(test.Page().questions == 0); // an opening menu waits for nothing
}

TEST_CASE("html marks: the selection up to 80 characters, or what follows the caret") {
    struct Case {
        TextPos start, length;
        const char16_t* mark;
    };
    for (const Case& row : {Case{50, 6, u"50,6"}, Case{50, 80, u"50,80"}, Case{50, 200, u"50,80"},
                            Case{50, 0, u"50,80"}}) {
        Reading test;
        test.DefineAt(row.start, row.length);
        CHECK(test.Marks() == row.mark);
    }
    NonePage page;
    page.text = u"one\ntwo\nthree";
    Reading test(page);
    test.DefineAt(8, 0); // the text ends before 80
    CHECK(test.Marks() == u"8,5");
    CHECK(test.Menu().mBookmarkList[0].caption == u"three");
}

TEST_CASE("html marks: a selection out of sight gives way to the top of the view") {
    for (const TextPos selected : {0, 12}) {
        Reading test;
        test.Page().Select({9, selected});
        test.Page().ScrollByHand(1600);
        test.Define();
        const auto start = static_cast<TextPos>(HtmlForm::LongPage().text.find(u"line 100"));
        CHECK(test.Marks() == NumberText(start) + u",80");
        CHECK(test.Menu().mBookmarkList[0].caption.starts_with(u"line 100 line 101 "));
    }
}

TEST_CASE("html marks: sorted, one at a place, named in menu and delete list, written at once") {
    Reading test;
    test.DefineAt(100, 4);
    test.DefineAt(20, 6);
    test.DefineAt(60, 5);
    CHECK(test.Marks() == u"20,6|60,5|100,4");
    CHECK(test.form.bookmarks.defined == 1);
    CHECK(test.Menus().shown == &test.Menu().mBookmark);
    test.DefineAt(60, 9);
    CHECK(test.Marks() == u"20,6|60,9|100,4");
    const std::u16string text = HtmlForm::LongPage().text;
    for (int i = 0; i < 3; ++i) {
        const auto parts = Split(test.Menu().mBookmarkList[i].tag, u",");
        const auto marked = Replace(text.substr(static_cast<std::size_t>(WholeNumber(parts[0])),
                                                static_cast<std::size_t>(WholeNumber(parts[1]))),
                                    u"\n", u" ");
        CHECK(test.Menu().mBookmarkList[i].caption == marked);
        CHECK(test.Menu().mBookmarkDeleteList[i].caption == marked);
    }
    CHECK(test.DataFile().find("=20,6|60,9|100,4\r\n") != std::string::npos);
}

TEST_CASE("html marks: one question names them all") {
    Reading test;
    for (int i = 1; i <= 40; ++i)
        test.DefineAt(20 * i, 4);
    test.Page().questions = 0;
    test.Choose(test.Menu().mView, test.Menu().mViewRefresh);
    test.Page().FinishLoading();
    CHECK(test.Page().questions == 1);
    CHECK(test.Menu().mBookmarkDeleteList.Count() == 40);
}

TEST_CASE("html marks: going there selects it at the top, and back again") {
    Reading test;
    const auto start = static_cast<TextPos>(HtmlForm::LongPage().text.find(u"line 100"));
    test.DefineAt(start, 8);
    test.DefineAt(start + 9, 8);
    test.Page().ScrollByHand(320);
    MenuTree& menu = test.Menu();
    test.Choose(menu.mBookmark, menu.mBookmarkList, 0);
    CHECK(test.Page().Selection().span == PageSpan{start, 8});
    CHECK(test.Page().ScrollTop() == 1600);
    CHECK(test.Page().Selection().top == test.Page().TopMargin());
    CHECK(menu.mBookmarkList[0].checked);
    CHECK(menu.mBookmarkLast[0].tag == u"320");
    test.Choose(menu.mBookmark, menu.mBookmarkNext);
    CHECK(test.Page().ScrollTop() == 1616);
    CHECK(menu.mBookmarkLast[0].tag == u"320"); // a jump from the list records it alone
    test.Window().Events().onKeyUp(113, AltKey);
    CHECK(test.Page().ScrollTop() == 320);
    CHECK(menu.mBookmarkLast[0].tag == u"");
    CHECK_FALSE(menu.mBookmarkList[1].checked);
    test.Window().Events().onKeyUp(113, AltKey); // nothing more to go back to
    CHECK(test.Page().ScrollTop() == 320);
}

TEST_CASE("html marks: of a damaged record nothing breaks") {
    HtmlForm test;
    test.PutHistory("/b/p.htm==2===============x|5|1,2,3|-4,-9|999999,80|6,3\r\n");
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    test.Page().FinishLoading();
    MenuTree& menu = test.Menu();
    REQUIRE(menu.mBookmarkList.Count() == 6);
    CHECK(menu.mBookmarkList[5].caption == u" li");
    CHECK(menu.mBookmarkList[4].caption == u" ");
    for (int i = 0; i < 6; ++i)
        test.Choose(menu.mBookmark, menu.mBookmarkList, i);
    CHECK(test.Page().Selection().span == PageSpan{6, 3});
}

TEST_CASE("html marks: names of another book do not stay in the delete list") {
    HtmlForm test;
    test.PutHistory("/b/a.txt==0===============5,4\r\n/b/p.htm==2===============20,4\r\n");
    test.PutBook(u"/b/a.txt", NumberedLines(30));
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    REQUIRE(test.Menu().mBookmarkDeleteList[0].caption == u"0 li");
    test.Menus().Click(test.Menu().mFileList, 1);
    CHECK(test.Menu().mBookmarkDeleteList[0].caption == u" ");
    test.Page().FinishLoading();
    CHECK(test.Menu().mBookmarkDeleteList[0].caption == u" lin");
}
