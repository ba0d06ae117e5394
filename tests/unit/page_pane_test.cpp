// The view of pages in a window that is only remembered: what the port's suite does not ask.
#include "common/utf.h"
#include "tests/unit/page_bench.h"

TEST_CASE("page pane: a link is followed where it is pressed and let go, and is no text to drag") {
    PageBench bench("<p>some words <a href='http://a.b/c'>a link</a> and more");
    PagePane& pane = bench.view.Pane();
    const Point link = bench.PointOf(13), word = bench.PointOf(2);
    CHECK(pane.IsLink(link));
    CHECK_FALSE(pane.IsLink(word));
    pane.Click(link, 1, false);
    pane.EndDrag();
    bench.view.ProcessEvents();
    CHECK(bench.links == std::vector<std::u16string>{u"http://a.b/c"});
    pane.Click(link, 1, false);
    pane.DragTo(word);
    pane.EndDrag();
    for (int i = 0; i < 5; ++i)
        bench.view.ProcessEvents();
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

TEST_CASE("page pane: a file that is not there is reported in the page's place") {
    NoneClock clock;
    NoneFiles files{clock};
    PagePaneBench view(files);
    view.Navigate(u"/nowhere.htm", 1);
    for (int i = 0; i < 5; ++i)
        view.ProcessEvents();
    CHECK_FALSE(view.HasBody());
    CHECK(view.notice == u"This book cannot be loaded.");
    view.Clear();
    CHECK(view.notice.empty());
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
    bench.view.ProcessEvents();
    REQUIRE(bench.links.size() == 1);
    CHECK(bench.links[0].ends_with(u"x2500"));
}
