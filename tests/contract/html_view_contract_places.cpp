// What every HTML view must do with places: scrolling, selecting, finding, zooming, following
// links.
#include "tests/contract/html_view_contract.h"

#include <cmath>

namespace {
constexpr const char* plainMargins = "<style>body{margin:8px}p{margin:0;line-height:20px}</style>";
constexpr TextPos lineLength = 10; // "line 0000" and its break

PageSpan Line(int number) {
    return {number * lineLength, lineLength - 1};
}

constexpr int tabKey = 9, returnKey = 13, pageDown = 34, zeroKey = '0', copyKey = 'C';

} // namespace

TEST_CASE("html view: scrolls as far as the page goes") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(200), plainMargins);
        CHECK(test.view.ScrollTop() == 0);
        CHECK(test.view.TopMargin() == 8);
        CHECK(test.view.ViewHeight() == 400);
        test.view.ScrollTo(0, 1200);
        CHECK(test.view.ScrollTop() == 1200);
        test.Settle();
        CHECK(test.view.ScrollTop() == 1200);
        test.view.ScrollTo(0, 1 << 20);
        CHECK(test.view.ScrollTop() == 1 << 20); // until the page says otherwise
        test.Settle();
        CHECK(test.view.ScrollTop() == 200 * 20 + 16 - 400);
        test.view.ScrollTo(0, -5);
        test.Settle();
        CHECK(test.view.ScrollTop() == 0);
    });
}

TEST_CASE("html view: brings a line to the top, and knows the character there" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(200), plainMargins);
        for (const int line : {0, 1, 57, 120}) {
            CAPTURE(line);
            test.view.ScrollSpanToTop(Line(line));
            CHECK(test.view.StartAtTop() == line * lineLength);
            CHECK(std::abs(test.view.ScrollTop() - line * 20) <= 2); // the box of the letters
        }
    });
}

TEST_CASE("html view: what is at the top comes back there, to the pixel or by its words" *
          plainPages) {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(400), plainMargins);
        CHECK(test.view.Top().offset == 0);
        test.view.ScrollTo(0, 1207);
        test.Settle();
        const PageTop top = test.view.Top();
        CHECK(top.offset == 1207);
        if (top.start < 0) return; // a view that knows pixels alone
        CHECK(top.start == 60 * lineLength);
        CHECK(top.before.ends_with(u"line 0059\n"));
        CHECK(top.after.starts_with(u"line 0060\n"));
        CHECK(top.length == 400 * lineLength - 1);
        test.Open(NumberedParagraphs(400), plainMargins);
        test.view.BringToTop(top);
        CHECK(test.view.Top().start == top.start); // at once
        test.Settle();
        CHECK(test.view.ScrollTop() == 1207);
        test.Open("<h1>a new beginning</h1><p>line</p>" + NumberedParagraphs(400), plainMargins);
        const TextPos moved = top.start + 16 + 5;
        PageTop elsewhere{.offset = -1, .start = moved, .above = top.above};
        for (const PageTop& each : {elsewhere, PageTop{1207, moved, top.above}}) {
            test.view.BringToTop(each);
            test.Settle();
            CHECK(test.view.Top().start == moved);
            CHECK(test.view.Top().above == (each.offset < 0 ? top.above : 0));
            CHECK(test.view.ScrollTop() > 1207);
        }
        test.view.ScrollTo(0, 0);
        test.Settle();
        CHECK(test.view.Top().start == 0);
        test.view.BringToTop({.offset = 60});
        test.Settle();
        CHECK(test.view.ScrollTop() == 60);
    });
}

TEST_CASE("html view: a line of which little is seen is not the one at the top" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(200), plainMargins);
        test.view.ScrollTo(0, 60 * 20 - 3);
        test.Settle();
        CHECK(test.view.StartAtTop() == 60 * lineLength);
        const PageTop top = test.view.Top();
        if (top.start < 0) return; // a view that knows pixels alone
        CHECK(top.start == 60 * lineLength);
        CHECK(top.above < 0);
    });
}

