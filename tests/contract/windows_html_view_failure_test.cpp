// The engine fails: each call in turn, or all from the start.
#include "tests/contract/windows_html_view_fixture.h"

namespace {

struct Answers {
    bool body = false;
    std::vector<std::u16string> texts;
    std::u16string selected, html;
    std::optional<PageMatch> match;
    TextPos top = 0, kept = 0;
};

// Everything that the core asks of a page, once.
Answers ReadABook(ShownView& shown) {
    WinHtmlView& view = *shown.view;
    shown.Open(Lines(60));
    view.SetBackColor(0xFFEEDD);
    view.SetTextColor(0x001122);
    view.SendZoomKey(true);
    view.ScrollTo(0, 200);
    view.HasText();
    view.Charset();
    view.Title();
    view.Select({300, 5});
    view.ScrollSpanToTop({300, 5});
    const PageTop top = view.Top();
    view.BringToTop(top);
    view.Selection();
    view.Selection();
    Answers answers;
    answers.body = view.HasBody();
    answers.texts = view.TextsOf({{0, 6}, {7, 6}});
    answers.selected = view.SelectedText();
    answers.html = view.SelectionAsHtml();
    answers.match = view.FindAfterSelection(u"line", {});
    answers.top = view.StartAtTop();
    answers.kept = top.start;
    if (shown.engine.Inner()) {
        SendMessageW(shown.engine.Inner(), WM_RBUTTONUP, 0, MAKELPARAM(20, 20));
        shown.engine.Follow(L"file:///C:/books/b.htm");
    }
    view.SetBounds({0, 0, 300, 200});
    view.FocusView();
    view.SelectAll();
    HandlePostedMessages();
    view.Clear();
    return answers;
}

// What came is right or the failure value, nothing in between.
void CheckAnswers(const Answers& answers) {
    CHECK((answers.texts.empty() ||
           answers.texts == std::vector<std::u16string>{u"line 0", u"line 1"}));
    CHECK((answers.selected.empty() || answers.selected.size() == 5));
    CHECK((answers.html.empty() || answers.html.size() == 12));
    CHECK(answers.top >= -1);
    CHECK(answers.kept >= -1);
    if (answers.match) CHECK(answers.match->span.length == 4);
    if (!answers.body) {
        CHECK(answers.texts.empty());
        CHECK_FALSE(answers.match);
        CHECK(answers.top == -1);
    }
}

} // namespace

TEST_CASE("windows html view: any call may fail, and nothing is lost or left over") {
    int failures = 0;
    for (bool failed = true; failed;) {
        ShownView shown;
        shown.engine.failingCall = failures + 1;
        CAPTURE(shown.engine.failingCall);
        CheckAnswers(ReadABook(shown));
        CHECK(shown.engine.living == 0);
        if (shown.engine.leftOnSite >= 0) CHECK(shown.engine.leftOnSite <= 1); // the view's own
        shown.engine.failingCall = 0;
        shown.loaded.clear();
        shown.Open(L"once more", 9); // and the next book is shown
        CHECK(shown.loaded == std::vector<int>{9});
        shown.view.reset();
        CHECK(shown.engine.living == 0);
        failed = shown.engine.hasFailed;
        failures += failed;
    }
    MESSAGE(failures << " calls failed in turn");
    CHECK(failures > 100);
}

TEST_CASE("windows html view: without a control a text stands in the view") {
    ShownView shown;
    shown.view->SetVisible(true);
    shown.view =
        std::make_unique<WinHtmlView>(shown.parent, [](IUnknown**) { return REGDB_E_CLASSNOTREG; });
    shown.view->onZoomKey = [&](int key, int shift) { shown.keys.emplace_back(key, shift); };
    shown.view->Navigate(u"C:\\books\\a.htm", 1);
    shown.view->SetVisible(true);
    shown.view->FocusView();
    shown.view->ScrollTo(0, 100);
    shown.view->SendZoomKey(true);
    HandlePostedMessages();
    CHECK(shown.loaded.empty());
    CHECK(shown.keys.size() == 1); // the form counts on it
    CHECK_FALSE(shown.view->HasBody());
    CHECK(shown.view->TextsOf({{0, 1}}).empty());
    CHECK(shown.view->SelectedText() == u"");
    CHECK_FALSE(shown.view->TranslateKey({}));
}
