#include "test_form.h"

#include "common/text.h"

#include "app/bookmark_menu.h"
#include "app/open_book.h"
#include "reading/bookmarks.h"

#include <doctest/doctest.h>

namespace {
struct Reading : TestForm {
    Reading() {
        PutBook(u"/b/a.txt", NumberedLines(300));
        Start();
        OpenBook(form, u"/b/a.txt");
    }
    void Define(TextPos start, TextPos length = 0) {
        View().Select(start, length);
        Menus().Open(Menu().mBookmark);
        Menus().Click(Menu().mBookmarkNew);
    }
    void Choose(MenuArray& command, int index = 0) {
        Menus().Open(Menu().mBookmark);
        Menus().Click(command, index);
    }
    std::u16string Marks() { return Record(0)[Field::Marks]; }
};
} // namespace

TEST_CASE("bookmarks: twice at one start replaces the length") {
    Reading test;
    test.Define(50, 5);
    test.Define(50, 7);
    CHECK(test.Marks() == u"50,7");
    CHECK(test.Menu().mBookmarkList.Count() == 1);
}

TEST_CASE("bookmarks: defined out of order they are kept in order") {
    Reading test;
    for (const TextPos start : {500, 100, 900, 300, 700})
        test.Define(start, 6);
    CHECK(test.Marks() == u"100,6|300,6|500,6|700,6|900,6");
    CHECK(test.Menu().mBookmarkList[1].caption == u"8 line"); // a line end shows as a blank
    CHECK(test.Menu().mBookmarkDeleteList.Count() == 5);
    CHECK(test.Menu().mBookmarkDeleteList[4].caption == test.Menu().mBookmarkList[4].caption);
    REQUIRE(test.Menus().shown == &test.Menu().mBookmark);
    test.Menus().Open(*test.Menus().shown);
    for (int i = 0; i < 5; ++i)
        CHECK(test.Menu().mBookmarkList[i].isDefault == (i == 3)); // the last one defined
    test.Menus().Open(test.Menu().mBookmark);
    CHECK_FALSE(test.Menu().mBookmarkList[3].isDefault);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.Record(0)[Field::Marks] == u"100,6|300,6|500,6|700,6|900,6");
    CHECK(next.Menu().mBookmarkList.Count() == 5);
}

TEST_CASE("bookmarks: one where no text follows is shown as that, with its caption left as it is") {
    TestForm test;
    test.PutBook(u"/b/a.txt", "one line" + std::string(200, '\n'));
    test.Start();
    OpenBook(test.form, u"/b/a.txt");
    for (const TextPos start : {4, 50, test.View().TextLength()}) {
        test.View().Select(start, 0);
        test.Menus().Open(test.Menu().mBookmark);
        test.Menus().Click(test.Menu().mBookmarkNew);
    }
    for (const MenuArray* list : {&test.Menu().mBookmarkList, &test.Menu().mBookmarkDeleteList}) {
        REQUIRE(list->Count() == 3);
        CHECK((*list)[0].ShownCaption().starts_with(u"line"));
        CHECK(TrimBlanks((*list)[1].caption).empty());
        CHECK((*list)[1].ShownCaption() == u"(no text)");
        CHECK((*list)[2].ShownCaption() == u"(no text)");
    }
    test.Menus().Click(test.Menu().mBookmarkDeleteList, 2);
    test.Menus().Click(test.Menu().mBookmarkDeleteList, 1);
    CHECK(test.Menu().mBookmarkList[0].shown.empty());
}

TEST_CASE("bookmarks: the length of a mark") {
    Reading test;
    test.Define(10, 0);
    test.Define(20, 200);
    test.Define(30, 80);
    test.Define(40, 81);
    test.Define(50, 1);
    CHECK(test.Marks() == u"10,81|20,81|30,80|40,81|50,1");
}

TEST_CASE("bookmarks: none at the beginning of the book, none without a book") {
    Reading test;
    test.Define(0, 5);
    CHECK_FALSE(test.Menu().mBookmarkNew[0].enabled);
    mBookmarkNew_Click(test.form, 0);
    CHECK(test.Marks() == u"");
    TestForm empty;
    REQUIRE(empty.Start());
    CHECK_FALSE(empty.Menu().mBookmark[0].enabled);
}

