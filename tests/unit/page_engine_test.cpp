// A page changes between the browser's view and our own, whose lines have other heights.
#include "html_form.h"

#include "books/book_settings.h"

namespace {
constexpr TextPos line22 = 166; // after 10 lines of 7 units and 12 of 8

struct TwoEngines : HtmlForm {
    TwoEngines() {
        Page().hasBothEngines = true;
        PutPage(u"/books/p.htm");
        REQUIRE(Start());
        OpenLoaded(u"/books/p.htm");
    }
    void Change() {
        const std::size_t before = Page().navigations.size();
        Press('B', CtrlKey | ShiftKey);
        REQUIRE(Page().navigations.size() == before + 1);
        FinishLoading();
    }
    void FinishLoading() {
        const bool own = Page().Engine() == PageEngine::Own;
        Page().lineHeight = own ? 25 : NoneHtmlView::LineHeight;
        Page().FinishLoading();
    }
    int LastPos() { return form.history.Record(0).Number(Field::LastPos); }
};

std::u16string LineAt(NoneHtmlView& page) {
    return page.TextsOf({{page.StartAtTop(), 7}})[0];
}
} // namespace

TEST_CASE("page engine: a key changes it at the same words, there and back") {
    TwoEngines test;
    test.Page().ScrollSpanToTop({line22, 0});
    const int top = test.Page().ScrollTop();
    const std::u16string words = LineAt(test.Page());
    CHECK(test.Page().Engine() == PageEngine::Browser);

    test.Change();
    CHECK(test.Page().Engine() == PageEngine::Own);
    CHECK(LineAt(test.Page()) == words);
    CHECK(test.Page().ScrollTop() != top);
    test.Autosave();
    CHECK(test.LastPos() == test.Page().ScrollTop());

    test.Change();
    CHECK(test.Page().Engine() == PageEngine::Browser);
    CHECK(test.Page().ScrollTop() == top);
    test.Autosave();
    CHECK(test.LastPos() == top);
}

TEST_CASE("page engine: the start of a page stays its start, also above the first line") {
    TwoEngines test;
    test.Change();
    CHECK(test.Page().ScrollTop() == 0);
}

TEST_CASE("page engine: selection and size go along") {
    TwoEngines test;
    test.Choose(test.Menu().mView, test.Menu().mViewFontSize, 0);
    test.DeliverZoomKeys();
    test.Page().Select({line22, 4});
    test.Change();
    CHECK(test.Page().SelectedText() == u"line");
    CHECK(test.Page().Selection().span.start == line22);
    CHECK(test.Page().ZoomSteps() == 1);
    CHECK(test.form.history.Record(0)[Field::FontSize] == u"1");
}

TEST_CASE("page engine: what was chosen is the book's own, in this profile") {
    TwoEngines test;
    test.PutPage(u"/books/q.htm");
    test.Change();
    const int top = test.LastPos();
    test.OpenLoaded(u"/books/q.htm");
    CHECK(test.Page().Engine() == PageEngine::Browser);
    CHECK(test.Page().offersEngineChange);
    test.OpenLoaded(u"/books/p.htm");
    CHECK(test.Page().Engine() == PageEngine::Own);
    CHECK(test.LastPos() == top);
    const std::u16string section =
        BookSection(test.form.history, test.form.menu.mUser[0].tag, u"/books/p.htm");
    CHECK(LoadPageEngine({*test.form.dataFile, section}) == PageEngine::Own);
    CHECK(LoadPageEngine(
              {*test.form.dataFile, BookSection(test.form.history, u"Other", u"/books/p.htm")}) ==
          PageEngine::Browser);
}

TEST_CASE("page engine: a chapter that a link leads to for the first time is shown alike") {
    TwoEngines test;
    test.PutPage(u"/books/two.htm");
    test.PutPage(u"/books/q.htm");
    test.OpenLoaded(u"/books/q.htm");
    test.OpenLoaded(u"/books/p.htm");
    test.Change();
    test.Page().onLink(u"file:///books/q.htm", u"/books/q.htm"); // has been read
    CHECK(test.Page().Engine() == PageEngine::Browser);
    test.OpenLoaded(u"/books/p.htm");
    test.Page().onLink(u"file:///books/two.htm", u"/books/two.htm");
    CHECK(test.Page().Engine() == PageEngine::Own);
}

