// What an HTML view must do whose engine hangs: it lives, and answers nothing.
#include "tests/contract/html_view_contract.h"

#include <cmath>

namespace {
constexpr std::chrono::seconds maxSilence(60);
constexpr int pageDown = 34;
} // namespace

TEST_CASE("html view: a page that hangs is reported, keeps its values and answers no question") {
    OnEachEngine([](PageTest& test) {
        test.Open(NumberedParagraphs(400), "<title>Hung</title>");
        test.view.Select({55, 4});
        test.view.ScrollTo(0, 1000);
        test.Settle();
        test.bench.HangEngine(true);
        CHECK(test.view.SelectedText().empty()); // after a wait
        REQUIRE(test.WaitFor([&] { return test.bench.SaysHang(); }, maxSilence));
        CHECK(test.view.HasBody());
        CHECK(test.view.Title() == u"Hung");
        CHECK(test.view.ScrollTop() == 1000);
        CHECK(test.view.Selection().span == PageSpan{55, 4});
        CHECK(test.view.TextsOf({{0, 1}}).empty());
        CHECK(test.view.SelectedText().empty());
        CHECK(test.view.SelectionAsHtml().empty());
        CHECK_FALSE(test.view.FindAfterSelection(u"line", {}).has_value());
        CHECK(test.view.StartAtTop() == -1);
        test.bench.HangEngine(false);
        REQUIRE(test.WaitFor([&] { return !test.bench.SaysHang(); }));
        CHECK(test.view.SelectedText() == u"0005");
        CHECK(test.view.ScrollTop() == 1000);
        CHECK(test.gone == 0);
        CHECK(test.loaded.size() == 1);
    });
}

TEST_CASE("html view: a page that has hung carries out what was ordered, and no keys") {
    OnEachEngine([](PageTest& test) {
        test.Open(NumberedParagraphs(400));
        test.bench.HangEngine(true);
        for (int i = 0; i < 3; ++i)
            test.view.SendZoomKey(true); // 110, 125, 150
        test.view.ScrollTo(0, 1500);
        REQUIRE(test.WaitFor([&] { return test.bench.SaysHang(); }, maxSilence));
        test.bench.Press(pageDown, 0);
        CHECK(test.view.ScrollTop() == 1500);
        test.bench.HangEngine(false);
        REQUIRE(test.WaitFor([&] { return !test.bench.SaysHang(); }));
        test.Settle();
        CHECK(std::abs(test.view.ViewHeight() - 400 / 1.5) <= 1);
        CHECK(test.view.ScrollTop() == 1500);
        test.bench.Press(pageDown, 0);
        CHECK(test.WaitFor([&] { return test.view.ScrollTop() > 1500; }));
    });
}

TEST_CASE("html view: the next page is shown while one hangs") {
    OnEachEngine([](PageTest& test) {
        test.Open(NumberedParagraphs(400));
        test.bench.HangEngine(true);
        test.Open("the next");
        CHECK(test.Text() == u"the next");
        test.bench.HangEngine(true);
        test.view.Clear();
        CHECK_FALSE(test.view.HasBody());
        test.Open("the last");
        CHECK(test.Text() == u"the last");
        CHECK(test.gone == 0);
    });
}

TEST_CASE("html view: while a new size takes its time, size and place stay those before") {
    OnEachEngine([](PageTest& test) {
        test.Open(NumberedParagraphs(2000), "<style>p{display:inline}</style>"); // in one paragraph
        test.view.ScrollTo(0, 1500);
        test.Settle();
        int zoomed = 0;
        test.view.onZoomed = [&] { ++zoomed; };
        test.bench.HangEngine(true);
        for (int i = 0; i < 6; ++i) {
            test.view.SendZoomKey(true);
            test.bench.ProcessEvents(); // in which the view asks for what it keeps
            test.bench.ProcessEvents();
            CHECK(test.view.ZoomSteps() == 0);
            CHECK(test.view.ScrollTop() == 1500);
        }
        CHECK(zoomed == 0);
        test.bench.HangEngine(false);
        CHECK(test.WaitFor([&] { return test.view.ZoomSteps() == 6; }));
        CHECK(test.WaitFor([&] { return zoomed > 0; }));
        CHECK(zoomed <= 2); // keys in a row are one new size, or two as the first is begun at once
        CHECK(test.view.ScrollTop() != 1500);
        test.view.SendZoomKey(true);
        test.view.ScrollTo(0, 2500); // counts in the size that it comes after
        CHECK(test.view.ZoomSteps() == 7);
        CHECK(test.view.ScrollTop() == 2500);
        test.Settle();
        CHECK(test.view.ZoomSteps() == 7);
        CHECK(test.view.ScrollTop() == 2500);
    });
}
