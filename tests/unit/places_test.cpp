#include "app/open_book.h"
#include "html_form.h"
#include "test_form.h"

#include <doctest/doctest.h>

namespace {
class PlacesForm : public TestForm {
  public:
    PlacesForm() {
        PutBook(u"/books/a.txt", NumberedLines(300));
        REQUIRE(Start());
        OpenBook(form, u"/books/a.txt");
        View().headings = {{0, 2, u"CHAPTER I"}, {800, 2, u"CHAPTER II"}};
    }
    void Press(int key) {
        Window().Events().onKeyDown(key, CtrlKey);
        Window().Events().onKeyUp(key, CtrlKey);
    }
};
} // namespace

TEST_CASE("places: Ctrl+G asks for a per cent or a heading, beginning with the present ones") {
    PlacesForm test;
    test.View().ScrollLineToTop(900);
    test.Press('G');
    REQUIRE(test.Dialogs().placeRequests.size() == 1);
    const PlaceRequest& request = test.Dialogs().placeRequests.front();
    CHECK(request.headings == test.View().headings);
    CHECK(request.heading == 1);
    CHECK(request.percent == test.View().Percent());
}

TEST_CASE("places: a heading comes to the top, and the caret with it") {
    PlacesForm test;
    test.Dialogs().placeAnswer = {DialogResult::Ok, 0, 1};
    test.Press('G');
    CHECK(test.View().SelStart() == 800);
    CHECK(test.View().FirstVisibleChar() == test.View().LineAround(800).start);
}

TEST_CASE("places: a per cent, and the caret goes along") {
    PlacesForm test;
    test.Dialogs().placeAnswer = {DialogResult::Ok, 50, -1};
    test.Press('G');
    CHECK(test.View().FirstVisibleChar() > test.View().TextLength() * 4 / 10);
    CHECK(test.View().SelStart() == test.View().FirstVisibleChar());
    CHECK(test.View().SelLength() == 0);
}

TEST_CASE("places: cancelled, or without a book, nothing moves") {
    PlacesForm test;
    const TextPos before = test.View().FirstVisibleChar();
    test.Press('G');
    CHECK(test.View().FirstVisibleChar() == before);
    TestForm empty;
    REQUIRE(empty.Start());
    empty.Window().Events().onKeyDown('G', CtrlKey);
    empty.Window().Events().onKeyDown('P', CtrlKey);
    CHECK(empty.Dialogs().placeRequests.empty());
    CHECK(empty.View().printed.empty());
}

TEST_CASE("places: Ctrl+P prints the text under its title, and says why it could not") {
    PlacesForm test;
    test.Press('P');
    REQUIRE(test.View().printed.size() == 1);
    CHECK(test.View().printed.front().find(u"a.txt") != std::u16string::npos);
    CHECK(test.Dialogs().messages.empty());
    test.View().printAnswer = {PrintAnswer::Result::Cancelled, {}};
    test.Press('P');
    CHECK(test.Dialogs().messages.empty());
    test.View().printAnswer = {PrintAnswer::Result::Failed, u"No paper."};
    test.Press('P');
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages.front().text.find(u"No paper.") != std::u16string::npos);
}

TEST_CASE("places: of a page, by its headings") {
    HtmlForm test;
    NonePage page = HtmlForm::LongPage();
    page.headings = {{0, 1, u"line 0"}, {900, 2, u"A place"}};
    test.PutPage(u"/books/p.htm", page);
    REQUIRE(test.Start());
    test.OpenLoaded(u"/books/p.htm");
    test.Dialogs().placeAnswer = {DialogResult::Ok, 0, 1};
    test.Press('G', CtrlKey);
    REQUIRE(test.Dialogs().placeRequests.size() == 1);
    CHECK(test.Dialogs().placeRequests.front().heading == 0);
    CHECK(test.Page().Selection().span.start == 900);
    CHECK(test.Page().StartAtTop() <= 900);
    CHECK(test.Page().ScrollTop() > 0);

    test.Dialogs().placeAnswer = {DialogResult::Ok, 100, -1};
    test.Press('G', CtrlKey);
    CHECK(test.Page().Percent() == 100);
    test.Press('P', CtrlKey);
    CHECK(test.Page().printedTitles.size() == 1);
    CHECK(test.View().printed.empty());
}

TEST_CASE("places: a page that does not answer has no headings, but per cents") {
    HtmlForm test;
    test.PutPage(u"/books/p.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/books/p.htm");
    test.Page().answers = false;
    test.Dialogs().placeAnswer = {DialogResult::Ok, 50, -1};
    test.Press('G', CtrlKey);
    REQUIRE(test.Dialogs().placeRequests.size() == 1);
    CHECK(test.Dialogs().placeRequests.front().headings.empty());
    CHECK(test.Page().ScrollTop() > 0);
}
