// Books of the list that are opened as another kind.
#include "html_form.h"

#include "books/book_kind.h"
#include "reading/zoom.h"

#include <doctest/doctest.h>

namespace {
constexpr const char16_t *page = u"/b/p.html", *text = u"/b/t.log";

struct Opening : HtmlForm {
    Opening() {
        PutBook(page, "<html>" + NumberedLines(300));
        Page().pages[page] = LongPage();
        PutBook(text, NumberedLines(300));
        Page().pages[text] = LongPage();
    }
    void OpenByDialog(const std::u16string& path, int filterIndex) {
        Dialogs().openAnswer = {DialogResult::Ok, path, filterIndex};
        Menus().Click(Menu().mFileOpen);
        if (IsPageShown(form)) Page().FinishLoading();
    }
    BookKind Kind(int index = 0) const { return Record(index).Kind(); }
};
} // namespace

TEST_CASE("change of kind: the dialog begins with the type of the shown book") {
    Opening test;
    test.PutBook(u"/b/r.rtf", "{\\rtf1 x}");
    REQUIRE(test.Start());
    const std::pair<std::u16string, int> table[] = {{page, 3}, {u"/b/r.rtf", 2}, {text, 4}};
    for (const auto& [path, type] : table) {
        OpenBook(test.form, path);
        test.Dialogs().openAnswer.result = DialogResult::Cancel;
        test.Menus().Click(test.Menu().mFileOpen);
        CHECK(test.Dialogs().openRequests.back().filterIndex == type);
    }
    Opening first;
    REQUIRE(first.Start());
    first.OpenByDialog(page, 1);
    CHECK(first.Dialogs().openRequests[0].filterIndex == 1);
    CHECK(first.Kind() == BookKind::Html); // by its name
}

TEST_CASE("change of kind: a type chosen for a listed book counts, one left alone does not") {
    Opening test;
    REQUIRE(test.Start());
    OpenBook(test.form, text);
    CHECK(test.Kind() == BookKind::Other);
    OpenBook(test.form, page);
    test.Page().FinishLoading();
    test.OpenByDialog(text, 3); // where the dialog began, with a page
    CHECK(test.Kind() == BookKind::Other);
    CHECK(test.Record(0).Path() == text);
    test.OpenByDialog(text, 3);
    CHECK(test.Kind() == BookKind::Html);
    CHECK(test.Menu().mFileEdit[0].tag == u"2");
    CHECK(IsPageShown(test.form));
    test.OpenByDialog(text, 4);
    CHECK(test.Kind() == BookKind::Html);
    test.OpenByDialog(text, 1);
    CHECK(test.Kind() == BookKind::Text);
    CHECK_FALSE(IsPageShown(test.form));
    CHECK(test.View().TextRange(0, 6) == u"line 0");
}

TEST_CASE("change of kind: a page that the list holds as text is put right by drop and start") {
    for (const bool dropped : {true, false}) {
        Opening test;
        test.PutHistory("/b/p.html=2026:1:1:1:1:1=0=Serif=14=204=1=0=0=0=1=0=0=16777215=120=9==30,4"
                        "\r\n/b/t.log==0\r\n");
        if (!dropped) test.form.ports.launch.commandLine = page;
        REQUIRE(test.Start());
        if (dropped) test.View().onFilesDropped({page});
        test.Page().FinishLoading();
        CHECK(test.Kind() == BookKind::Html);
        CHECK(IsPageShown(test.form));
        // Of the text that was shown before, the place and the mark go to their words.
        CHECK(test.form.ports.htmlView->ScrollTop() ==
              (dropped ? 15 * NoneHtmlView::LineHeight : 0));
        CHECK(ZoomStep(test.form.menu.mViewFont[0]) == 0);
        CHECK(test.Record(0)[Field::Marks] == (dropped ? u"24,4" : u""));
        test.Close();
        TestForm next(test);
        REQUIRE(next.Start());
        CHECK(next.Record(0).Kind() == BookKind::Html);
    }
}

