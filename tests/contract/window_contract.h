// The back ends of the main window that this build's contract tests run on.
#pragma once

#include "platform/window.h"

#include <functional>
#include <memory>
#include <vector>

// A window of a back end, and what the tests need to do to it from outside.
class WindowUnderTest {
  public:
    virtual ~WindowUnderTest() = default;

    virtual Window& Get() = 0;
    virtual Rect Shown() = 0;                // where the system has it, with its frame
    virtual std::vector<Rect> Screens() = 0; // what is free for windows
    virtual void DragTo(const Rect&) = 0;    // as its user does
    virtual void Settle() = 0;               // what the system has to say about it has come
    // Whether it is in this state soon. Systems carry it out in their own time.
    virtual bool Becomes(WindowState state) {
        Settle();
        return Get().State() == state;
    }
};

struct WindowBackEnd {
    const char* name;
    std::function<std::unique_ptr<WindowUnderTest>()> make; // not shown yet
};

std::unique_ptr<WindowUnderTest> MakeNoneWindow();
// Defined once in each test program.
std::vector<WindowBackEnd> WindowBackEnds();
