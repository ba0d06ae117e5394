// The view of pages in a window that is only remembered: what the port's suite does not ask.
#include "common/utf.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "tests/unit/page_pane_bench.h"

#include <doctest/doctest.h>

namespace {
constexpr char16_t path[] = u"/books/page.htm";

std::string Paragraphs(int count) {
    std::string source = "<!DOCTYPE html><style>body,p{margin:0}</style>";
    for (int i = 0; i < count; ++i) {
        source += "<p>" + std::to_string(i);
        for (int word = 0; word < 40; ++word)
            source += " word" + std::to_string(word);
    }
    return source;
}

class PageBench {
  public:
    // What passes between two looks at the clock.
    explicit PageBench(const std::string& source, std::chrono::milliseconds look = {}) {
        view.window.look = look;
        files.AddFile(path, source);
        view.onLoaded = [this](int, const std::u16string&) { isLoaded = true; };
        view.onLink = [this](const std::u16string& url, const std::u16string&) {
            links.push_back(url);
        };
        view.Navigate(path, 1);
        for (int i = 0; i < 10; ++i)
            view.LetEventsCome();
        REQUIRE(isLoaded);
    }
    void Resize(int width) {
        view.window.room.width = width;
        view.Pane().OnResized();
    }
    Point PointOf(TextPos position) {
        view.Select({position, 0});
        const auto caret = view.Pane().CaretRect();
        REQUIRE(caret);
        return {caret->left + 2, caret->top + caret->height / 2};
    }

    NoneClock clock;
    NoneFiles files{clock};
    PagePaneBench view{files};
    bool isLoaded = false;
    std::vector<std::u16string> links;
};
} // namespace

TEST_CASE(
    "page pane: a place asked for is one of the window as it comes, which gets its size late") {
    PageBench wide(Paragraphs(300));
    wide.view.ScrollTo(0, 9000);
    const TextPos place = wide.view.StartAtTop();
    PageBench bench(Paragraphs(300));
    bench.Resize(700);
    bench.view.ScrollTo(0, 9000);
    bench.view.Painted();
    bench.Resize(600); // the window manager has its own idea
    CHECK(bench.view.ScrollTop() == 9000);
    CHECK(bench.view.StartAtTop() == place);
}

TEST_CASE(
    "page pane: the line at the top stays there when a window that was seen gets another width") {
    PageBench bench(Paragraphs(300));
    bench.view.ScrollTo(0, 9000);
    bench.view.Pane().ScrollLines(0); // by its user
    const TextPos place = bench.view.StartAtTop();
    for (const int width : {450, 777, 600}) {
        bench.Resize(width);
        CAPTURE(width);
        CHECK(bench.view.StartAtTop() <= place);
        CHECK(place - bench.view.StartAtTop() < 100); // in the same line
    }
    bench.view.SettleTop();
    CHECK(bench.view.ScrollTop() == 9000);
}

TEST_CASE(
    "page pane: words are brought to the top in another width, and not further back each time") {
    PageBench bench(Paragraphs(300));
    bench.view.ScrollTo(0, 9000);
    bench.view.LetEventsCome();
    const PageTop top = bench.view.Top();
    CHECK(top.above > 0);
    CHECK(top.before.ends_with(bench.view.TextsOf({{top.start - 20, 20}})[0]));
    CHECK(top.after.starts_with(bench.view.TextsOf({{top.start, 20}})[0]));
    PageTop kept = top;
    for (const int width : {450, 777, 520, 600}) {
        CAPTURE(width);
        PageBench other(Paragraphs(300));
        other.Resize(width);
        other.view.BringToTop(kept);
        for (int i = 0; i < 100; ++i)
            other.view.LetEventsCome();
        kept = other.view.Top();
        CHECK(kept.start == top.start);
        CHECK(other.view.StartAtTop() <= top.start);
        CHECK(top.start - other.view.StartAtTop() < 100); // in the same line
    }
    CHECK(std::abs(kept.offset + top.above - 9000) <= 2); // its line is whole now
}

TEST_CASE(
    "page pane: the pixel, where it is the same line, also in a window that gets its size late") {
    PageBench bench(Paragraphs(300));
    bench.view.ScrollTo(0, 9005);
    bench.view.LetEventsCome();
    const PageTop top = bench.view.Top();
    REQUIRE(top.offset == 9005);
    PageBench late(Paragraphs(300));
    late.Resize(700);
    late.view.BringToTop(top);
    late.view.LetEventsCome();
    late.view.Painted();
    CHECK(late.view.ScrollTop() != 9005);
    late.Resize(600);
    CHECK(late.view.ScrollTop() == 9005);
    CHECK(late.view.Top().start == top.start);
}