TEST_CASE("html view: selects, and shows where the selection starts" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(200), plainMargins);
        CHECK(test.view.Selection().span == PageSpan{});
        CHECK(test.view.Selection().top == test.view.TopMargin());
        CHECK(test.view.SelectedText().empty());
        test.view.Select(Line(3));
        CHECK(test.view.SelectedText() == u"line 0003");
        CHECK(test.view.ScrollTop() == 0); // seen already
        test.view.Select(Line(100));
        CHECK(test.view.SelectedText() == u"line 0100");
        CHECK(test.view.Selection().span == Line(100));
        CHECK(test.view.Selection().top > 300);
        CHECK(test.view.Selection().top < 400);
        test.view.ScrollTo(0, 3000);
        test.Settle();
        CHECK(test.view.Selection().top < 0);
        test.view.Select({50, 0});
        test.Settle();
        CHECK(test.view.Selection().span == PageSpan{50, 0});
        CHECK(std::abs(test.view.Selection().top) <= 2);
    });
}

TEST_CASE("html view: texts of spans inside, across and outside the text" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(3));
        const std::vector<std::u16string> expected{u"line 0001", u"0\nl", u"line 0002", u"", u""};
        CHECK(test.view.TextsOf({Line(1), {8, 3}, {20, 100}, {500, 3}, {4, 0}}) == expected);
    });
}

TEST_CASE("html view: finds after the selection, up to the end" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(200) + "<p>Word words</p>", plainMargins);
        const auto first = test.view.FindAfterSelection(u"LINE 01", {});
        REQUIRE(first.has_value());
        CHECK(first->span == PageSpan{1000, 7});
        CHECK(std::abs(first->top - 2008) <= 2);
        CHECK(first->left == 8);
        CHECK(first->searchTop == 8);
        test.view.Select(first->span);
        const auto second = test.view.FindAfterSelection(u"line 01", {});
        REQUIRE(second.has_value());
        CHECK(second->span.start == 1010);
        CHECK(second->top - second->searchTop == 20);
        CHECK_FALSE(test.view.FindAfterSelection(u"LINE", {.matchCase = true}).has_value());
        CHECK_FALSE(test.view.FindAfterSelection(u"line 0000", {}).has_value()); // no way round
        CHECK(test.view.FindAfterSelection(u"word", {.wholeWord = true})->span.start == 2000);
        CHECK_FALSE(test.view.FindAfterSelection(u"wor", {.wholeWord = true}).has_value());
        CHECK_FALSE(test.view.FindAfterSelection(u"", {}).has_value());
    });
}

TEST_CASE("html view: the source of the selection") {
    OnEachBackEnd([](PageTest& test) {
        test.Open("<p>one <b>two <i>three</i></b></p><p>four</p>");
        CHECK(test.view.SelectionAsHtml().empty());
        test.view.Select({4, 3});
        CHECK(test.view.SelectionAsHtml() == u"<p><b>two</b></p>");
        test.view.Select({4, 14});
        CHECK(test.view.SelectionAsHtml() == u"<p><b>two <i>three</i></b></p><p>four</p>");
    });
}

TEST_CASE("html view: zoom keys of the program are carried out in order and reported afterwards") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(400), plainMargins);
        test.bench.keysDown.clear();
        for (int i = 0; i < 3; ++i)
            test.view.SendZoomKey(true); // 110, 125, 150
        test.view.ScrollTo(0, 1500);
        CHECK(test.bench.keysDown.empty());
        test.Settle();
        CHECK(test.view.ScrollTop() == 1500);
        CHECK(std::abs(test.view.ViewHeight() - 400 / 1.5) <= 1);
        const std::vector<std::pair<int, int>> told(3, {PlusKey, CtrlKey});
        CHECK(test.WaitFor([&] { return test.bench.keysDown.size() == 3; }));
        REQUIRE(test.bench.keysDown == told);
        test.view.SendZoomKey(false);
        REQUIRE(test.WaitFor([&] { return std::abs(test.view.ViewHeight() - 320) <= 1; }));
        CHECK(test.bench.keysDown.back() == std::pair<int, int>{MinusKey, CtrlKey});
        test.Open("another page is at normal size");
        CHECK(test.view.ViewHeight() == 400);
    });
}