TEST_CASE("bookmarks: next counts from 0 when there is no current one") {
    Reading test;
    test.Define(100);
    test.Define(200);
    SUBCASE("in a book just opened") {
        CHECK(test.Menu().mBookmark[0].tag == u"-1");
    }
    SUBCASE("after it was let go of") {
        test.Menu().mBookmark[0].tag = u"";
    }
    test.Menus().Open(test.Menu().mBookmark);
    CHECK(test.Menu().mBookmarkNext[0].enabled);
    CHECK_FALSE(test.Menu().mBookmarkPrev[0].enabled);
    test.Choose(test.Menu().mBookmarkNext);
    CHECK(test.Menu().mBookmark[0].tag == u"1");
    CHECK(test.View().SelStart() == 199); // the highlight begins one character before the mark
    CHECK(test.View().SelLength() == 81);
    test.Choose(test.Menu().mBookmarkList, 0);
    CHECK(test.Menu().mBookmarkList[0].checked);
    test.Choose(test.Menu().mBookmarkNext);
    CHECK(test.Menu().mBookmark[0].tag == u"1");
    CHECK_FALSE(test.Menu().mBookmarkList[0].checked);
    test.Choose(test.Menu().mBookmarkPrev);
    CHECK(test.Menu().mBookmark[0].tag == u"0");
}

TEST_CASE("bookmarks: the last unmarked position is the one before the last jump from the list") {
    Reading test;
    test.Define(500);
    test.Define(1500);
    test.Menus().Open(test.Menu().mBookmark);
    CHECK_FALSE(test.Menu().mBookmarkLast[0].enabled);
    test.View().ScrollLineToTop(250);
    const TextPos before = test.View().FirstVisibleChar();
    test.Choose(test.Menu().mBookmarkList, 0);
    const TextPos atFirst = test.View().FirstVisibleChar();
    test.Choose(test.Menu().mBookmarkList, 1);
    CHECK(test.Menu().mBookmarkLast[0].tag == NumberText(atFirst));
    CHECK(atFirst != before);
    test.Choose(test.Menu().mBookmarkPrev);
    CHECK(test.Menu().mBookmarkLast[0].tag == NumberText(atFirst));
    test.View().ScrollLineToTop(0);
    test.Choose(test.Menu().mBookmarkLast);
    CHECK(test.View().FirstVisibleChar() == atFirst);
    CHECK(test.Menu().mBookmarkLast[0].tag == u"");
    CHECK(test.Menu().mBookmark[0].tag == u"");
    CHECK_FALSE(test.Menu().mBookmarkList[0].checked);
}

TEST_CASE("bookmarks: the last unmarked position is one of the shown book") {
    Reading test;
    test.PutBook(u"/b/b.txt", NumberedLines(300));
    test.Define(500);
    test.Choose(test.Menu().mBookmarkList);
    const std::u16string last = test.Menu().mBookmarkLast[0].tag;
    CHECK(last != u"");
    test.Menus().Open(test.Menu().mView);
    test.Menus().Click(test.Menu().mViewRefresh);
    CHECK(test.Menu().mBookmarkLast[0].tag == last);
    OpenBook(test.form, u"/b/b.txt");
    test.Menus().Open(test.Menu().mBookmark);
    CHECK_FALSE(test.Menu().mBookmarkLast[0].enabled);
}

TEST_CASE("bookmarks: deleting the only one hides item and separator") {
    Reading test;
    test.Define(100);
    test.Menus().Open(test.Menu().mBookmark);
    CHECK(test.Menu().mBookmarkDelete[0].enabled);
    test.Choose(test.Menu().mBookmarkDeleteList, 0);
    CHECK(test.Marks() == u"");
    CHECK_FALSE(test.Menu().mBookmarkList[0].visible);
    CHECK_FALSE(test.Menu().mBookmarkSeparator[0].visible);
    test.Menus().Open(test.Menu().mBookmark);
    CHECK_FALSE(test.Menu().mBookmarkDelete[0].enabled);
    CHECK_FALSE(test.Menu().mBookmarkClearAll[0].enabled);
}

