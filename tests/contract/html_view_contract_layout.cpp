// What every HTML view must do with places when the page is laid out again.
#include "tests/contract/html_view_contract.h"

#include <cmath>

namespace {
// Paragraphs of several lines: other letters and another width break them elsewhere.
std::string LongParagraphs(int count) {
    std::string source;
    for (int i = 0; i < count; ++i) {
        source += "<p>" + std::to_string(i);
        for (int word = 0; word < 60; ++word)
            source += " word" + std::to_string(i * 60 + word);
    }
    return source;
}

void ScrollToMiddle(PageTest& test) {
    test.view.ScrollTo(0, 1 << 20);
    test.Settle();
    test.view.SettleTop();
    test.view.ScrollTo(0, test.view.ScrollTop() / 2);
    test.Settle();
    test.view.SettleTop();
}

constexpr const char* noMargins = "<style>body,p{margin:0}p{line-height:20px}</style>";
} // namespace

TEST_CASE("html layout: the line at the top stays there when the page is zoomed") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(LongParagraphs(200), noMargins);
        ScrollToMiddle(test);
        const int place = test.view.ScrollTop();
        const TextPos top = test.view.StartAtTop();
        for (const bool larger : {true, true, true, false, false, false, false, true}) {
            test.view.SendZoomKey(larger);
            const TextPos now = test.view.StartAtTop();
            CAPTURE(now - top);
            CHECK(now <= top);
            CHECK(test.Text({now, top - now}).find(u'\n') == std::u16string::npos);
            CHECK(top - now < 80); // in the line that the character has got into
        }
        CHECK(test.view.StartAtTop() == top); // at normal size again
        test.view.SettleTop();
        CHECK(std::abs(test.view.ScrollTop() - place) <= 1);
    });
}

TEST_CASE(
    "html layout: the line at the top stays there in another width, and comes back to its pixel") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(LongParagraphs(200), noMargins);
        ScrollToMiddle(test);
        test.view.ScrollSpanToTop({test.view.StartAtTop(), 0});
        test.Settle();
        test.view.SettleTop();
        const PageTop before = test.view.Top();
        if (before.start < 0) return; // a view that knows pixels alone
        const auto settle = [&](const Rect& bounds) {
            test.view.SetBounds(bounds);
            REQUIRE(test.WaitFor([&] {
                test.Settle();
                return test.view.ViewHeight() == bounds.height;
            }));
        };
        for (const int width : {350, 470, 290}) {
            CAPTURE(width);
            settle({0, 0, width, 400 - width / 10});
            const TextPos line = test.view.StartAtTop();
            CHECK(test.view.Top().start == before.start);
            CHECK(line <= before.start);
            CHECK(before.start - line < 80); // in the line that the character has got into
        }
        settle({0, 0, 600, 400});
        CHECK(test.view.Top().start == before.start);
        test.view.SettleTop();
        CHECK(std::abs(test.view.ScrollTop() - before.offset) <= 1);
    });
}

TEST_CASE("html layout: size and place change together") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(LongParagraphs(200), noMargins);
        ScrollToMiddle(test);
        const int place = test.view.ScrollTop();
        int zoomed = 0;
        test.view.onZoomed = [&] { ++zoomed; };
        for (int i = 0; i < 4; ++i)
            test.view.SendZoomKey(true);
        CHECK(zoomed == 0); // no event comes from within an order
        CHECK(test.view.ZoomSteps() == 0);
        CHECK(test.view.ScrollTop() == place);
        REQUIRE(test.WaitFor([&] { return zoomed > 0 && test.view.ZoomSteps() == 4; }));
        test.view.SettleTop();
        const int settled = test.view.ScrollTop();
        CHECK(settled > place); // the lines have become shorter
        test.Settle();
        CHECK(test.view.ScrollTop() == settled);
        test.Open("another page");
        CHECK(test.view.ZoomSteps() == 0);
    });
}

TEST_CASE("html layout: at its start a page stays there when it is zoomed") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(LongParagraphs(50), "<style>body{padding-top:10vw}</style>");
        for (int i = 0; i < 3; ++i)
            test.view.SendZoomKey(true);
        test.Settle();
        CHECK(test.view.ScrollTop() == 0);
    });
}

TEST_CASE("html layout: a page comes at normal size, whatever was pressed while it loaded") {
    OnEachBackEnd([](PageTest& test) {
        test.Navigate(test.Write("page.htm", NumberedParagraphs(200)));
        test.view.SendZoomKey(true);
        test.bench.Press(PlusKey, 2); // Ctrl and "+"
        test.view.SendZoomKey(true);
        REQUIRE(test.WaitFor([&] { return !test.loaded.empty(); }));
        test.Settle();
        CHECK(test.view.ViewHeight() == 400);
        test.view.SendZoomKey(true); // one step from normal
        CHECK(test.WaitFor([&] { return std::abs(test.view.ViewHeight() - 400 / 1.1) <= 1; }));
    });
}

