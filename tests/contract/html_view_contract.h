// The back ends of the HTML view that this build's contract tests run on, each in a window of its
// own.
#pragma once

#include "common/keys.h"
#include "platform/html_view.h"

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class HtmlViewBench {
  public:
    virtual ~HtmlViewBench() = default;
    virtual HtmlView& View() = 0; // 600 x 400 pixels, shown, with the keyboard
    virtual void ProcessEvents() = 0;
    virtual void Press(int keyCode, int shift) = 0; // a key down and up, as by the user
    virtual void CloseWindow() = 0;
    // Whether another process, or a part of the system, shows the page. Then there are frames, too.
    virtual bool HasEngine() { return true; }
    virtual void KillEngine() = 0; // the process that shows the page
    // That process answers nothing, until it does again; on a back end that has one.
    virtual void HangEngine(bool) {}
    virtual bool SaysHang() { return false; } // in the page's place
    virtual double PixelRatio() = 0;

    std::vector<std::pair<int, int>> keysDown; // that the window was told of: code and shift
};

struct HtmlViewBackEnd {
    const char* name;
    std::function<std::unique_ptr<HtmlViewBench>()> make;
};

// Defined once in each test program.
std::vector<HtmlViewBackEnd> HtmlViewBackEnds();

// Marks the cases that ask for plain paragraphs only: those that the stand-in for the browser
// control of Windows runs.
inline constexpr const char* plainPagesSuite = "plain pages";
inline const doctest::test_suite plainPages(plainPagesSuite);

// A bench, a folder of pages, and what the view told.
class PageTest {
  public:
    explicit PageTest(HtmlViewBench&);
    ~PageTest();

    std::filesystem::path Write(const std::string& name, std::string_view bytes) const;
    void Navigate(const std::filesystem::path&);
    // Writes a page, loads it and waits for that.
    void Open(std::string_view body, std::string_view head = "");
    // False when the time is over.
    bool WaitFor(const std::function<bool()>& condition,
                 std::chrono::seconds timeout = std::chrono::seconds(10)) const;
    // Lets all orders given so far take place.
    void Settle() { view.TextsOf({{0, 1}}); }
    std::u16string Text(PageSpan span = {0, 1 << 30});

    HtmlViewBench& bench;
    HtmlView& view;
    std::filesystem::path folder;
    std::vector<std::pair<int, std::u16string>> loaded;
    std::vector<std::pair<std::u16string, std::u16string>> links;
    std::vector<int> jumps;
    int gone = 0, page = 0;
};

inline void OnEachBackEnd(const std::function<void(PageTest&)>& check) {
    for (const HtmlViewBackEnd& backEnd : HtmlViewBackEnds()) {
        CAPTURE(backEnd.name);
        const std::unique_ptr<HtmlViewBench> bench = backEnd.make();
        PageTest test(*bench);
        check(test);
    }
}

inline void OnEachEngine(const std::function<void(PageTest&)>& check) {
    OnEachBackEnd([&](PageTest& test) {
        if (test.bench.HasEngine()) check(test);
    });
}

// Paragraphs "line 0000" to "line <count - 1>", each on a line of its own.
std::string NumberedParagraphs(int count);