TEST_CASE("page engine: where there is no choice the key does nothing, and none is offered") {
    HtmlForm test;
    test.Page().hasBrowser = false;
    test.PutPage(u"/books/p.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/books/p.htm");
    CHECK(test.Page().Engine() == PageEngine::Own);
    CHECK_FALSE(test.Page().offersEngineChange);
    test.Press('B', CtrlKey | ShiftKey);
    CHECK(test.Page().navigations.size() == 1);
}

TEST_CASE("page engine: one that is chosen and has gone is chosen again when it is back") {
    TwoEngines test;
    test.Page().hasBothEngines = test.Page().hasBrowser = false;
    test.Press(F5Key, 0);
    test.Page().FinishLoading();
    CHECK(test.Page().Engine() == PageEngine::Own);
    CHECK_FALSE(test.Page().offersEngineChange);
    test.Page().hasBothEngines = test.Page().hasBrowser = true;
    test.Press(F5Key, 0);
    CHECK(test.Page().Engine() == PageEngine::Browser);
}

TEST_CASE("page engine: a page that does not answer is changed, at the words of its record") {
    TwoEngines test;
    test.Page().ScrollByHand(320);
    test.Autosave();
    test.Page().answers = false;
    test.Press('B', CtrlKey | ShiftKey);
    test.Page().answers = true;
    test.FinishLoading();
    CHECK(test.Page().Engine() == PageEngine::Own);
    CHECK(test.Page().ScrollTop() == 320 / NoneHtmlView::LineHeight * 25);
}

TEST_CASE("page engine: pressed twice at once it comes back to where it was") {
    TwoEngines test;
    test.Page().ScrollSpanToTop({line22, 0});
    const int top = test.Page().ScrollTop();
    test.Press('B', CtrlKey | ShiftKey);
    test.Press('B', CtrlKey | ShiftKey);
    test.FinishLoading();
    CHECK(test.Page().Engine() == PageEngine::Browser);
    CHECK(test.Page().ScrollTop() == top);
}

TEST_CASE("page engine: a page left before it has come is at its words when it comes") {
    TwoEngines test;
    test.Page().ScrollSpanToTop({line22, 0});
    const std::u16string words = LineAt(test.Page());
    test.Press('B', CtrlKey | ShiftKey);
    test.PutPage(u"/books/q.htm");
    test.OpenLoaded(u"/books/q.htm");
    OpenBook(test.form, u"/books/p.htm");
    test.FinishLoading();
    CHECK(test.Page().Engine() == PageEngine::Own);
    CHECK(LineAt(test.Page()) == words);
}

TEST_CASE("page engine: a file that has gone leaves the page as it is") {
    TwoEngines test;
    test.Files().Remove(u"/books/p.htm");
    test.Press('B', CtrlKey | ShiftKey);
    CHECK(test.Page().navigations.size() == 1);
    CHECK(test.Dialogs().messages.size() == 1);
    const std::u16string section =
        BookSection(test.form.history, test.form.menu.mUser[0].tag, u"/books/p.htm");
    CHECK(LoadPageEngine({*test.form.dataFile, section}) == PageEngine::Browser);
}

TEST_CASE("page engine: a page that is closed while it is asked stays where it was") {
    TwoEngines test;
    test.Page().Select({line22, 4});
    test.Page().whileWaiting = [&] { test.Window().Close(); };
    test.Press('B', CtrlKey | ShiftKey);
    CHECK(test.Page().navigations.size() == 1);
}

TEST_CASE("page engine: the page's menu prints a page of our own by the core") {
    TwoEngines test;
    test.Page().onCommand(PageCommand::Print);
    CHECK(test.Page().printedTitles.empty()); // the browser's engine has done it
    test.Page().onCommand(PageCommand::ChangeEngine);
    test.Page().FinishLoading();
    test.Page().printAnswer = {PrintAnswer::Result::Failed, u"no paper"};
    test.Page().onCommand(PageCommand::Print);
    REQUIRE(test.Page().printedTitles.size() == 1);
    CHECK(test.Page().printedTitles[0] == u"A Page");
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text == u"The book could not be printed.\r\nno paper");
}
