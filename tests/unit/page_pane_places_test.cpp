// What stands at the top of a page's view, and where the places of its text are.
#include "tests/unit/page_bench.h"

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
    bench.view.ProcessEvents();
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
            other.view.ProcessEvents();
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
    bench.view.ProcessEvents();
    const PageTop top = bench.view.Top();
    REQUIRE(top.offset == 9005);
    PageBench late(Paragraphs(300));
    late.Resize(700);
    late.view.BringToTop(top);
    late.view.ProcessEvents();
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
        fresh.view.ProcessEvents();
    const PageTop exact = fresh.view.Top();
    CHECK(exact.offset > 100'000);
    PageBench again(Paragraphs(20'000));
    again.view.BringToTop(exact);
    CHECK(again.view.StartAtTop() == far.start);
    again.view.ProcessEvents();
    const PageTop now = again.view.Top(); // as it was asked for, or reached
    CHECK((now.offset == exact.offset || now.offset == -1));
    CHECK(now.start == exact.start);
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
            bench.view.ProcessEvents();
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
