// The back ends of the text view that this build's contract tests run on.
#pragma once

#include "platform/text_view.h"

#include <doctest/doctest.h>

#include <functional>
#include <memory>
#include <vector>

struct TextViewBackEnd {
    const char* name;
    std::function<std::unique_ptr<TextView>()> make; // not shown yet
    // Of a character, in pixels from the left edge of a view that `make` made.
    std::function<int(TextView&, TextPos)> x;
};

// Defined once in each test program.
std::vector<TextViewBackEnd> TextViewBackEnds();

inline void OnEachBackEnd(const std::function<void(TextView&)>& check) {
    for (const TextViewBackEnd& backEnd : TextViewBackEnds()) {
        CAPTURE(backEnd.name);
        const std::unique_ptr<TextView> view = backEnd.make();
        view->SetBounds({0, 0, 400, 300});
        check(*view);
    }
}
