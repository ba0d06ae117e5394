#include "view/scroll_label.h"

#include "page_pane_bench.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"

#include <doctest/doctest.h>

namespace {
std::u16string Book() {
    std::u16string text;
    for (int chapter = 1; chapter <= 9; ++chapter) {
        text +=
            u"\n\nCHAPTER " + std::u16string(1, static_cast<char16_t>(u'0' + chapter)) + u"\n\n";
        for (int line = 0; line < 30; ++line)
            text += u"a line of it\n";
    }
    return text;
}

std::u16string Label(PaneBench& bench) {
    const auto lines = bench.PaintedLines();
    return !lines.empty() && lines.back().find(u'%') != std::u16string::npos ? lines.back() : u"";
}
} // namespace

TEST_CASE("scroll label: the per cent and the heading above, for a moment") {
    PaneBench bench(600, 170);
    bench.LoadPlainText(Book());
    CHECK(Label(bench).empty());
    bench.Pane().ScrollTo(bench.TextLength() / 2);
    CHECK(Label(bench).empty()); // not for each scrolling
    bench.Pane().ShowScrollLabel();
    CHECK(Label(bench) == u"51 % \u2013 CHAPTER 5");
    REQUIRE(bench.window.timers.contains(PaneTimer::ScrollLabel));
    bench.Pane().OnTimer(PaneTimer::ScrollLabel);
    CHECK(Label(bench).empty());
    CHECK_FALSE(bench.window.timers.contains(PaneTimer::ScrollLabel));
}

TEST_CASE("scroll label: the ends are 0 and 100 per cent") {
    PaneBench bench(600, 170);
    bench.LoadPlainText(Book());
    bench.Pane().ShowScrollLabel();
    CHECK(Label(bench) == u"0 %");
    bench.Pane().ScrollTo(bench.TextLength());
    CHECK(Label(bench) == u"100 % \u2013 CHAPTER 9");
}

TEST_CASE("scroll label: none where there is nothing to scroll") {
    PaneBench bench;
    bench.LoadPlainText(u"short");
    bench.Pane().ShowScrollLabel();
    CHECK(Label(bench).empty());
}

TEST_CASE("scroll label: it keeps inside the view, and a long heading is cut") {
    PaneBench bench(300, 170);
    std::u16string text = u"CHAPTER 1\nA Title That Is Much Too Long For Half A Small Window\n\n";
    for (int line = 0; line < 50; ++line)
        text += u"a line\n";
    bench.LoadPlainText(text);
    for (const TextPos place : {TextPos{0}, bench.TextLength()}) {
        bench.Pane().ScrollTo(place);
        bench.Pane().ShowScrollLabel();
        const auto drawings = bench.Painted();
        const NoneDrawing& label = drawings.back();
        CHECK(label.text.ends_with(u'\u2026'));
        CHECK(label.rect.left >= 0);
        CHECK(label.rect.top >= 0);
        CHECK(Right(label.rect) <= 300);
        CHECK(Bottom(label.rect) <= 170);
    }
}

TEST_CASE("scroll label: headings of a long text are found a stretch at a time") {
    PaneBench bench(600, 170);
    std::u16string text;
    while (text.size() < 5u << 20)
        text += Book();
    bench.LoadPlainText(text);
    bench.Pane().ScrollTo(bench.TextLength());
    bench.Pane().ShowScrollLabel();
    CHECK(Label(bench) == u"100 %"); // not known yet
    int steps = 1;
    for (; bench.window.timers.contains(PaneTimer::Headings) && steps < 100; ++steps)
        bench.Pane().OnTimer(PaneTimer::Headings);
    CHECK(steps > 3);
    CHECK(steps < 10);
    CHECK(Label(bench) == u"100 % \u2013 CHAPTER 9");
    CHECK(bench.Headings().size() > 1000);
}

TEST_CASE("scroll label: a per cent that is gone to is the one that is shown") {
    PaneBench bench(600, 170);
    bench.LoadPlainText(Book());
    for (const int percent : {0, 1, 10, 33, 50, 99, 100}) {
        bench.ScrollToPercent(percent);
        CHECK(bench.Percent() == percent);
    }
}

TEST_CASE("scroll label: scrolling down by pixels says when the end is reached") {
    PaneBench bench(600, 170);
    bench.LoadPlainText(Book());
    const VerticalPos before = bench.Pane().Scroller().Top();
    CHECK(bench.ScrollDown(1));
    CHECK(bench.Pane().Scroller().Top() == VerticalPos{before.block, before.y + 1});
    int pixels = 1;
    while (bench.ScrollDown(100) && pixels < 100'000)
        pixels += 100;
    CHECK(bench.Percent() == 100);
    CHECK_FALSE(bench.ScrollDown(1));
}

TEST_CASE("scroll label: of a page, by its h1 to h6") {
    NoneClock clock;
    NoneFiles files{clock};
    std::string source = "<!DOCTYPE html>";
    for (const char chapter : {'1', '2', '3', '4'}) {
        source += std::string("<h2>Chapter <i>") + chapter + "</i></h2>";
        for (int line = 0; line < 500; ++line)
            source += "<p>a line of it";
    }
    files.AddFile(u"/books/page.htm", source);
    PagePaneBench bench(files);
    const auto label = [&]() -> std::u16string {
        for (const NoneDrawing& drawing : bench.Painted())
            if (drawing.text.find(u'%') != std::u16string::npos) return drawing.text;
        return {};
    };
    bench.Pane().ShowScrollLabel(); // without a page
    bench.Navigate(u"/books/page.htm", 1);
    bench.ProcessEvents();
    CHECK(label().empty());
    bench.Pane().ShowScrollLabel();
    CHECK(label() == u"0 % \u2013 Chapter 1");
    // What is above is not measured for the label.
    const int before = bench.Pane().LayoutsMade();
    bench.Pane().ScrollToValue(bench.Pane().VerticalValue() + 30'000);
    bench.Pane().ShowScrollLabel();
    CHECK(label().ends_with(u" % \u2013 Chapter 2"));
    CHECK(bench.Pane().LayoutsMade() - before < 40);
    bench.ScrollToPercent(100);
    CHECK(label() == u"100 % \u2013 Chapter 4");
    bench.Pane().OnTimer(PaneTimer::ScrollLabel);
    CHECK(label().empty());
    CHECK_FALSE(bench.window.timers.contains(PaneTimer::ScrollLabel));

    bench.Pane().ShowScrollLabel();
    bench.Clear();
    CHECK_FALSE(bench.window.timers.contains(PaneTimer::ScrollLabel));
}