TEST_CASE("html view: keys of the user scroll and zoom, and the window is told of all") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(400), plainMargins);
        test.bench.keysDown.clear();
        test.bench.Press(pageDown, 0);
        REQUIRE(test.WaitFor([&] { return test.view.ScrollTop() > 200; }));
        test.bench.Press(PlusKey, CtrlKey);
        REQUIRE(test.WaitFor([&] { return test.view.ViewHeight() < 370; }));
        test.bench.Press(zeroKey, CtrlKey);
        REQUIRE(test.WaitFor([&] { return test.view.ViewHeight() == 400; }));
        test.bench.Press(copyKey, CtrlKey);
        const std::vector<std::pair<int, int>> told{
            {pageDown, 0}, {PlusKey, CtrlKey}, {zeroKey, CtrlKey}, {copyKey, CtrlKey}};
        CHECK(test.bench.keysDown == told);
    });
}

TEST_CASE(
    "html view: keys pressed while an engine loads a page go on from where it is brought to") {
    OnEachEngine([](PageTest& test) {
        const auto loaded = test.view.onLoaded;
        test.view.onLoaded = [&](int page, const std::u16string& url) {
            loaded(page, url);
            test.bench.Press(pageDown, 0);
            test.view.BringToTop({.offset = 1000});
        };
        const std::string body = plainMargins + NumberedParagraphs(400);
        test.Navigate(test.Write("book.htm", "<!DOCTYPE html>" + body));
        test.bench.Press(pageDown, 0);
        CHECK(test.WaitFor([&] { return test.view.ScrollTop() > 1500; }));
        test.Settle();
        CHECK(test.view.ScrollTop() < 1800); // two pages on
    });
}

TEST_CASE("html view: a key pressed while an engine loads a page without a place moves it once") {
    OnEachEngine([](PageTest& test) {
        test.view.ExpectPlace(false);
        const std::string body = plainMargins + NumberedParagraphs(20000);
        test.Navigate(test.Write("book.htm", "<!DOCTYPE html>" + body));
        test.bench.Press(pageDown, 0);
        REQUIRE(test.WaitFor([&] { return !test.loaded.empty(); }));
        CHECK(test.WaitFor([&] { return test.view.ScrollTop() > 200; }));
        test.Settle();
        CHECK(test.view.ScrollTop() < 450); // one page on
    });
}

TEST_CASE("html view: links") {
    OnEachBackEnd([](PageTest& test) {
        test.Write("other.htm", "other");
        test.Open("<a href='other.htm#x'>1</a> <a href='http://a.b/c'>2</a>"
                  "<a href='other.htm' target=_blank>3</a>"
                  "<a href='javascript:document.title=1'>4</a> <a href='#end'>5</a>"
                  "<p style='height:3000px'></p><p id=end>end");
        const auto follow = [&] {
            test.bench.Press(tabKey, 0);
            test.bench.Press(returnKey, 0);
        };
        const std::u16string other = (test.folder / "other.htm").u16string();
        follow();
        REQUIRE(test.WaitFor([&] { return test.links.size() == 1; }));
        CHECK(test.links[0].first.ends_with(u"/other.htm#x"));
        CHECK(test.links[0].second == other);
        follow();
        REQUIRE(test.WaitFor([&] { return test.links.size() == 2; }));
        CHECK(test.links[1] == std::pair<std::u16string, std::u16string>{u"http://a.b/c", u""});
        follow();
        REQUIRE(test.WaitFor([&] { return test.links.size() == 3; }));
        CHECK(test.links[2].second == other);
        follow();
        follow();
        REQUIRE(test.WaitFor([&] { return test.view.ScrollTop() > 2000; }));
        CHECK(test.links.size() == 3);
        REQUIRE(test.WaitFor([&] { return !test.jumps.empty(); }));
        CHECK(test.jumps == std::vector<int>{0});
        CHECK(test.loaded.size() == 1);
        CHECK(test.view.Title().empty());
    });
}

