// What the port of the help window promises, on every back end that shows one.
#include "tests/contract/help_window_contract.h"

#include <doctest/doctest.h>

namespace {
using Part = HelpWindowUnderTest::Part;
using Key = HelpWindowUnderTest::Key;

HelpContents Contents() {
    HelpContents contents;
    contents.windowTitle = u"The Help";
    contents.titles = {u"One", u"Two", u"Three"};
    contents.page = [](int page) {
        return "{\\rtf1{\\fonttbl{\\f0;}}\\f0 {\\field{\\*\\fldinst HYPERLINK \"" +
               std::to_string((page + 1) % 3) + "\"}{\\fldrslt page " + std::to_string(page) +
               "}}\\par hello\\par}";
    };
    contents.search = [](std::u16string_view typed) {
        if (typed != u"hel") return std::vector<HelpFinding>{};
        return std::vector<HelpFinding>{{2, {7, 3}, u"Three", u"hello", {{0, 3}}},
                                        {0, {7, 3}, u"One", u"hello", {{0, 3}}}};
    };
    return contents;
}
void ShowAt(HelpWindowUnderTest& test, int page) {
    test.Port().Show(Contents(), page);
    REQUIRE(test.IsOpen());
}

bool ShowsPage(HelpWindowUnderTest& test, int page) {
    return test.PageText().starts_with(u"page " + std::u16string(1, char16_t(u'0' + page)) +
                                       u"\nhello");
}
} // namespace

TEST_CASE("help window contract: opens at a page, with all titles") {
    OnEach(HelpWindowBackEnds(), [](HelpWindowUnderTest& test) {
        ShowAt(test, 1);
        CHECK(test.Title() == u"The Help");
        CHECK(test.RowCount() == 3);
        CHECK(test.Row() == 1);
        CHECK(ShowsPage(test, 1));
        test.ChooseRow(2);
        CHECK(ShowsPage(test, 2));
    });
}

TEST_CASE("help window contract: a search lists its results, and shows the best one") {
    OnEach(HelpWindowBackEnds(), [](HelpWindowUnderTest& test) {
        ShowAt(test, 0);
        test.Type(u"hel");
        REQUIRE(test.RowCount() == 2);
        CHECK(test.Row() == 0);
        CHECK(ShowsPage(test, 2));
        CHECK(test.SelectedText() == u"hel");
        test.ChooseRow(1);
        CHECK(ShowsPage(test, 0));
        CHECK(test.SelectedText() == u"hel");
        test.Type(u"nothing");
        CHECK(test.RowCount() == 1); // says that there is none
        CHECK(test.Row() == -1);
        CHECK(ShowsPage(test, 0));
        test.Type(u" ");
        CHECK(test.RowCount() == 3);
        CHECK(test.Row() == 0);
        CHECK(test.SelectedText().empty());
    });
}

TEST_CASE("help window contract: shown again while open, it shows the new page") {
    OnEach(HelpWindowBackEnds(), [](HelpWindowUnderTest& test) {
        ShowAt(test, 0);
        test.Type(u"hel");
        ShowAt(test, 1);
        CHECK(test.SearchText().empty());
        CHECK(test.RowCount() == 3);
        CHECK(ShowsPage(test, 1));
    });
}

TEST_CASE("help window contract: an open window is raised as it is") {
    OnEach(HelpWindowBackEnds(), [](HelpWindowUnderTest& test) {
        CHECK_FALSE(test.Port().Raise());
        ShowAt(test, 0);
        test.ChooseRow(2);
        CHECK(test.Port().Raise());
        CHECK(ShowsPage(test, 2));
        test.Minimize();
        CHECK(test.Port().Raise());
        CHECK_FALSE(test.IsMinimized());
        test.Close();
        CHECK_FALSE(test.IsOpen());
        CHECK_FALSE(test.Port().Raise());
        ShowAt(test, 1);
        CHECK(ShowsPage(test, 1));
    });
}

TEST_CASE("help window contract: Enter in a link leads to its page, also out of a search") {
    OnEach(HelpWindowBackEnds(), [](HelpWindowUnderTest& test) {
        ShowAt(test, 0);
        test.Press(Key::Tab);
        test.Press(Key::Tab);
        test.Press(Key::Enter);
        CHECK(ShowsPage(test, 1));
        CHECK(test.Row() == 1);
        CHECK(test.Focus() == Part::Page);
        test.Press(Key::Down); // to "hello", which is no link
        test.Press(Key::Enter);
        CHECK(ShowsPage(test, 1));
        test.Type(u"hel");
        REQUIRE(ShowsPage(test, 2));
        test.Press(Key::Enter);
        test.Press(Key::Enter); // "hello" is selected
        CHECK(ShowsPage(test, 2));
    });
}

TEST_CASE("help window contract: Tab goes from part to part, Escape closes") {
    OnEach(HelpWindowBackEnds(), [](HelpWindowUnderTest& test) {
        ShowAt(test, 0);
        REQUIRE(test.Focus() == Part::Search);
        test.Press(Key::Tab);
        CHECK(test.Focus() == Part::List);
        test.Press(Key::Down);
        CHECK(ShowsPage(test, 1));
        test.Press(Key::Tab);
        CHECK(test.Focus() == Part::Page);
        test.Press(Key::Tab);
        CHECK(test.Focus() == Part::Search);
        test.Press(Key::Down);
        CHECK(test.Focus() == Part::List);
        test.Press(Key::Enter);
        CHECK(test.Focus() == Part::Page);
        test.Press(Key::Escape);
        CHECK_FALSE(test.IsOpen());
    });
}
