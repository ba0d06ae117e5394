#include "tests/contract/swallowed_faults_windows.h"
#include "tests/contract/windows_html_view_fixture.h"

#include <algorithm>
#include <new>

namespace {

constexpr int topMargin = StandIn::Edge;

TextPos StartOfLine(const std::wstring& text, int line) {
    std::size_t start = 0;
    for (; line > 0; --line)
        start = text.find(L'\n', start) + 1;
    return static_cast<TextPos>(start);
}

} // namespace

// Its window is told of its size while it is made, and of its end while that is taken away.
TEST_CASE("windows html view: is whole while it has a window") {
    alignas(WinHtmlView) static unsigned char memory[sizeof(WinHtmlView)];
    volatile unsigned char* const bytes = memory; // what an earlier object has left there
    for (std::size_t i = 0; i < sizeof memory; ++i)
        bytes[i] = 0x55;
    const int before = SwallowedFaults::Seen();
    StandIn engine;
    const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300,
                                        nullptr, nullptr, nullptr, nullptr);
    auto* const view = ::new (static_cast<void*>(memory))
        WinHtmlView(parent, [&](IUnknown** control) { return engine.Make(control); });
    CHECK(SwallowedFaults::Seen() == before);
    view->Navigate(u"C:\\books\\a.htm", 1);
    engine.FinishLoading();
    HandlePostedMessages();
    CHECK(view->HasBody());
    view->~WinHtmlView();
    CHECK(SwallowedFaults::Seen() == before);
    CHECK(engine.living == 0);
    DestroyWindow(parent);
}

TEST_CASE("windows html view: no control is made before the first page") {
    ShownView shown;
    CHECK(shown.engine.callCount == 0);
    CHECK_FALSE(shown.view->HasBody());
    CHECK(shown.view->Charset() == "");
    CHECK(shown.view->TextsOf({{0, 1}}).empty());
    CHECK(shown.view->StartAtTop() == -1);
    CHECK_FALSE(shown.view->FindAfterSelection(u"a", {}));
}

TEST_CASE("windows html view: a page is loaded once and tells what it is") {
    ShownView shown;
    shown.Book() = {L"some text", L"A title", L"windows-1251"};
    shown.view->Navigate(u"C:\\books\\a.htm", 7);
    CHECK_FALSE(shown.view->HasBody());
    shown.engine.FinishLoading();
    CHECK(shown.loaded.empty()); // no handler runs inside a call of the engine's
    HandlePostedMessages();
    CHECK(shown.loaded == std::vector<int>{7});
    CHECK(shown.url == u"file:///C:/books/a.htm");
    CHECK(shown.view->HasBody());
    CHECK(shown.view->HasText());
    CHECK(shown.view->Title() == u"A title");
    CHECK(shown.view->Charset() == "windows-1251");
    CHECK(shown.view->ScrollTop() == 0);
    CHECK(shown.view->ViewHeight() == ShownView::Height);
    CHECK(shown.view->TopMargin() == topMargin);
    shown.engine.FinishLoading(); // as after a jump inside the page
    HandlePostedMessages();
    CHECK(shown.loaded.size() == 1);
}

TEST_CASE("windows html view: nothing is heard of a page that was left") {
    ShownView shown;
    shown.view->Navigate(u"C:\\books\\a.htm", 1);
    shown.engine.FinishLoading();
    shown.view->Navigate(u"C:\\books\\b.htm", 2);
    HandlePostedMessages();
    CHECK(shown.loaded.empty());
    shown.engine.FinishLoading();
    HandlePostedMessages();
    CHECK(shown.loaded == std::vector<int>{2});
    shown.view->Clear();
    HandlePostedMessages();
    CHECK(shown.loaded.size() == 1);
    CHECK(shown.engine.living == 0);
    CHECK_FALSE(shown.view->HasBody());
}

TEST_CASE("windows html view: a page without a body or text") {
    ShownView shown;
    shown.Open(L"");
    CHECK(shown.view->HasBody());
    CHECK_FALSE(shown.view->HasText());
    shown.Book().hasBody = false; // a frame set
    shown.Open(L"text");
    CHECK(shown.loaded.size() == 2);
    CHECK_FALSE(shown.view->HasBody());
    CHECK(shown.view->TextsOf({{0, 2}}).empty());
}

TEST_CASE("windows html view: scrolls as far as the page goes, in both layouts") {
    for (const bool standards : {true, false}) {
        CAPTURE(standards);
        ShownView shown;
        shown.Book().followsStandards = standards;
        shown.Open(Lines(200));
        shown.view->ScrollTo(0, 1200);
        CHECK(shown.view->ScrollTop() == 1200);
        shown.view->ScrollTo(0, 1000000);
        const int largest = 2 * topMargin + 200 * StandIn::LineHeight - ShownView::Height;
        CHECK(shown.view->ScrollTop() == largest);
        CHECK(shown.view->TopMargin() == topMargin);
    }
}

