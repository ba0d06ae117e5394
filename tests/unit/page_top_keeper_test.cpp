// What is at the top of a page's view, on a clock turned by hand. A paragraph has 4 lines of 16
// pixels, which the estimates take for more.
#include "common/utf.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "tests/unit/pane_bench.h"
#include "view/html/page_top_keeper.h"

#include <doctest/doctest.h>

using namespace std::chrono_literals;

namespace {
constexpr int paragraphs = 3000, paragraphHeight = 64;

std::string Source() {
    std::string source = "<!DOCTYPE html><style>body,p{margin:0}</style>";
    for (int i = 0; i < paragraphs; ++i) {
        source += "<p>" + std::to_string(100'000 + i);
        for (int line = 0; line < 3; ++line)
            source += "<br>line";
    }
    return source;
}

class TopBench {
  public:
    TopBench() { Resize(600); }

    // As the pane does it.
    void Resize(int width) {
        std::optional<PageTopKeeper::Anchor> anchor;
        if (shown_) anchor = top.AnchorOf(View());
        options_.viewport = {width, 400};
        scroller.SetPage(nullptr, 1);
        shown_ = std::make_unique<ShownPage>(page_, sheets_, pictures_, lines_, options_);
        scroller.SetPage(shown_.get(), 400);
        top.Restore(View(), anchor);
    }
    PageViewport View() { return {page_, *shown_, scroller, 0, options_.viewport}; }
    PageTop Top() { return top.Top(View()); }
    TextPos StartOf(int paragraph) {
        return TextPos(page_.Text().find(Utf8ToUtf16(std::to_string(100'000 + paragraph))));
    }
    std::size_t Measured() { return shown_->Flow().FirstNotMeasured(); }

    FakePaneWindow window;
    PageScroller scroller;
    PageTopKeeper top{scroller, window};

  private:
    NoneClock clock_;
    NoneFiles files_{clock_};
    NoneLineLayout lines_;
    NoPictures store_;
    LoadedPage page_{u"/books/page.htm", Source(), 1252};
    PageFiles pageFiles_{files_, page_};
    PagePictures pictures_{page_, pageFiles_, store_};
    std::vector<std::u16string> sheets_ = PageSheets(page_, pageFiles_);
    PageRenderOptions options_;
    std::unique_ptr<ShownPage> shown_;
};
} // namespace

TEST_CASE("page top: a height far down is reported as it was asked for until it is reached") {
    constexpr int place = 2000 * paragraphHeight;
    TopBench bench;
    bench.window.look = 1ms;
    bench.top.BringToTop(bench.View(), {.offset = place});
    CHECK(bench.top.IsOnItsWay());
    CHECK(bench.Top().offset == place);
    CHECK(bench.Top().start == -1);
    CHECK(bench.top.Height(bench.View()) == place);
    int steps = 0;
    while (bench.top.IsOnItsWay() && ++steps < 1000)
        bench.top.GoOn(bench.View());
    CHECK(steps > 100);
    CHECK(steps < 1000);
    CHECK(bench.scroller.Height() == place);
    CHECK(bench.Top().start == bench.StartOf(2000));
}

TEST_CASE("page top: it is reported at once, and its pixel when all above has been measured") {
    TopBench bench;
    bench.window.look = 1ms;
    bench.top.BringToTop(bench.View(), {.start = bench.StartOf(700), .above = 5});
    const auto before = bench.window.time;
    PageTop top = bench.Top();
    bench.top.Height(bench.View());
    CHECK(bench.window.time == before);
    CHECK(bench.Measured() == 0);
    CHECK(top.offset == -1);
    CHECK(top.start == bench.StartOf(700));
    CHECK(top.above == 5);
    CHECK(top.after.starts_with(u"100700"));
    CHECK_FALSE(bench.top.Settle(bench.View()));
    top = bench.Top();
    CHECK(top.offset == 700 * paragraphHeight + 5);
    CHECK(top.start == bench.StartOf(700));
}

TEST_CASE("page top: what is kept for good may take a second") {
    TopBench bench;
    bench.window.look = 1ms;
    bench.top.BringToTop(bench.View(), {.start = bench.StartOf(2900)});
    const auto before = bench.window.time;
    bench.top.Settle(bench.View());
    CHECK(bench.window.time - before < 1010ms);
    CHECK(bench.Measured() >= 990);
    CHECK(bench.Top().offset == -1);
    CHECK(bench.Top().start == bench.StartOf(2900));
    bench.top.Settle(bench.View());
    bench.top.Settle(bench.View());
    CHECK(bench.Top().offset == 2900 * paragraphHeight);
}

TEST_CASE("page top: a window gets its size late, but not seconds later") {
    for (const bool late : {false, true}) {
        CAPTURE(late);
        TopBench bench;
        bench.Resize(700);
        bench.top.BringToTop(bench.View(), {.offset = 140 * paragraphHeight});
        REQUIRE(bench.top.Arrive(bench.View()));
        bench.scroller.ScrollBy(paragraphHeight); // by the window, not by its user
        bench.window.time += late ? 3001ms : 2999ms;
        bench.Resize(600);
        CHECK(bench.top.Arrive(bench.View()) != late);
        CHECK(bench.View().StartAtTop() == bench.StartOf(late ? 141 : 140));
    }
}

TEST_CASE("page top: what was asked for is forgotten once the page is scrolled or zoomed") {
    TopBench bench;
    bench.window.look = 1ms;
    bench.top.BringToTop(bench.View(), {.offset = 2000 * paragraphHeight});
    REQUIRE(bench.top.IsOnItsWay());
    SUBCASE("scrolled") {
        bench.top.Release();
    }
    SUBCASE("zoomed") {
        bench.top.OnNewScale();
    }
    CHECK_FALSE(bench.top.IsOnItsWay());
    const TextPos shown = bench.View().StartAtTop();
    CHECK(bench.Top().start == shown);
    bench.Resize(500);
    CHECK(bench.View().StartAtTop() == shown);
}
