#include "test_form.h"

#include "app/view_events.h"

#include <doctest/doctest.h>

#include <memory>
#include <new>
#include <utility>

namespace {
struct FullStatusBar : NoneStatusBar {
    int Height() const override { throw std::bad_alloc(); }
};
} // namespace

TEST_CASE("layout: status bar, panel and views fill the window") {
    TestForm test;
    REQUIRE(test.Start());
    test.Window().DragTo({5, 6, 400, 320});
    CHECK(test.Status().bounds == Rect{0, 282, 400, 18});
    CHECK(test.Window().panel == Rect{0, 0, 400, 282});
    CHECK(test.View().Bounds() == Rect{2, 0, 394, 278});
    CHECK(static_cast<NoneHtmlView&>(*test.form.ports.htmlView).bounds == Rect{-2, -2, 400, 282});
    CHECK(test.form.placement == WindowPlacement{0, 75, 90, 6000, 4800});
}

TEST_CASE(
    "layout: the status bar is 18 pixels high at 96 dpi, and as many parts of an inch at others") {
    TestForm test;
    REQUIRE(test.Start());
    struct {
        double dpi;
        int height;
    } const cases[] = {{120, 23}, {144, 27}, {192, 36}, {96, 18}};
    for (const auto& row : cases) {
        CAPTURE(row.dpi);
        test.Window().twipsPerPixel = 1440 / row.dpi; // while it runs: moved to another screen
        test.Window().DragTo({5, 6, 400, 320});
        fwMain_Resize(test.form);
        const int inner = test.Window().InnerHeight();
        CHECK(test.Status().bounds == Rect{0, inner - row.height, 400, row.height});
        CHECK(test.Window().panel == Rect{0, 0, 400, inner - row.height});
    }
}

TEST_CASE("layout: minimising moves nothing, and leaving it lands on the normal rectangle") {
    TestForm test;
    REQUIRE(test.Start());
    test.Window().DragTo({5, 6, 400, 320});
    const Rect before = test.View().Bounds();
    test.Window().SetState(WindowState::Minimized);
    CHECK(test.form.placement.State == 1);
    CHECK(test.View().Bounds() == before);
    test.Window().DragTo(
        {-32000, -32000, 1, 1}); // where some window managers put a minimised window
    CHECK(test.View().Bounds() == before);
    CHECK(test.form.placement == WindowPlacement{1, 75, 90, 6000, 4800});
    test.Window().SetState(WindowState::Normal);
    CHECK(test.Window().Bounds() == Rect{5, 6, 400, 320});
    CHECK(test.View().Bounds() == before);
}

TEST_CASE("layout: closed while maximised, the last normal rectangle and state 2 are kept") {
    TestForm test;
    REQUIRE(test.Start());
    test.Window().DragTo({5, 6, 400, 320});
    test.Window().SetState(WindowState::Maximized);
    test.Window().DragTo({0, 0, 1280, 900});
    CHECK(test.form.placement == WindowPlacement{2, 75, 90, 6000, 4800});
    test.Close();
    const std::string data = test.DataFile();
    CHECK(data.find("[Default]\r\nLeft=5\r\nTop=6\r\nWidth=400\r\nHeight=320\r\nState=2\r\n") !=
          std::string::npos);
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.Window().State() == WindowState::Maximized);
    next.Window().SetState(WindowState::Normal);
    CHECK(next.Window().Bounds() == Rect{5, 6, 400, 320});
}

namespace {
void PressAndRelease(TestForm& test, int key, int shift = 0) {
    test.Window().Events().onKeyDown(key, shift);
    test.Window().Events().onKeyUp(key, shift);
}
} // namespace

TEST_CASE("layout: F11 gives the screen to the book, and F11 or Escape brings the window back") {
    TestForm test;
    REQUIRE(test.Start());
    test.Window().DragTo({5, 6, 400, 320});
    for (const int back : {F11Key, EscapeKey}) {
        CAPTURE(back);
        PressAndRelease(test, F11Key);
        CHECK(test.Window().IsFullScreen());
        CHECK(test.Window().panel == Rect{0, 0, 1920, 1080});
        CHECK(test.Status().bounds.top == 1080); // out of sight
        CHECK(test.form.placement == WindowPlacement{0, 75, 90, 6000, 4800});
        PressAndRelease(test, back);
        CHECK_FALSE(test.Window().IsFullScreen());
        CHECK(test.Window().Bounds() == Rect{5, 6, 400, 320});
        CHECK(test.View().Bounds() == Rect{2, 0, 394, 278});
    }
    PressAndRelease(test, EscapeKey); // of a window: nothing
    CHECK(test.Window().Bounds() == Rect{5, 6, 400, 320});
}

