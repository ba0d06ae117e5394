// What a page costs that would take many seconds to lay out as a whole.
#include "tests/unit/page_bench.h"

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
    bench.view.ProcessEvents();
    CHECK(bench.view.Selection().top == shown);
}

TEST_CASE("page pane: a long page that scrolls by itself goes on from where it is") {
    LongBench bench;
    bench.view.Pane().ScrollLineToTop(4'000'000);
    TextPos before = bench.view.StartAtTop();
    for (int i = 0; i < 100; ++i) {
        bench.view.ScrollDown(4);
        bench.view.Painted();
        bench.view.ProcessEvents();
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
