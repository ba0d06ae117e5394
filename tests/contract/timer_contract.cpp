// What the port of the timer promises, on every back end.
#include "tests/contract/timer_contract.h"

#include <doctest/doctest.h>

namespace {
constexpr int interval = 10; // milliseconds
} // namespace

TEST_CASE("timer contract: ticks until it is stopped") {
    OnEach(TimerBackEnds(), [](TimerUnderTest& test) {
        int ticks = 0;
        test.Port().Start(interval, [&] { ++ticks; });
        CHECK(ticks == 0); // never from within Start
        CHECK(test.Becomes([&] { return ticks >= 3; }));
        test.Port().Stop();
        const int before = ticks;
        test.WaitTicks(interval, 3);
        CHECK(ticks == before);
        test.Port().Stop(); // a stopped timer may be stopped
    });
}

TEST_CASE("timer contract: a new start replaces the one before") {
    OnEach(TimerBackEnds(), [](TimerUnderTest& test) {
        int first = 0, second = 0;
        test.Port().Start(interval, [&] { ++first; });
        test.Port().Start(interval, [&] { ++second; });
        CHECK(test.Becomes([&] { return second >= 2; }));
        CHECK(first == 0);
    });
}

TEST_CASE("timer contract: a tick may stop its timer, or start it again") {
    OnEach(TimerBackEnds(), [](TimerUnderTest& test) {
        int first = 0, second = 0;
        test.Port().Start(interval, [&] {
            if (++first < 3) return;
            test.Port().Start(interval, [&] {
                ++second;
                test.Port().Stop();
            });
        });
        CHECK(test.Becomes([&] { return second == 1; }));
        test.WaitTicks(interval, 3);
        CHECK(first == 3);
        CHECK(second == 1);
    });
}

TEST_CASE("timer contract: does not tick while a handler waits for a dialog") {
    OnEach(TimerBackEnds(), [](TimerUnderTest& test) {
        int ticks = 0;
        test.Port().Start(interval, [&] { ++ticks; });
        test.WhileDialogIsOpen([&] {
            const int before = ticks;
            test.WaitTicks(interval, 5);
            CHECK(ticks == before);
        });
        const int before = ticks;
        CHECK(test.Becomes([&] { return ticks > before; }));
    });
}