TEST_CASE("layout: a key that is held down switches the full screen once") {
    TestForm test;
    REQUIRE(test.Start());
    for (int repeat = 0; repeat < 5; ++repeat)
        test.Window().Events().onKeyDown(F11Key, 0);
    test.Window().Events().onKeyUp(F11Key, 0);
    CHECK(test.Window().IsFullScreen());
}

TEST_CASE("layout: closed in full screen, the next start is the window of before") {
    for (const WindowState state : {WindowState::Normal, WindowState::Maximized}) {
        TestForm test;
        REQUIRE(test.Start());
        test.Window().DragTo({5, 6, 400, 320});
        test.Window().SetState(state);
        PressAndRelease(test, F11Key);
        test.Close();
        TestForm next(test);
        REQUIRE(next.Start());
        CHECK_FALSE(next.Window().IsFullScreen());
        CHECK(next.Window().State() == state);
        next.Window().SetState(WindowState::Normal);
        CHECK(next.Window().Bounds() == Rect{5, 6, 400, 320});
    }
}

namespace {
// Whose place changes the window's size, as that of a bar that appears would.
class ResizingStatusBar : public NoneStatusBar {
  public:
    explicit ResizingStatusBar(MainForm& form) : form_(form) {}
    void SetBounds(const Rect& place) override {
        NoneStatusBar::SetBounds(place);
        ++layouts;
        fwMain_Resize(form_);
    }
    int layouts = 0;

  private:
    MainForm& form_;
};
} // namespace

TEST_CASE("layout: a resize from inside the handler does not lay out again") {
    TestForm test;
    REQUIRE(test.Start());
    auto bar = std::make_unique<ResizingStatusBar>(test.form);
    int& layouts = bar->layouts;
    auto shown = std::exchange(test.form.ports.statusBar, std::move(bar));
    test.Window().DragTo({0, 0, 300, 200});
    CHECK(layouts == 1);
    test.Window().DragTo({0, 0, 310, 210});
    CHECK(layouts == 2);
    test.form.ports.statusBar = std::move(shown);
}

TEST_CASE("layout: one that fails leaves the next resize as it would be") {
    TestForm test;
    REQUIRE(test.Start());
    auto shown = std::exchange(test.form.ports.statusBar, std::make_unique<FullStatusBar>());
    CHECK_THROWS_AS(test.Window().DragTo({0, 0, 300, 200}), std::bad_alloc);
    test.form.ports.statusBar = std::move(shown);
    test.Window().DragTo({5, 6, 400, 320});
    CHECK(test.View().Bounds() == Rect{2, 0, 394, 278});
}

TEST_CASE("layout: at 120 dpi a stored width of 800 is 9600 twips") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A]\r\nLeft=1\r\nTop=2\r\nWidth=800\r\nHeight="
                     "500\r\nState=0\r\n");
    test.Window().twipsPerPixel = 12;
    REQUIRE(test.Start());
    CHECK(test.form.placement.Width == 9600);
    CHECK(test.Window().Bounds() == Rect{1, 2, 800, 500});
    test.Close();
    CHECK(test.DataFile().find("Width=800\r\n") != std::string::npos);
}

TEST_CASE("layout: a profile without a placement keeps the window where it is") {
    TestForm test;
    test.Window().DragTo({50, 60, 700, 500});
    REQUIRE(test.Start());
    CHECK(test.Window().Bounds() == Rect{50, 60, 700, 500});
    CHECK(test.form.placement.State == 0);
}

TEST_CASE("layout: wild stored numbers do not get to the window system") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A]\r\nLeft=999999999999\r\nTop=-999999999999\r\n"
                     "Width=999999999999\r\nHeight=x\r\nState=77\r\n");
    REQUIRE(test.Start());
    CHECK(test.Window().Bounds() == Rect{32767, -32767, 32767, 0});
    CHECK(test.Window().State() == WindowState::Normal);
}
