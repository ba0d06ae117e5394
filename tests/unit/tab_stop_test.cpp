#include "common/tab_stop.h"

#include <doctest/doctest.h>

#include <string>

TEST_CASE("a tab reaches to the next stop that is at least a pixel away") {
    const TabStop stops[] = {{100}, {200, TabAlignment::Right}};
    CHECK(NextTabStop(stops, 0) == &stops[0]);
    CHECK(NextTabStop(stops, 99) == &stops[0]);
    CHECK(NextTabStop(stops, 99.5) == &stops[1]);
    CHECK(NextTabStop(stops, 199.5) == nullptr);
    CHECK(NextTabStop({}, 0) == nullptr);
    CHECK(StopAfterWrap(stops, 0) == &stops[1]);
    CHECK(StopAfterWrap(stops, 200) == nullptr);
    CHECK(StopAfterWrap({stops, 1}, 0) == &stops[0]);
}

TEST_CASE("the gap of a tab leaves the text after it at its stop") {
    constexpr TabbedText text = {40, 30};
    struct {
        TabAlignment alignment;
        int position;
        double pen, gap;
    } const cases[] = {
        {TabAlignment::Right, 200, 50, 110},
        {TabAlignment::Center, 200, 50, 130},
        {TabAlignment::Decimal, 200, 50, 120},
        {TabAlignment::Right, 500, 50, 210}, // the line's end
        {TabAlignment::Center, 295, 50, 210},
        {TabAlignment::Right, 200, 170, 4}, // beyond the stop
        {TabAlignment::Right, 500, 270, 4}, // beyond the line
    };
    for (const auto& each : cases) {
        CAPTURE(each.position);
        CAPTURE(each.pen);
        CHECK(TabGap({each.position, each.alignment}, each.pen, 300, text, 4) == each.gap);
    }
}

TEST_CASE("a decimal tab divides the number after it") {
    struct {
        const char16_t* text;
        std::size_t units;
    } const cases[] = {
        {u"", 0},
        {u"12.5", 2},
        {u"-12,5", 3},
        {u"1,234", 5},
        {u"1.234", 1},
        {u"1,234.50", 5},
        {u"1.234,5", 5},
        {u"1,234,567", 9},
        {u"7 miles", 1},
        {u"total 3.5", 9},
        {u"$ 3.5", 3},
        {u"3.", 1},
        {u"\u0663\u066B\u0665", 1},
    };
    for (const auto& each : cases) {
        CAPTURE(each.units);
        CHECK(UnitsBeforeDecimals(each.text) == each.units);
    }
}

TEST_CASE("leaders stand on a grid from the start edge") {
    CHECK(LeaderIn(23, 61, 5, 0).count == 7);
    CHECK(LeaderIn(23, 61, 5, 0).left == 25);
    CHECK(LeaderIn(23, 61, 5, -2).left == 23);
    CHECK(LeaderIn(23, 61, 5, 100).left == 25);
    CHECK(LeaderIn(23, 24, 5, 0).count == 0);
    CHECK(LeaderIn(0, 100, 0, 0).count == 0);
}
