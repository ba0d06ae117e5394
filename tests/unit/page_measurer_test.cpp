#include "tests/unit/page_sample.h"
#include "tests/unit/pane_bench.h"
#include "view/html/page_measurer.h"

#include <doctest/doctest.h>

using namespace std::chrono_literals;

namespace {
// Zones of 40 pixels, on a clock that advances by a millisecond between two of them.
struct Measured {
    PageSample page;
    FakePaneWindow window;
    PageMeasurer measurer{window};

    explicit Measured(int zones) : page(Divisions(zones)) {
        page.flow.SetWidth(400);
        REQUIRE(page.flow.ZoneCount() == std::size_t(zones));
        window.look = 1ms;
    }
    static std::u16string Divisions(int count) {
        std::u16string body;
        for (int i = 0; i < count; ++i)
            body += u"<div style='height:40px'>a</div>";
        return body;
    }
};
} // namespace

TEST_CASE("page measurer: goes on where it stopped when its time was over") {
    Measured m(100);
    CHECK_FALSE(m.measurer.MeasureAll(m.page.flow, 10ms));
    CHECK(m.page.flow.FirstNotMeasured() == 10);
    CHECK_FALSE(m.measurer.MeasureAll(m.page.flow, 50ms));
    CHECK(m.page.flow.FirstNotMeasured() == 60);
    CHECK(m.measurer.MeasureAll(m.page.flow, 50ms));
    CHECK(m.page.flow.LayoutsMade() == 100);
    CHECK(m.measurer.MeasureAll(m.page.flow, 0ms));
    CHECK(m.page.flow.LayoutsMade() == 100);
}

TEST_CASE("page measurer: measures no more than was asked for") {
    Measured m(100);
    CHECK(m.measurer.MeasureAbove(m.page.flow, 20, 1000ms));
    CHECK(m.page.flow.FirstNotMeasured() == 20);
    CHECK(m.measurer.MeasureTo(m.page.flow, 30 * 40 - 20, 1000ms));
    CHECK(m.page.flow.FirstNotMeasured() == 30);
    CHECK(m.measurer.MeasureTo(m.page.flow, 10 * 40, 0ms));
    CHECK(m.page.flow.FirstNotMeasured() == 30);
}

TEST_CASE("page measurer: without any time one zone is measured, so that it comes to an end") {
    Measured m(10);
    int steps = 1;
    while (!m.measurer.MeasureAll(m.page.flow, 1ms))
        ++steps;
    CHECK(steps == 10);
}