TEST_CASE("bookmarks: deleting one of several closes the gap and unsets it as the current one") {
    Reading test;
    for (const TextPos start : {100, 300, 500})
        test.Define(start, 6);
    test.Choose(test.Menu().mBookmarkList, 1);
    test.Choose(test.Menu().mBookmarkDeleteList, 1);
    CHECK(test.Marks() == u"100,6|500,6");
    CHECK(test.Menu().mBookmark[0].tag == u"");
    test.Choose(test.Menu().mBookmarkList, 1);
    test.Choose(test.Menu().mBookmarkDeleteList, 0);
    CHECK(test.Menu().mBookmark[0].tag == u"1"); // not adjusted for an earlier one
}

TEST_CASE("bookmarks: the checked item is the one that next and previous count from") {
    Reading test;
    for (const TextPos start : {100, 300, 500, 700, 900})
        test.Define(start, 6);
    const auto checked = [&] {
        std::vector<int> indices;
        for (int i = 0; i < test.Menu().mBookmarkList.Count(); ++i)
            if (test.Menu().mBookmarkList[i].checked) indices.push_back(i);
        return indices;
    };
    test.Choose(test.Menu().mBookmarkList, 2);
    SUBCASE("an earlier one goes") {
        test.Choose(test.Menu().mBookmarkDeleteList, 0);
        CHECK(checked() == std::vector{2});
        test.Choose(test.Menu().mBookmarkNext);
        CHECK(checked() == std::vector{3});
        CHECK(test.View().SelStart() == 899);
    }
    SUBCASE("a later one goes") {
        test.Choose(test.Menu().mBookmarkDeleteList, 3);
        CHECK(checked() == std::vector{2});
        test.Choose(test.Menu().mBookmarkPrev);
        CHECK(test.View().SelStart() == 299);
    }
    SUBCASE("an earlier one comes") {
        test.Define(200, 6);
        CHECK(checked() == std::vector{2});
        test.Choose(test.Menu().mBookmarkPrev);
        CHECK(test.View().SelStart() == 199);
    }
    SUBCASE("it goes itself") {
        test.Choose(test.Menu().mBookmarkDeleteList, 2);
        CHECK(checked().empty());
    }
    SUBCASE("the last place goes from under it") {
        test.Choose(test.Menu().mBookmarkList, 4);
        test.Choose(test.Menu().mBookmarkDeleteList, 0);
        CHECK(checked().empty());
        test.Menus().Open(test.Menu().mBookmark);
        CHECK_FALSE(test.Menu().mBookmarkNext[0].enabled);
        CHECK_FALSE(test.Menu().mBookmarkPrev[0].enabled);
    }
}

TEST_CASE("bookmarks: clear all asks first") {
    Reading test;
    test.Define(100);
    test.Define(200);
    test.Dialogs().messageAnswer = DialogResult::Cancel;
    const auto writes = test.Files().replaceCalls.size();
    test.Choose(test.Menu().mBookmarkClearAll);
    CHECK(test.Marks() == u"100,81|200,81");
    CHECK(test.Files().replaceCalls.size() == writes);
    REQUIRE(test.Dialogs().messages.size() == 1);
    const Message& question = test.Dialogs().messages[0];
    CHECK(question.text ==
          u"All bookmarks for this book will be lost.\r\nAre you sure you wish to continue?");
    CHECK(question.title == u"Norvaset");
    CHECK(question.buttons == MessageButtons::OkCancel);
    CHECK(question.cancelIsDefault);
    test.Dialogs().messageAnswer = DialogResult::Ok;
    test.Choose(test.Menu().mBookmarkClearAll);
    CHECK(test.Marks() == u"");
    CHECK_FALSE(test.Menu().mBookmarkList[0].visible);
}

TEST_CASE("bookmarks: tags that are not two numbers get no caption and do no harm") {
    Reading test;
    LoadBookmarks(test.form, u"x|5,3|1,2,3");
    CHECK(test.Menu().mBookmarkList[0].caption == u" ");
    CHECK(test.Menu().mBookmarkList[1].caption == u"0 l");
    test.Choose(test.Menu().mBookmarkList, 0);
    CHECK(test.Menu().mBookmarkList[0].checked);
}

TEST_CASE("bookmarks: a mark of an edited record ends where positions do") {
    const auto mark = ParseMark(u"2147483647,2147483647");
    REQUIRE(mark);
    CHECK(mark->start == 2147483647);
    CHECK(mark->length == 0);
    CHECK(ParseMark(u"2147483600,100")->length == 47);
    CHECK(ParseMark(u"5,-3")->length == 0);
}