TEST_CASE("html layout: keys beyond the largest size count, so that their sum leads to the same") {
    OnEachBackEnd([](PageTest& test) {
        const auto send = [&](bool larger, int times) {
            for (int i = 0; i < times; ++i)
                test.view.SendZoomKey(larger);
        };
        const auto comesTo = [&](int percent) {
            return test.WaitFor(
                [&] { return std::abs(test.view.ViewHeight() - 40000 / percent) <= 1; });
        };
        test.Open(NumberedParagraphs(400));
        send(true, 12);
        CHECK(comesTo(500));
        send(false, 4);
        CHECK(comesTo(400));
        test.Open(NumberedParagraphs(400)); // left and come back
        send(true, 8);
        CHECK(comesTo(400));
    });
}

TEST_CASE("html layout: the place asked for is kept whatever the zoom, also over and over") {
    OnEachBackEnd([](PageTest& test) {
        for (int larger = 0; larger < 5; ++larger) {
            test.Open(LongParagraphs(100), noMargins);
            for (int i = 0; i < larger; ++i)
                test.view.SendZoomKey(true);
            for (const int place : {1209, 1210, 1211, 1213, 1217, 1726}) {
                CAPTURE(place);
                test.view.ScrollTo(0, place);
                test.Settle();
                CHECK(test.view.ScrollTop() == place);
            }
        }
    });
}

TEST_CASE("html layout: what was ordered is done when the window closes") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(LongParagraphs(3000), noMargins);
        ScrollToMiddle(test);
        const int place = test.view.ScrollTop();
        test.view.SendZoomKey(true);
        test.view.SendZoomKey(true);
        test.bench.CloseWindow();
        CHECK(test.view.ScrollTop() > place + 1000); // the lines have become shorter
    });
}

TEST_CASE("html layout: what a page lays out only when it is seen is laid out at once") {
    OnEachBackEnd([](PageTest& test) {
        std::string body;
        for (int i = 0; i < 100; ++i)
            body += "<div>" + LongParagraphs(1) + "</div>";
        test.Open(body, noMargins);
        test.view.ScrollTo(0, 1 << 20);
        test.Settle();
        const int end = test.view.ScrollTop();
        test.Open(body,
                  std::string(noMargins) +
                      "<style>div{content-visibility:auto;contain-intrinsic-size:9px}</style>");
        test.view.ScrollTo(0, 1 << 20);
        test.Settle();
        CHECK(test.view.ScrollTop() == end);
    });
}

TEST_CASE("html layout: a page that scrolls inside an element scrolls as a whole") {
    const char* const styles[] = {
        "html{overflow:hidden;height:100%}body{overflow:auto;height:100%}",
        "html,body{overflow:hidden;height:100%}main{overflow:auto;height:100%}",
        "main{overflow-y:scroll;height:100vh}",
        "body{overflow:hidden}main{overflow:auto;position:fixed;top:0;bottom:0;left:0;right:0}",
        ("body{display:flex;flex-direction:column;height:100vh}main{flex:1;min-height:0;"
         "overflow:auto}"),
    };
    OnEachBackEnd([&](PageTest& test) {
        for (const char* style : styles) {
            CAPTURE(style);
            test.Open("<main>" + LongParagraphs(100) + "</main>",
                      std::string(noMargins) + "<style>" + style + "</style>");
            test.view.ScrollTo(0, 2000);
            test.Settle();
            CHECK(test.view.ScrollTop() == 2000);
            CHECK(test.view.ViewHeight() == 400);
            CHECK(test.view.StartAtTop() > 1000);
        }
    });
}

TEST_CASE("html layout: a page's own colours, and its text in another one") {
    const struct {
        const char *head, *body;
        Color text, background;
    } cases[] = {
        {"", "text", 0x000000, 0xFFFFFF},
        {"<style>body{color:#eee;background:#123}</style>", "text", 0xEEEEEE, 0x332211},
        {"<style>html{background:#123;color:silver}</style>", "text", 0xC0C0C0, 0x332211},
        {"<style>body{background:rgba(9,9,9,0)}</style>", "text", 0x000000, 0xFFFFFF},
    };
    OnEachBackEnd([&](PageTest& test) {
        for (const auto& sample : cases) {
            CAPTURE(sample.head);
            test.view.ExpectBackColor(0x808080);
            test.Open(sample.body, sample.head);
            CHECK(test.view.OwnColors().text == sample.text);
            CHECK(test.view.OwnColors().background == sample.background);
            test.view.SetBackColor(0x808080);
            test.view.SetTextColor(0xFF0000);
            test.view.SetTextColor(std::nullopt);
            test.Settle();
            CHECK(test.view.OwnColors().text == sample.text); // as loaded
        }
    });
}

TEST_CASE("html layout: a page has the style sheets that its own ones import") {
    OnEachBackEnd([](PageTest& test) {
        std::filesystem::create_directory(test.folder / "sheets");
        test.Write("a.css", "@import 'sheets/b.css';");
        test.Write("sheets/b.css", "@import url(c.css); body{color:#eee}");
        test.Write("sheets/c.css", "body{background:#123;color:red}");
        for (const char* head :
             {"<link rel=stylesheet href=a.css>", "<style>@import 'a.css';</style>"}) {
            CAPTURE(head);
            test.Open("text", head);
            CHECK(test.view.OwnColors().text == 0xEEEEEE);
            CHECK(test.view.OwnColors().background == 0x332211);
        }
    });
}
