// A page that is shown in a window of 600 by 400 pixels, which is only remembered.
#pragma once

#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "tests/unit/page_pane_bench.h"

#include <doctest/doctest.h>

inline constexpr char16_t path[] = u"/books/page.htm";

inline std::string Paragraphs(int count) {
    std::string source = "<!DOCTYPE html><style>body,p{margin:0}</style>";
    for (int i = 0; i < count; ++i) {
        source += "<p>" + std::to_string(i);
        for (int word = 0; word < 40; ++word)
            source += " word" + std::to_string(word);
    }
    return source;
}

class PageBench {
  public:
    // What passes between two looks at the clock.
    explicit PageBench(const std::string& source, std::chrono::milliseconds look = {}) {
        view.window.look = look;
        files.AddFile(path, source);
        view.onLoaded = [this](int, const std::u16string&) { isLoaded = true; };
        view.onLink = [this](const std::u16string& url, const std::u16string&) {
            links.push_back(url);
        };
        view.Navigate(path, 1);
        for (int i = 0; i < 10; ++i)
            view.ProcessEvents();
        REQUIRE(isLoaded);
    }
    void Resize(int width) {
        view.window.room.width = width;
        view.Pane().OnResized();
    }
    Point PointOf(TextPos position) {
        view.Select({position, 0});
        const auto caret = view.Pane().CaretRect();
        REQUIRE(caret);
        return {caret->left + 2, caret->top + caret->height / 2};
    }

    NoneClock clock;
    NoneFiles files{clock};
    PagePaneBench view{files};
    bool isLoaded = false;
    std::vector<std::u16string> links;
};