TEST_CASE("page pane: words far down are shown at once, their pixel when it is exact") {
    PageBench bench(Paragraphs(20'000));
    bench.view.Pane().ScrollLineToTop(4'000'000);
    const PageTop far{.offset = -1, .start = bench.view.StartAtTop()};
    PageBench fresh(Paragraphs(20'000));
    fresh.view.BringToTop(far);
    CHECK(fresh.view.StartAtTop() == far.start);
    CHECK(fresh.view.Top().start == far.start);
    while (!fresh.view.window.timers.empty())
        fresh.view.LetEventsCome();
    const PageTop exact = fresh.view.Top();
    CHECK(exact.offset > 100'000);
    PageBench again(Paragraphs(20'000));
    again.view.BringToTop(exact);
    CHECK(again.view.StartAtTop() == far.start);
    again.view.LetEventsCome();
    const PageTop now = again.view.Top(); // as it was asked for, or reached
    CHECK((now.offset == exact.offset || now.offset == -1));
    CHECK(now.start == exact.start);
}

TEST_CASE("page pane: a link is followed where it is pressed and let go, and is no text to drag") {
    PageBench bench("<p>some words <a href='http://a.b/c'>a link</a> and more");
    PagePane& pane = bench.view.Pane();
    const Point link = bench.PointOf(13), word = bench.PointOf(2);
    CHECK(pane.IsLink(link));
    CHECK_FALSE(pane.IsLink(word));
    pane.Click(link, 1, false);
    pane.EndDrag();
    bench.view.LetEventsCome();
    CHECK(bench.links == std::vector<std::u16string>{u"http://a.b/c"});
    pane.Click(link, 1, false);
    pane.DragTo(word);
    pane.EndDrag();
    for (int i = 0; i < 5; ++i)
        bench.view.LetEventsCome();
    CHECK(bench.links.size() == 1);
    CHECK(bench.view.SelectedText() == u"me words a ");
}

TEST_CASE("page pane: clicks select words and paragraphs, and Shift with keys goes on") {
    PageBench bench("<p>One two three.<p>Four five");
    PagePane& pane = bench.view.Pane();
    pane.Click(bench.PointOf(5), 2, false);
    CHECK(bench.view.SelectedText() == u"two");
    pane.Click(bench.PointOf(16), 3, false);
    CHECK(bench.view.SelectedText() == u"Four five");
    bench.view.Select({0, 0});
    pane.Press(PaneKey::Right, true, false);
    CHECK(bench.view.SelectedText() == u"O");
    pane.Press(PaneKey::Right, true, true);
    CHECK(bench.view.SelectedText() == u"One ");
    pane.Press(PaneKey::End, true, false);
    CHECK(bench.view.SelectedText() == u"One two three.");
    pane.Press(PaneKey::Down, true, false);
    CHECK(bench.view.Selection().span.length > 15);
    pane.Press(PaneKey::Home, true, true);
    CHECK(bench.view.Selection().span == PageSpan{0, 0});
}

TEST_CASE("page pane: letters of a box in a line, and of a ruby, are where they are clicked") {
    PageBench bench("<p>One <span style='display:inline-block'>two three</span> four<p>"
                    "a <ruby>base<rt>reading</ruby> b");
    PagePane& pane = bench.view.Pane();
    pane.Click(bench.PointOf(9), 2, false);
    CHECK(bench.view.SelectedText() == u"three");
    pane.Click(bench.PointOf(25), 1, false);
    CHECK(bench.view.Selection().span.start == 25);
    pane.Click(bench.PointOf(30), 1, false);
    CHECK(bench.view.Selection().span.start == 30);
    bench.view.Select({19, 15});
    CHECK(bench.view.SelectedText() == u"a basereading b");
}

TEST_CASE("page pane: letters in columns are where they are clicked") {
    PageBench bench("<div style='columns:2'>one<br>two<br>three<br>four</div>");
    PagePane& pane = bench.view.Pane();
    const Point two = bench.PointOf(4), three = bench.PointOf(8);
    CHECK(three.x > two.x + 100);
    CHECK(three.y < two.y);
    pane.Click(three, 2, false);
    CHECK(bench.view.SelectedText() == u"three");
    pane.Click(two, 2, false);
    CHECK(bench.view.SelectedText() == u"two");
}

TEST_CASE("page pane: what is not shown has a place beside what is") {
    PageBench bench("<p>one<p style='display:none'>two<p>three");
    REQUIRE(bench.view.TextsOf({{0, 20}})[0] == u"one\ntwo\nthree");
    bench.view.Select({4, 3});
    const int hidden = bench.view.Selection().top;
    bench.view.Select({8, 5});
    CHECK(bench.view.Selection().top == hidden);
    CHECK(bench.view.SelectedText() == u"three");
}

TEST_CASE("page pane: a file that is not there is reported in the page's place") {
    NoneClock clock;
    NoneFiles files{clock};
    PagePaneBench view(files);
    view.Navigate(u"/nowhere.htm", 1);
    for (int i = 0; i < 5; ++i)
        view.LetEventsCome();
    CHECK_FALSE(view.HasBody());
    CHECK(view.notice == u"This book cannot be loaded.");
    view.Clear();
    CHECK(view.notice.empty());
}

TEST_CASE("page pane: a place in a list's item is at its text, not at what follows") {
    PageBench bench(
        "<!DOCTYPE html><style>body,ul,p{margin:0}</style><ul><li>one<li>two</ul><p>end");
    const TextPos two = TextPos(bench.view.Pane().Page()->Text().find(u"two"));
    bench.view.Select({0, 3});
    CHECK(bench.view.SelectedText() == u"one");
    CHECK(bench.PointOf(0).y < bench.PointOf(two).y);
    CHECK(bench.PointOf(two).y < bench.PointOf(two + 4).y);
}

TEST_CASE("page pane: the marker of a list's item stands for the place of its text") {
    std::string source = "<!DOCTYPE html><style>body,ul,ol{margin:0}</style><ol>";
    for (int i = 0; i < 2000; ++i)
        source += "<li>item " + std::to_string(i);
    PageBench bench(source);
    bench.view.ScrollTo(0, 16 * 1000);
    bench.view.Pane().ScrollLines(0); // by its user
    const TextPos item = TextPos(bench.view.Pane().Page()->Text().find(u"item 1000"));
    CHECK(bench.view.StartAtTop() == item);
    const int before = bench.view.Pane().LayoutsMade();
    bench.Resize(500);
    CHECK(bench.view.StartAtTop() == item);
    CHECK(bench.view.Pane().LayoutsMade() - before < 200);
}

TEST_CASE("page pane: a background, and colours that the page has, style it no second time") {
    struct {
        const char* style;
        Color background;
        int timesMore;
    } const cases[] = {
        {"", 0xFFFFFF, 0},
        {"", 0xE0FFFF, 0},
        {"body{background:#ffffe0}", 0xE0FFFF, 0},
        {"body{background:#ffffe0}", 0xFFFFFF, 0},
        {"html{background:white}body{background:yellow}", 0xFFFFFF, 0},
        {"html{background:white}body{background:yellow}", 0x00FFFF, 0},
        {"p{background:inherit}", 0xE0FFFF, 1},
    };
    for (const auto& c : cases) {
        CAPTURE(c.style);
        PageBench bench("<style>" + std::string(c.style) + "</style>" + Paragraphs(3));
        const int before = bench.view.Pane().ObjectsVersion(); // another one with new styles
        bench.view.SetBackColor(c.background);
        bench.view.SetTextColor(0x000000);
        bench.view.Painted();
        CHECK(bench.view.Pane().ObjectsVersion() - before == c.timesMore);
    }
}

TEST_CASE("page pane: a background colours what a style sheet of the reader's would") {
    const struct {
        const char* style;
        Color canvas, paragraph;
    } cases[] = {
        {"", 0x112233, 0x112233},
        {"body{background:yellow}p{background:red}", 0x112233, 0x0000FF},
        {"html{background:white}body{background:yellow}", 0xFFFFFF, 0x112233},
        {"body>*{background:inherit}", 0x112233, 0x112233},
    };
    for (const auto& c : cases) {
        CAPTURE(c.style);
        PageBench bench("<style>" + std::string(c.style) + "</style><p>text");
        bench.view.SetBackColor(0x112233);
        bench.view.Painted();
        CHECK(bench.view.Pane().BackColor() == c.canvas);
        CHECK(bench.view.Pane().CharacterFormatAt(0).background == c.paragraph);
    }
}

TEST_CASE("page pane: the text is not counted for the first screen") {
    PageBench bench(Paragraphs(3000));
    bench.view.SetBackColor(0x112233);
    bench.view.Painted();
    CHECK_FALSE(bench.view.Pane().Page()->IsCounted());
    CHECK(bench.view.TextsOf({{0, 6}}) == std::vector<std::u16string>{u"0 word"});
}

TEST_CASE("page pane: zones that take no height are not laid out for every frame") {
    std::string source;
    for (int i = 0; i < 20'000; ++i)
        source += "<div style='margin-bottom:-900000px'>text</div>";
    PageBench bench(source);
    bench.view.Painted();
    const int before = bench.view.Pane().LayoutsMade();
    CHECK(before > 200);
    bench.view.Painted();
    CHECK(bench.view.Pane().LayoutsMade() - before < 100);
}

TEST_CASE(
    "page pane: a page of pictures keeps its place in another width, at the cost of a screen") {
    for (const char* start : {"", "<h1>Title</h1>"}) {
        CAPTURE(start);
        std::string source = "<!DOCTYPE html><style>body,div,h1{margin:0}div{height:300px}</style>";
        source += start;
        for (int i = 0; i < 2000; ++i)
            source += "<div></div>";
        PageBench bench(source);
        bench.view.ScrollTo(0, 300'000);
        for (int i = 0; i < 500; ++i)
            bench.view.LetEventsCome();
        bench.view.Painted();
        const int before = bench.view.Pane().LayoutsMade();
        CHECK_FALSE(bench.view.Pane().IsLink({100, 100}));
        CHECK(bench.view.Pane().LayoutsMade() - before < 200);
        bench.view.Pane().ScrollLines(0); // by its user
        const int place = bench.view.ScrollTop();
        CHECK(place > 299'000);
        bench.Resize(500);
        bench.view.SettleTop();
        CHECK(bench.view.ScrollTop() == place);
        CHECK(bench.view.Top().start == 0);
    }
}

TEST_CASE("page pane: Tab goes to the link after the view without a layout of those above") {
    std::string source = "<!DOCTYPE html><style>body,p{margin:0}</style>";
    for (int i = 0; i < 5000; ++i)
        source += "<p><a href='x" + std::to_string(i) + "'>link " + std::to_string(i) + "</a>";
    PageBench bench(source);
    bench.view.Pane().ScrollLineToTop(TextPos(bench.view.Pane().Page()->Text().find(u"link 2500")));
    bench.view.Painted();
    const int before = bench.view.Pane().LayoutsMade();
    CHECK(bench.view.Pane().FocusLink(true));
    CHECK(bench.view.Pane().LayoutsMade() - before < 100);
    CHECK(bench.view.Pane().FollowFocusedLink());
    bench.view.LetEventsCome();
    REQUIRE(bench.links.size() == 1);
    CHECK(bench.links[0].ends_with(u"x2500"));
}

namespace {
// Of which measuring all would take 20 seconds.
struct LongBench : PageBench {
    LongBench() : PageBench(Paragraphs(20'000), std::chrono::milliseconds(1)) {}
    int LayoutsOf(const std::function<void()>& work) {
        const int before = view.Pane().LayoutsMade();
        work();
        view.Painted();
        return view.Pane().LayoutsMade() - before;
    }
};
constexpr int ofScreens = 60; // zones in a few of them
} // namespace

TEST_CASE("page pane: on a long page what is kept of it is answered at once") {
    LongBench bench;
    bench.view.Pane().ScrollLineToTop(4'000'000);
    const auto before = bench.view.window.time;
    const int layouts = bench.LayoutsOf([&] {
        CHECK(bench.view.ScrollTop() > 100'000);
        CHECK(bench.view.Top().offset == -1);
        CHECK(bench.view.Top().start == bench.view.StartAtTop());
        CHECK(bench.view.Selection().top < 0);
        CHECK(bench.view.Percent() > 50);
    });
    CHECK(layouts < 4 * ofScreens); // some are measured for each answer
    CHECK(bench.view.window.time - before < std::chrono::milliseconds(200));
}

TEST_CASE("page pane: keys on a long page cost a screen or two") {
    LongBench bench;
    bench.view.Painted();
    PagePane& pane = bench.view.Pane();
    const struct {
        PaneKey key;
        bool extend, control;
    } keys[] = {
        {PaneKey::End, false, false},  {PaneKey::PageUp, false, false},
        {PaneKey::Home, false, false}, {PaneKey::PageDown, false, false},
        {PaneKey::End, true, true},    {PaneKey::PageUp, true, false},
        {PaneKey::Home, true, true},   {PaneKey::PageDown, true, false},
        {PaneKey::End, false, true},   {PaneKey::Up, false, false},
    };
    for (const auto& c : keys) {
        CAPTURE(int(c.key));
        CHECK(bench.LayoutsOf([&] { pane.Press(c.key, c.extend, c.control); }) < ofScreens);
    }
    CHECK(bench.LayoutsOf([&] { pane.ScrollToValue(bench.view.window.vertical.max / 2); }) <
          ofScreens);
    CHECK(bench.LayoutsOf([&] { bench.Resize(500); }) < ofScreens);
}

TEST_CASE("page pane: the end of a long page is its last line, and stays so when it is zoomed") {
    LongBench bench;
    bench.view.ScrollToPercent(100);
    CHECK(bench.view.Percent() == 100);
    const TextPos top = bench.view.StartAtTop();
    CHECK(bench.view.Pane().Page()->Length() - top < 400 / 16 * 75);
    CHECK(bench.LayoutsOf([&] { bench.view.Pane().SetZoom(110); }) < ofScreens);
    CHECK(bench.view.Pane().Page()->Length() - bench.view.StartAtTop() < 400 / 16 * 75);
}

TEST_CASE("page pane: a match far down is shown without a layout of what is above it") {
    LongBench bench;
    std::optional<PageMatch> match;
    const int layouts = bench.LayoutsOf([&] {
        match = bench.view.FindAfterSelection(u"18000 word0", {});
        REQUIRE(match);
        bench.view.ScrollTo(match->left, match->top - match->searchTop);
        bench.view.Select(match->span);
    });
    CHECK(layouts < ofScreens);
    CHECK(bench.view.Selection().top >= 0);
    CHECK(bench.view.Selection().top < 400);
    const int shown = bench.view.Selection().top;
    bench.view.LetEventsCome();
    CHECK(bench.view.Selection().top == shown);
}

TEST_CASE("page pane: a long page that scrolls by itself goes on from where it is") {
    LongBench bench;
    bench.view.Pane().ScrollLineToTop(4'000'000);
    TextPos before = bench.view.StartAtTop();
    for (int i = 0; i < 100; ++i) {
        bench.view.ScrollDown(4);
        bench.view.Painted();
        bench.view.LetEventsCome();
    }
    CHECK(bench.view.StartAtTop() > before);
    CHECK(bench.view.StartAtTop() - before < 400 / 16 * 75);
}

TEST_CASE("page pane: an end that was left at once comes back, to the pixel where there was time") {
    for (const int seconds : {1, 30}) {
        CAPTURE(seconds);
        LongBench bench;
        bench.view.ScrollToPercent(100);
        const TextPos top = bench.view.StartAtTop();
        for (int i = 0; i < seconds; ++i)
            bench.view.SettleTop(); // a second each
        const PageTop kept = bench.view.Top();
        CHECK((kept.offset == -1) == (seconds == 1));
        LongBench again;
        again.view.BringToTop(kept);
        CHECK(again.view.StartAtTop() == top);
        CHECK(again.view.Percent() == 100);
    }
}

TEST_CASE("page pane: the text is at the top, not what stands beside it") {
    std::string bar = "<nav style='position:absolute;top:0;left:0;width:96px'>";
    for (int i = 0; i < 60; ++i)
        bar += "<div>link" + std::to_string(i) + "</div>";
    PageBench bench(Paragraphs(200) + "<style>p{margin-left:100px}</style>" + bar + "</nav>");
    bench.view.ScrollTo(0, 400);
    bench.view.Pane().ScrollLines(0); // by its user
    const std::u16string& text = bench.view.Pane().Page()->Text();
    const TextPos link = TextPos(text.find(u"link20"));
    const TextPos place = bench.view.StartAtTop();
    CHECK(place > 0);
    CHECK(place < link);
    bench.Resize(500);
    CHECK(bench.view.StartAtTop() <= place);
    CHECK(place - bench.view.StartAtTop() < 100); // in the same line
    // A link of it is found where it is seen.
    bench.view.BringToTop({.offset = -1, .start = link});
    CHECK(bench.PointOf(link).y < 32);
}

TEST_CASE("page pane: in a page in visual order is found what is typed in logical order") {
    const std::string letters = "<p>\xEC\xE0\xF8\xF9\xE9 \xEE\xE5\xEC\xF9 (1948) abc</p>";
    PageBench visual("<meta charset=iso-8859-8>" + letters);
    PageBench logical("<meta charset=windows-1255>" + letters);
    const auto found = [](PageBench& bench, std::u16string_view what) {
        const auto match = bench.view.FindAfterSelection(what, {});
        return match ? Utf16ToUtf8(bench.view.TextsOf({match->span}).front()) : "nothing";
    };
    CHECK(found(visual, u"שלומ") == "מולש");
    CHECK(found(visual, u"שלומ ישראל") == "לארשי מולש");
    CHECK(found(visual, u"ישראל שלומ") == "nothing");
    CHECK(found(visual, u"(1948) שלומ") == "מולש (1948)");
    CHECK(found(visual, u"מולש") == "מולש"); // as it was copied from the page
    CHECK(found(visual, u"ABC") == "abc");
    CHECK(found(logical, u"שלומ") == "nothing");
}
