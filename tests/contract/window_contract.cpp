// What the port of the main window promises, on every back end.
#include "tests/contract/window_contract.h"

#include "common/reachable_place.h"
#include "platform/none/none_window.h"

#include <doctest/doctest.h>

namespace {

constexpr Rect reachable{60, 50, 420, 300}, far{30000, -9000, 500, 400}, tiny{200, 150, 1, 1};

void OnEachWindow(const std::function<void(WindowUnderTest&)>& check) {
    for (const WindowBackEnd& backEnd : WindowBackEnds()) {
        CAPTURE(backEnd.name);
        const std::unique_ptr<WindowUnderTest> window = backEnd.make();
        check(*window);
    }
}

bool IsReachable(WindowUnderTest& test) {
    return ReachablePlace(test.Shown(), test.Screens(), 1) == test.Shown();
}

// Window systems answer late: some rounds of events, a bounded number.
bool Becomes(WindowUnderTest& test, const Rect& bounds) {
    for (int round = 0; round < 50; ++round) {
        test.Settle();
        if (test.Get().Bounds() == bounds) return true;
    }
    return false;
}

class NoneUnderTest final : public WindowUnderTest {
  public:
    Window& Get() override { return window_; }
    Rect Shown() override { return window_.Shown(); }
    std::vector<Rect> Screens() override { return window_.screens; }
    void DragTo(const Rect& bounds) override { window_.DragTo(bounds); }
    void Settle() override {}

  private:
    NoneWindow window_;
};

} // namespace

std::unique_ptr<WindowUnderTest> MakeNoneWindow() {
    return std::make_unique<NoneUnderTest>();
}

TEST_CASE("window contract: a rectangle on a screen is the one it has") {
    OnEachWindow([](WindowUnderTest& test) {
        Window& window = test.Get();
        window.Move(reachable);
        CHECK(window.Bounds() == reachable);
        window.Open();
        test.Settle();
        CHECK(window.Bounds() == reachable);
        CHECK(test.Shown() == reachable);
    });
}

TEST_CASE("window contract: one that no hand could reach is shown where one can") {
    for (const Rect& asked : {far, tiny})
        OnEachWindow([&](WindowUnderTest& test) {
            CAPTURE(asked.left);
            Window& window = test.Get();
            window.Move(asked);
            window.Open();
            CHECK(Becomes(test, asked));
            CHECK(IsReachable(test));

            window.Move(reachable);
            test.Settle();
            CHECK(window.Bounds() == reachable);
            window.Move(asked); // while it is open
            CHECK(Becomes(test, asked));
            CHECK(IsReachable(test));
        });
}

TEST_CASE("window contract: a full screen covers the screen, and leaves the window as it was") {
    OnEachWindow([](WindowUnderTest& test) {
        Window& window = test.Get();
        window.Move(reachable);
        window.Open();
        test.Settle();
        const int innerHeight = window.InnerHeight();
        int told = 0;
        WindowEvents events;
        events.onResize = [&] { ++told; };
        window.SetEvents(events);
        CHECK_FALSE(window.IsFullScreen());
        window.SetFullScreen(true);
        CHECK(window.IsFullScreen());
        test.Settle();
        CHECK(told > 0);
        const Rect screen = test.Screens().front();
        CHECK(test.Shown().width >= screen.width);
        CHECK(test.Shown().height >= screen.height);
        CHECK(window.InnerHeight() == test.Shown().height); // no menu bar, no frame

        told = 0;
        window.SetFullScreen(false);
        CHECK_FALSE(window.IsFullScreen());
        CHECK(Becomes(test, reachable));
        CHECK(window.State() == WindowState::Normal);
        CHECK(test.Shown() == reachable);
        CHECK(window.InnerHeight() == innerHeight);
        CHECK(told > 0);
    });
}

TEST_CASE("window contract: what its user makes of it counts, wherever it was asked to be") {
    OnEachWindow([](WindowUnderTest& test) {
        Window& window = test.Get();
        window.Move(far);
        window.Open();
        test.Settle();
        int told = 0;
        WindowEvents events;
        events.onResize = [&] { ++told; };
        window.SetEvents(events);
        test.DragTo(reachable);
        CHECK(Becomes(test, reachable));
        CHECK(told > 0);
    });
}

TEST_CASE("window contract: an alert changes nothing of the window") {
    OnEachWindow([](WindowUnderTest& test) {
        Window& window = test.Get();
        window.Alert(); // also of one that is not shown
        window.Move(reachable);
        window.Open();
        test.Settle();
        window.Alert();
        test.Settle();
        CHECK(window.Bounds() == reachable);
        CHECK(window.State() == WindowState::Normal);
    });
}

TEST_CASE("window contract: asked to come to the front, an icon is a window again") {
    OnEachWindow([](WindowUnderTest& test) {
        Window& window = test.Get();
        window.Open();
        test.Settle();
        for (const char16_t* activation : {u"", u"files-1-desk_TIME12345", u"\"\\ no token"}) {
            window.SetState(WindowState::Minimized);
            CHECK(test.Becomes(WindowState::Minimized));
            window.BringToFront(activation);
            CHECK(test.Becomes(WindowState::Normal));
        }
        window.SetState(WindowState::Maximized);
        CHECK(test.Becomes(WindowState::Maximized));
        window.BringToFront(u"");
        CHECK(test.Becomes(WindowState::Maximized));
    });
}
