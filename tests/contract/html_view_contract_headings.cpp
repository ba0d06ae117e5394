// The headings of a page and per cents of it, on every back end.
#include "tests/contract/html_view_contract.h"

namespace {
std::string Page() {
    std::string body = "<h1>One\n more</h1>";
    for (int i = 0; i < 100; ++i)
        body += "<p>text</p>";
    body += "<h3 hidden>Unseen</h3><h3></h3><div><h2>T<i>w</i>o</h2></div>";
    for (int i = 0; i < 100; ++i)
        body += "<p>text</p>";
    return body;
}
} // namespace

TEST_CASE("html headings: a page's headings with their places") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(Page());
        const std::vector<Heading> headings = test.view.Headings();
        REQUIRE(headings.size() == 2);
        CHECK(headings[0] == Heading{0, 1, u"One more"});
        CHECK(headings[1].level == 2);
        CHECK(headings[1].text == u"Two");
        CHECK(test.Text({headings[1].position, 3}) == u"Two");
        test.view.ScrollSpanToTop({headings[1].position, 0});
        test.Settle();
        CHECK(test.view.ScrollTop() > 1000);
    });
}

TEST_CASE("html headings: per cents go from the start to the end") {
    OnEachBackEnd([](PageTest& test) {
        test.Open(Page());
        CHECK(test.view.Percent() == 0);
        for (const int percent : {100, 1, 50, 99, 0}) {
            CAPTURE(percent);
            test.view.ScrollToPercent(percent);
            test.Settle();
            CHECK(test.WaitFor([&] { return test.view.Percent() == percent; }));
        }
        test.Open("<p>short</p>");
        test.Settle();
        CHECK(test.WaitFor([&] { return test.view.Percent() == 100; }));
    });
}
