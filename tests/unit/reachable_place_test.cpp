#include "common/reachable_place.h"

#include <doctest/doctest.h>

#include <limits>
#include <ostream>

std::ostream& operator<<(std::ostream& out, const Rect& rectangle) {
    return out << rectangle.left << ',' << rectangle.top << ' ' << rectangle.width << 'x'
               << rectangle.height;
}

namespace {
constexpr int highest = std::numeric_limits<int>::max(), lowest = std::numeric_limits<int>::min();

// A small screen with a panel at its top, and a large one at the left of it.
const std::vector<Rect> screens = {{0, 25, 1280, 999}, {-1920, 0, 1920, 1080}};

struct Case {
    const char* what;
    Rect asked, shown;
};
} // namespace

TEST_CASE("reachable place: what a hand can reach is taken as it stands") {
    for (const Rect& place : {
             Rect{100, 80, 800, 600},
             Rect{-1500, 80, 800, 600},
             Rect{-400, 80, 800, 600},   // on both
             Rect{1200, 80, 800, 600},   // some of the title
             Rect{-2640, 80, 800, 600},  // its other end
             Rect{100, 900, 800, 600},   // below is more than one can see
             Rect{-7, 18, 800, 600},     // put to the screen's edge by Windows
             Rect{-300, 30, 3000, 2000}, // from a larger desktop
             Rect{0, 25, 16384, 16384},
             Rect{100, 80, 160, 100},
         })
        CHECK(ReachablePlace(place, screens, 1) == place);
}

TEST_CASE("reachable place: what none can reach comes to the screen that is nearest") {
    const Case cases[] = {
        {"right of all", {5000, 80, 800, 600}, {472, 80, 800, 600}},
        {"almost", {1201, 80, 800, 600}, {472, 80, 800, 600}},
        {"left of all", {-9000, 80, 800, 600}, {-1912, 80, 800, 600}},
        {"below", {100, 5000, 800, 600}, {100, 416, 800, 600}},
        {"above", {100, -700, 800, 600}, {100, 33, 800, 600}},
        {"the title alone is above", {100, 5, 800, 600}, {100, 33, 800, 600}},
        {"more of it on one, its middle nearer to the other's",
         {-700, -20, 1200, 600},
         {-1208, 8, 1200, 600}},
        {"larger than the screen", {5000, -3000, 3000, 2000}, {8, 33, 1264, 983}},
        {"tiny", {100, 80, 1, 1}, {100, 80, 160, 100}},
        {"no size", {100, 80, 0, 0}, {100, 80, 160, 100}},
        {"inside out", {100, 80, -500, -1}, {100, 80, 160, 100}},
        {"tiny and far", {5000, 5000, 3, 3}, {1112, 916, 160, 100}},
        {"numbers' end", {highest, highest, highest, highest}, {8, 33, 1264, 983}},
        {"other end", {lowest, lowest, lowest, lowest}, {-1912, 8, 160, 100}},
    };
    for (const auto& [what, asked, shown] : cases) {
        CAPTURE(what);
        CHECK(ReachablePlace(asked, screens, 1) == shown);
        CHECK(ReachablePlace(shown, screens, 1) == shown);
    }
}

TEST_CASE("reachable place: a hand is as large at any resolution") {
    CHECK(ReachablePlace({100, 80, 160, 100}, screens, 2) == Rect{100, 80, 320, 200});
    CHECK(ReachablePlace({1150, 80, 800, 600}, screens, 1) == Rect{1150, 80, 800, 600});
    CHECK(ReachablePlace({1150, 80, 800, 600}, screens, 2) == Rect{464, 80, 800, 600});
}

TEST_CASE("reachable place: a screen smaller than the least window, or none") {
    CHECK(ReachablePlace({500, 0, 10, 10}, {{0, 0, 50, 40}}, 1) == Rect{8, 8, 34, 24});
    CHECK(ReachablePlace({-500, 0, 200, 200}, {}, 1) == Rect{-500, 0, 200, 200});
}

TEST_CASE("reachable place: what was asked for stands for what is shown until that changes") {
    const Rect asked{5000, 0, 800, 600}, shown{480, 0, 800, 600}, moved{480, 1, 800, 600};
    CHECK(RequestedBounds(ShownInstead{asked, shown}, shown) == asked);
    CHECK(RequestedBounds(ShownInstead{asked, shown}, moved) == moved);
    CHECK(RequestedBounds({}, shown) == shown);
}
