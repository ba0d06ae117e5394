// The view that has two: which of them shows a page, and what is heard of the other.
#include "platform/shared/either_html_view.h"

#include "platform/none/none_html_view.h"

#include <doctest/doctest.h>

namespace {
class Browser : public NoneHtmlView {
  public:
    bool IsAvailable() const override { return available; }
    void Navigate(const std::u16string& path, int page) override {
        available = available && !failsToLoad;
        NoneHtmlView::Navigate(path, page);
    }
    bool available = true, failsToLoad = false;
};

struct Bench {
    Bench() {
        view.onLoaded = [this](int page, const std::u16string&) { loaded.push_back(page); };
        view.SetVisible(true);
    }
    Browser* browser = new Browser;
    NoneHtmlView* own = new NoneHtmlView;
    EitherHtmlView view{std::unique_ptr<HtmlView>(browser), std::unique_ptr<HtmlView>(own)};
    std::vector<int> loaded;
};
} // namespace

TEST_CASE("either view: a browser's shows the page unless ours is asked for") {
    Bench bench;
    CHECK(bench.view.HasBothEngines());
    bench.view.Navigate(u"/a.htm", 1);
    CHECK(bench.browser->visible);
    CHECK_FALSE(bench.own->visible);
    bench.view.SetEngine(PageEngine::Own);
    CHECK(bench.own->navigations.empty()); // of pages navigated to afterwards
    bench.view.Navigate(u"/a.htm", 2);
    CHECK(bench.own->loads == std::vector{2});
    CHECK(bench.own->visible);
    CHECK_FALSE(bench.browser->visible);
    CHECK(bench.browser->clears == 1);
    bench.browser->onLoaded(1, u""); // too late
    bench.own->FinishLoading();
    CHECK(bench.loaded == std::vector{2});
    bench.view.SetEngine(PageEngine::Browser);
    bench.view.Navigate(u"/a.htm", 3);
    CHECK(bench.browser->loads == std::vector{1, 3});
    CHECK(bench.browser->visible);
}

TEST_CASE("either view: ours shows the page where there is no browser's, or it cannot be loaded") {
    Bench bench;
    bench.browser->failsToLoad = true;
    bench.view.Navigate(u"/a.htm", 1);
    CHECK(bench.own->loads == std::vector{1});
    CHECK(bench.own->visible);
    CHECK_FALSE(bench.view.HasBothEngines());
    bench.view.SetEngine(PageEngine::Browser);
    bench.view.Navigate(u"/a.htm", 2);
    CHECK(bench.own->loads == std::vector{1, 2});
}

TEST_CASE("either view: both menus offer the change, or none") {
    Bench bench;
    bench.view.OfferEngineChange(true);
    CHECK(bench.browser->offersEngineChange);
    CHECK(bench.own->offersEngineChange);
    bench.view.OfferEngineChange(false);
    CHECK_FALSE(bench.own->offersEngineChange);
}