TEST_CASE("windows html view: a span's line comes to the top, its texts come in order") {
    ShownView shown;
    const std::wstring text = Lines(200);
    shown.Open(text);
    const TextPos start = StartOfLine(text, 50);
    shown.view->ScrollSpanToTop({start + 2, 3});
    CHECK(shown.view->ScrollTop() == 50 * StandIn::LineHeight);
    CHECK(shown.view->StartAtTop() == start);
    const auto end = static_cast<TextPos>(text.size());
    const auto texts = shown.view->TextsOf({{start, 7}, {0, 8}, {end - 2, 80}, {end + 9, 4}});
    CHECK(texts == std::vector<std::u16string>{u"line 50", u"line 0\nl", u"99", u""});
}

TEST_CASE("windows html view: the selection is counted from the start and seen from the top") {
    ShownView shown;
    const std::wstring text = Lines(200);
    shown.Open(text);
    CHECK(shown.view->Selection().span == PageSpan{0, 0});
    CHECK(shown.view->Selection().top == shown.view->TopMargin());
    const PageSpan span{StartOfLine(text, 3) + 1, 4};
    shown.view->Select(span);
    CHECK(shown.view->ScrollTop() == 0);
    CHECK(shown.view->Selection().span == span);
    CHECK(shown.view->Selection().top == topMargin + 3 * StandIn::LineHeight);
    CHECK(shown.view->SelectedText() == u"ine ");
    CHECK(shown.view->SelectionAsHtml() == u"<P>ine </P>");
    shown.view->ScrollTo(0, 500);
    CHECK(shown.view->Selection().top == topMargin + 3 * StandIn::LineHeight - 500);
    shown.view->SelectAll();
    CHECK(shown.view->Selection().span == PageSpan{0, static_cast<TextPos>(text.size())});
}

TEST_CASE("windows html view: selecting scrolls as little as it takes") {
    ShownView shown;
    const std::wstring text = Lines(200);
    shown.Open(text);
    shown.view->Select({StartOfLine(text, 100), 2});
    const int bottom = topMargin + 101 * StandIn::LineHeight;
    CHECK(shown.view->ScrollTop() == bottom - ShownView::Height);
    shown.view->Select({StartOfLine(text, 40), 2});
    CHECK(shown.view->ScrollTop() == topMargin + 40 * StandIn::LineHeight);
}

TEST_CASE("windows html view: finds after the selection, to the end only") {
    ShownView shown;
    shown.Open(L"One\ntwo one\nbone one");
    const auto found = [&](FindOptions options) {
        const auto match = shown.view->FindAfterSelection(u"one", options);
        return match ? match->span.start : -1;
    };
    CHECK(found({}) == 0);
    CHECK(found({.matchCase = true}) == 8);
    shown.view->Select({8, 3});
    CHECK(found({}) == 13);
    CHECK(found({.wholeWord = true}) == 17);
    const auto match = shown.view->FindAfterSelection(u"ONE", {.wholeWord = true});
    REQUIRE(match);
    CHECK(match->left == StandIn::Edge + 5 * StandIn::CellWidth);
    CHECK(match->top - match->searchTop == StandIn::LineHeight);
    CHECK(std::ranges::count(shown.engine.calls, "range.findText ONE flags 2") == 1);
    shown.view->Select(match->span);
    CHECK(found({}) == -1);
    CHECK(shown.view->Selection().span == match->span);
}

TEST_CASE("windows html view: a selection at the start is on the first line, whatever its margin") {
    ShownView shown;
    shown.engine.ownMargin = 12;
    shown.Open(Lines(100));
    CHECK(shown.view->Selection().top == shown.view->TopMargin());
    shown.view->ScrollTo(0, 100);
    CHECK(shown.view->Selection().top == shown.view->TopMargin() - 100);
}

TEST_CASE("windows html view: the line at the top stays there in another size or window") {
    ShownView shown;
    shown.Open(Lines(300));
    shown.engine.pushedByLayout = 500;
    shown.view->SendZoomKey(true);
    shown.view->SetBounds({0, 0, ShownView::Width / 2, ShownView::Height});
    CHECK(shown.view->ScrollTop() == 0); // at the start it stays there
    shown.view->ScrollTo(0, 3010);
    const TextPos top = shown.view->StartAtTop();
    shown.view->SendZoomKey(true);
    CHECK(shown.view->ScrollTop() == 3010); // until the size is settled
    CHECK(shown.view->ZoomSteps() == 1);
    shown.view->StartAtTop();
    CHECK(shown.view->ScrollTop() == 3510);
    CHECK(shown.view->ZoomSteps() == 2);
    shown.view->SetBounds({0, 0, ShownView::Width, ShownView::Height});
    CHECK(shown.view->ScrollTop() == 4010);
    CHECK(shown.view->StartAtTop() == top);
    shown.view->ScrollTo(0, 2000);
    shown.engine.pushedByLayout = -700;
    shown.view->SendZoomKey(false);
    shown.view->StartAtTop();
    CHECK(shown.view->ScrollTop() == 1300);
}