TEST_CASE("change of kind: place, marks, size and title of either view come back with it") {
    Opening test;
    REQUIRE(test.Start());
    OpenBook(test.form, page, BookKind::Text);
    test.OpenByDialog(text, 1);
    test.OpenByDialog(text, 3);
    REQUIRE(IsPageShown(test.form));
    for (int i = 0; i < 2; ++i)
        test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 1);
    test.Page().ScrollByHand(1600);
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    const auto pageMarks = test.Record(0)[Field::Marks];
    REQUIRE_FALSE(pageMarks.empty());

    test.OpenByDialog(text, 1);
    CHECK(test.View().FirstVisibleChar() == 0);
    CHECK(test.View().Font().size == 10);
    CHECK(test.Menu().mViewWordWrap[0].checked);
    CHECK(test.Menu().mBookmarkList[0].tag.empty());
    CHECK(test.Menu().mBookmarkLast[0].tag.empty());
    test.View().ScrollLineToTop(494);
    test.View().Select(500, 4);
    test.Choose(test.Menu().mEdit, test.Menu().mEditTitle);
    const auto caption = test.Record(0)[Field::Title];
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    const auto textMarks = test.Record(0)[Field::Marks];
    REQUIRE(textMarks == u"500,4");

    test.OpenByDialog(text, 3);
    CHECK(test.Page().ScrollTop() == 1600);
    CHECK(ZoomStep(test.form.menu.mViewFont[0]) == -2);
    CHECK(test.Record(0)[Field::Marks] == pageMarks);
    CHECK(test.Record(0)[Field::Title] == u"A Page");
    test.OpenByDialog(text, 1);
    CHECK(test.View().FirstVisibleChar() == 494);
    CHECK(test.Record(0)[Field::Title] == caption);
    CHECK(test.Record(0)[Field::Marks] == textMarks);
}

TEST_CASE("change of kind: between the kinds of the text view nothing but the kind changes") {
    Opening test;
    REQUIRE(test.Start());
    OpenBook(test.form, text);
    test.View().ScrollLineToTop(494);
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    const BookRecord before = test.Record(0);
    test.OpenByDialog(text, 1);
    BookRecord after = test.Record(0);
    CHECK(after[Field::Filter] == u"0");
    CHECK(after[Field::LastPos] == u"494");
    CHECK(after[Field::Marks] == before[Field::Marks]);
    CHECK(test.View().FirstVisibleChar() == 494);
    CHECK(test.Menu().mFileEdit[0].tag == u"0");
    CHECK(test.DataFile().find("OtherView") == std::string::npos);
}

TEST_CASE("change of kind: where pages cannot be shown a book stays what it is") {
    Opening test;
    test.form.ports.htmlView.reset();
    REQUIRE(test.Start());
    OpenBook(test.form, page, BookKind::Text);
    const std::string before = test.DataFile();
    test.View().onFilesDropped({page});
    CHECK(test.Dialogs().messages.empty());
    test.Dialogs().openAnswer = {DialogResult::Ok, page, 3};
    test.Menus().Click(test.Menu().mFileOpen);
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text ==
          u"/b/p.html\r\nThis program has no view for HTML books.");
    CHECK(test.Kind() == BookKind::Text);
    CHECK(test.DataFile() == before);
    CHECK(test.Menu().mFileList[0].checked);
}

TEST_CASE("change of kind: a page as text takes the present look, as a new book does") {
    Opening test;
    REQUIRE(test.Start());
    OpenBook(test.form, page);
    test.Page().FinishLoading();
    CHECK(test.Record(0)[Field::FontName] == u"");
    OpenBook(test.form, page, BookKind::Text);
    CHECK(test.Record(0)[Field::FontName] == u"Plain");
    CHECK(test.Record(0)[Field::Wrap] == u"1");
    CHECK(test.View().TextRange(0, 6) == u"<html>");
}