TEST_CASE(
    "html view: links of all schemes and to all files are reported, and only those followed") {
    OnEachBackEnd([](PageTest& test) {
        test.Write("song.mp3", "ID3");
        test.Write("frame.htm", "<a href='tel:+1'>call</a>");
        test.Open("<iframe src='mailto:frame@x.y'></iframe><iframe src='foo:frame'></iframe>"
                  "<a href='mailto:a@b.c?subject=d&amp;attach=e'>1</a> <a href='tel:+12'>2</a> "
                  "<a href='foo:bar'>3</a> <a href='song.mp3'>4</a> "
                  "<a href='mailto:f@b.c' target=_blank>5</a> <iframe src='frame.htm'></iframe>",
                  "<meta http-equiv=refresh content='0;url=mailto:refresh@x.y'>");
        const std::pair<std::u16string, std::u16string> told[] = {
            {u"mailto:a@b.c?subject=d&attach=e", u""},
            {u"tel:+12", u""},
            {u"foo:bar", u""},
            {u"", (test.folder / "song.mp3").u16string()},
            {u"mailto:f@b.c", u""},
            {u"tel:+1", u""}, // in a frame
        };
        const std::size_t count = std::size(told) - (test.bench.HasEngine() ? 0 : 1);
        while (test.links.size() < count) {
            const auto before = test.links.size();
            CAPTURE(before);
            for (int tabs = 0; tabs < 4 && test.links.size() == before; ++tabs) {
                test.bench.Press(tabKey, 0); // also goes to frames
                test.bench.Press(returnKey, 0);
                test.Settle();
                test.WaitFor([&] { return test.links.size() > before; }, std::chrono::seconds(1));
            }
            REQUIRE(test.links.size() == before + 1);
            const auto& [url, path] = told[before];
            CHECK(test.links.back().second == path);
            if (path.empty()) CHECK(test.links.back().first == url);
        }
        CHECK(test.loaded.size() == 1);
        CHECK(test.gone == 0);
    });
}

TEST_CASE("html view: frames of the folder show, others and redirections do not") {
    OnEachBackEnd([](PageTest& test) {
        test.Write("inner.htm", "<body bgcolor=red>inner");
        test.Open("<iframe src='inner.htm'></iframe><iframe src='/etc/hostname'></iframe>outer",
                  "<meta http-equiv=refresh content='0;url=inner.htm'>");
        const auto loads = test.loaded.size();
        test.view.SelectAll();
        CHECK(test.view.SelectedText() == u"outer");
        for (int i = 0; i < 50; ++i)
            test.bench.ProcessEvents();
        CHECK(test.loaded.size() == loads);
        CHECK(test.links.empty());
        CHECK(test.Text() == u"outer");
    });
}

TEST_CASE("html view: Hebrew in visual order stays so, and the charset says it") {
    const char iso[] =
        "<p>\xED\xE9\xF0\xE1 \xE4\xF9\xE5\xEC\xF9 \xE5\xEC\xE5 \xEF\xF7\xE6 \xEA\xEC\xEE "
        "\xE4\xE9\xE4 \xE4\xE9\xE4<p>\xED\xEC\xE5\xEB\xEE \xED\xEB\xE7\xE4 \xE4\xE9\xE4 "
        "\xED\xE4\xE1\xF9 \xF8\xE9\xF2\xF6\xE4\xE5<p>\xF7\xE5\xE7\xF8\xE4 \xF8\xF2\xE9\xE4 "
        "\xEC\xE0 \xED\xE9\xF0\xE1\xE4 \xE5\xE0\xF6\xE9 \xE3\xE7\xE0 \xED\xE5\xE9";
    const char dos[] =
        "<p>\x8D\x89\x90\x81 \x84\x99\x85\x8C\x99 \x85\x8C\x85 \x8F\x97\x86 \x8A\x8C\x8E "
        "\x84\x89\x84 \x84\x89\x84<p>\x8D\x8C\x85\x8B\x8E \x8D\x8B\x87\x84 \x84\x89\x84 "
        "\x8D\x84\x81\x99 \x98\x89\x92\x96\x84\x85<p>\x97\x85\x87\x98\x84 \x98\x92\x89\x84 "
        "\x8C\x80 \x8D\x89\x90\x81\x84 \x85\x80\x96\x89 \x83\x87\x80 \x8D\x85\x89";
    OnEachBackEnd([&](PageTest& test) {
        for (const std::string& page :
             {std::string("<meta charset=iso-8859-8>") + iso, std::string(iso), std::string(dos)}) {
            const auto loads = test.loaded.size();
            test.Navigate(test.Write("page.htm", page));
            REQUIRE(test.WaitFor([&] { return test.loaded.size() > loads; }));
            CHECK(test.view.Charset() == "ISO-8859-8");
            const auto old = test.view.FindAfterSelection(u"ןקז ךלמ", {});
            REQUIRE(old.has_value());
            // A word further right stands further right: the letters are not turned around.
            const auto once = test.view.FindAfterSelection(u"היה", {});
            REQUIRE(once.has_value());
            CHECK(once->left > old->left);
        }
    });
}
