// The back ends of the timer that this build's contract tests run on.
#pragma once

#include "platform/timer.h"
#include "tests/contract/back_ends.h"

#include <functional>
#include <vector>

class TimerUnderTest {
  public:
    virtual ~TimerUnderTest() = default;
    virtual Timer& Port() = 0;
    // Runs the event loop until the condition holds; false if it does not within a deadline.
    virtual bool Becomes(const std::function<bool()>& condition) = 0;
    // Runs the event loop while a timer of `interval` that starts now would tick so many times.
    virtual void WaitTicks(int interval, int times) = 0;
    // Calls `check` while a modal dialog is open; not at all on a back end without dialogs.
    virtual void WhileDialogIsOpen(const std::function<void()>& check) = 0;
};

// Defined once in each test program.
std::vector<BackEnd<TimerUnderTest>> TimerBackEnds();
