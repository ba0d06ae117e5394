// The back ends of the status bar that this build's contract tests run on.
#pragma once

#include "platform/status_bar.h"
#include "tests/contract/back_ends.h"

#include <string>
#include <vector>

class StatusBarUnderTest {
  public:
    virtual ~StatusBarUnderTest() = default;
    virtual StatusBar& Port() = 0;
    virtual Rect Shown() = 0;               // where it is in its window
    virtual std::vector<Rect> Panels() = 0; // where they are in the bar
    virtual std::u16string DateText() = 0;  // what the date panel shows
    virtual std::u16string Today() = 0;     // in the short format of the user's locale
};

// Defined once in each test program. The bar is in a window of at least 800 x 400 pixels.
std::vector<BackEnd<StatusBarUnderTest>> StatusBarBackEnds();