TEST_CASE(
    "windows html view: what stands at the top is told by its words, and brought back by them") {
    ShownView shown;
    const std::wstring text = Lines(300);
    shown.Open(text);
    CHECK(shown.view->Top().start == 0);
    shown.view->ScrollTo(0, 100 * StandIn::LineHeight + 7);
    const PageTop top = shown.view->Top();
    CHECK(top.offset == 2007);
    CHECK(top.start == StartOfLine(text, 100));
    CHECK(top.above == 7);
    CHECK(top.before.ends_with(u"line 99\n"));
    CHECK(top.before.size() == PageTop::maxAround);
    CHECK(top.after.starts_with(u"line 100\nline 101"));
    CHECK(top.length == TextPos(text.size()));
    shown.view->ScrollTo(0, 101 * StandIn::LineHeight - 4); // less than a quarter of line 100
    CHECK(shown.view->Top().start == StartOfLine(text, 101));
    CHECK(shown.view->Top().above == -4);
    CHECK(shown.view->StartAtTop() == StartOfLine(text, 101));
    for (const int lower : {0, 500}) { // in another layout
        CAPTURE(lower);
        ShownView other;
        other.engine.textTop = lower;
        other.Open(text);
        other.view->BringToTop(top);
        CHECK(other.view->Top().offset == (lower == 0 ? 2007 : 2000 + lower)); // the line whole
        CHECK(other.view->Top().start == top.start);
        PageTop byWords = top;
        byWords.offset = -1;
        other.view->BringToTop(byWords);
        CHECK(other.view->Top().offset == 2007 + lower);
        // Not the start of the line that it comes to stand in.
        byWords.start += 5;
        other.view->BringToTop(byWords);
        CHECK(other.view->Top().start == byWords.start);
        other.engine.pushedByLayout = 100;
        other.view->SetBounds({0, 0, ShownView::Width / 2, ShownView::Height});
        CHECK(other.view->Top().start == byWords.start);
    }
}

TEST_CASE("windows html view: the text before the top is counted once for each place") {
    ShownView shown;
    shown.Open(Lines(300));
    shown.view->ScrollTo(0, 2000);
    shown.view->Top();
    const auto countsOf = [&] {
        return std::ranges::count_if(shown.engine.calls, [](const auto& call) {
            return call.starts_with("range.move character -");
        });
    };
    const auto before = countsOf();
    shown.view->Top();
    CHECK(countsOf() == before);
    shown.view->ScrollTo(0, 3000);
    shown.view->Top();
    CHECK(countsOf() > before);
}

TEST_CASE("windows html view: the background is set in HTML's order of colours") {
    ShownView shown;
    shown.Open(L"text");
    shown.view->SetBackColor(0xFF1B0A);
    CHECK(shown.engine.backColor == L"#0A1BFF");
}

TEST_CASE("windows html view: a page's own colours, and letters in another one") {
    ShownView shown;
    shown.Open(L"text");
    CHECK(shown.view->OwnColors().text == 0x000000);
    CHECK(shown.view->OwnColors().background == 0xFFFFFF);
    shown.Book().letters = L"rgb(238, 238, 238)";
    shown.Book().rootPaper = L"rgb(16, 32, 48)";
    shown.engine.letterColor = L"silver"; // in the body's style attribute
    shown.Open(L"text");
    CHECK(shown.view->OwnColors().text == 0xEEEEEE);
    CHECK(shown.view->OwnColors().background == 0x302010);
    shown.view->SetTextColor(0x030201);
    CHECK(shown.engine.letterColor == L"#010203");
    shown.view->SetTextColor(std::nullopt);
    CHECK(shown.engine.letterColor == L"silver");
}

TEST_CASE("windows html view: the last values are kept when the engine goes") {
    ShownView shown;
    shown.Book().title = L"PageSnapshot";
    shown.Open(Lines(100));
    shown.view->ScrollTo(0, 320);
    shown.view->Select({700, 3});
    CHECK(shown.view->Title() == u"PageSnapshot");
    const int top = shown.view->ScrollTop();
    const PageSelection selection = shown.view->Selection();
    shown.engine.Quit();
    HandlePostedMessages();
    CHECK(shown.gone == 1);
    CHECK(shown.engine.living == 0);
    CHECK(shown.view->ScrollTop() == top);
    CHECK(shown.view->Selection().span == selection.span);
    CHECK(shown.view->Title() == u"PageSnapshot");
    CHECK(shown.view->SelectedText() == u"");
    shown.Open(L"anew", 2);
    CHECK(shown.loaded.back() == 2);
    CHECK(shown.view->HasBody());
}

TEST_CASE("windows html view: the control ends with the window, and the values stay") {
    ShownView shown;
    shown.Open(Lines(100));
    shown.view->ScrollTo(0, 320);
    CHECK(shown.view->ScrollTop() == 320);
    DestroyWindow(shown.parent);
    CHECK(shown.engine.living == 0);
    CHECK(shown.view->ScrollTop() == 320);
    CHECK(shown.view->HasBody());
    CHECK(shown.view->TextsOf({{0, 1}}).empty());
    shown.view->SetBounds({0, 0, 10, 10});
    shown.view->Navigate(u"C:\\books\\a.htm", 3); // nowhere to show it
    CHECK_FALSE(shown.view->HasBody());
    CHECK(shown.engine.living == 0);
}
