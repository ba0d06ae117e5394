#include "platform/windows/window/win_timer.h"
#include "tests/contract/windows_message_pump.h"

#include <doctest/doctest.h>

TEST_CASE("windows timer: it ticks, but not into a handler that waits for a dialog") {
    WinWindow window;
    WinTimer timer(window.Handle());
    int ticks = 0;
    timer.Start(10, [&] { ++ticks; });
    CHECK(Becomes([&] { return ticks >= 2; }));
    EnableWindow(window.Handle(), FALSE); // as every modal dialog does
    const int before = ticks;
    const ULONGLONG start = GetTickCount64();
    CHECK(Becomes([&] { return GetTickCount64() - start > 60; }));
    CHECK(ticks == before);
    EnableWindow(window.Handle(), TRUE);
    CHECK(Becomes([&] { return ticks > before; }));
}

TEST_CASE("windows timer: a tick may stop its timer or start it anew") {
    WinTimer timer(nullptr);
    int ticks = 0, others = 0;
    timer.Start(10, [&] {
        if (++ticks < 3) return;
        timer.Start(10, [&] {
            ++others;
            timer.Stop();
        });
    });
    CHECK(Becomes([&] { return others == 1; }));
    const ULONGLONG start = GetTickCount64();
    CHECK(Becomes([&] { return GetTickCount64() - start > 60; }));
    CHECK(ticks == 3);
    CHECK(others == 1);
}
