// The room that floats leave, margins that meet, and where blocks of a page begin.
#include "view/page/collapsed_margin.h"
#include "view/page/float_context.h"
#include "view/page/height_index.h"

#include <doctest/doctest.h>

#include <random>

namespace {
using Place = FloatContext::Place;
constexpr InlineEdges page{0, 100};
constexpr auto left = FloatSide::Left, right = FloatSide::Right;
} // namespace

TEST_CASE("page floats: stand beside each other as long as there is room, then below") {
    FloatContext floats;
    CHECK(floats.Add(left, 40, 20, 0, page) == Place{0, 0});
    CHECK(floats.Add(left, 40, 10, 0, page) == Place{40, 0});
    CHECK(floats.Add(right, 20, 30, 0, page) == Place{80, 0});
    CHECK(floats.Add(left, 30, 5, 0, page) == Place{40, 10});
    CHECK(floats.Add(right, 90, 5, 0, page) == Place{10, 30});
}

TEST_CASE("page floats: the room between them") {
    FloatContext floats;
    floats.Add(left, 40, 20, 10, page);
    floats.Add(right, 30, 40, 10, page);
    CHECK(floats.RoomAt(0, 10, page) == page);
    CHECK(floats.RoomAt(0, 11, page) == InlineEdges{40, 70});
    CHECK(floats.RoomAt(10, 10, page) == InlineEdges{40, 70});
    CHECK(floats.RoomAt(29, 35, page) == InlineEdges{40, 70});
    CHECK(floats.RoomAt(30, 35, page) == InlineEdges{0, 70});
    CHECK(floats.RoomAt(50, 60, page) == page);
    CHECK(floats.RoomAt(10, 20, {20, 60}) == InlineEdges{40, 60});
    CHECK(floats.NextChange(0) == 10);
    CHECK(floats.NextChange(10) == 30);
    CHECK(floats.NextChange(30) == 50);
    CHECK(floats.NextChange(50) == 50);
}

TEST_CASE("page floats: none stands above an earlier one") {
    FloatContext floats;
    floats.Add(left, 90, 10, 0, page);
    CHECK(floats.Add(left, 20, 10, 0, page) == Place{0, 10});
    CHECK(floats.Add(right, 5, 10, 0, page) == Place{95, 10});
}

TEST_CASE("page floats: one that is wider than the page goes where there are none") {
    FloatContext floats;
    floats.Add(left, 10, 10, 0, page);
    floats.Add(right, 10, 25, 0, page);
    CHECK(floats.Add(left, 130, 10, 0, page) == Place{0, 25});
    CHECK(floats.Add(right, 120, 10, 0, page) == Place{-20, 35});
}

TEST_CASE("page floats: a box without width or height takes no room") {
    FloatContext floats;
    floats.Add(left, 50, 0, 0, page);
    floats.Add(left, 0, 50, 0, page);
    floats.Add(left, -5, 50, 0, page);
    CHECK(floats.RoomAt(0, 10, page) == page);
    CHECK(floats.ClearedTop(true, true, 7) == 7);
}

TEST_CASE("page floats: text stands on the broader side of a box, and after one in the middle") {
    const auto roomBeside = [](double boxLeft, double boxRight) {
        FloatContext floats;
        floats.Reserve({boxLeft, 0, boxRight - boxLeft, 10}, page);
        return floats.RoomAt(0, 10, page);
    };
    CHECK(roomBeside(10, 20) == InlineEdges{20, 100});
    CHECK(roomBeside(80, 90) == InlineEdges{0, 80});
    CHECK(roomBeside(40, 60) == InlineEdges{60, 100});
    CHECK(roomBeside(30, 30) == page);
}

TEST_CASE("page floats: clearing goes below those of a side") {
    FloatContext floats;
    floats.Add(left, 10, 20, 0, page);
    floats.Add(right, 10, 50, 0, page);
    CHECK(floats.ClearedTop(true, false, 5) == 20);
    CHECK(floats.ClearedTop(false, true, 5) == 50);
    CHECK(floats.ClearedTop(true, true, 5) == 50);
    CHECK(floats.ClearedTop(true, true, 60) == 60);
    CHECK(floats.ClearedTop(false, false, 5) == 5);
}

TEST_CASE("page floats: no two overlap, whatever their sizes") {
    std::mt19937 random(7);
    const auto to = [&](int most) { return double(random() % unsigned(most) + 1); };
    for (int round = 0; round < 50; ++round) {
        FloatContext floats;
        struct Box {
            double left, top, right, bottom;
        };
        std::vector<Box> boxes;
        double top = 0;
        for (int i = 0; i < 40; ++i) {
            const double width = to(90), height = to(30);
            top += random() % 3 == 0 ? to(10) : 0;
            const auto side = random() % 2 == 0 ? left : right;
            const Place place = floats.Add(side, width, height, top, page);
            CHECK(place.top >= top);
            CHECK(place.left >= 0);
            CHECK(place.left + width <= 100);
            for (const Box& other : boxes)
                CHECK_FALSE((place.left < other.right && other.left < place.left + width &&
                             place.top < other.bottom && other.top < place.top + height));
            boxes.push_back({place.left, place.top, place.left + width, place.top + height});
        }
    }
}

TEST_CASE("page floats: a hundred thousand of them are placed") {
    FloatContext floats;
    for (int i = 0; i < 100'000; ++i)
        floats.Add(i % 2 == 0 ? left : right, 10, 1 + i % 40, 0, page);
    CHECK(floats.ClearedTop(true, true, 0) > 10'000);
}

TEST_CASE("page margins: the largest and the most negative one remain") {
    CHECK(CollapsedMargin().Length() == 0);
    CHECK(CollapsedMargin(7).Length() == 7);
    CollapsedMargin margin(10);
    margin.Add(16);
    CHECK(margin.Length() == 16);
    margin.Add(-4);
    CHECK(margin.Length() == 12);
    margin.Add(-9);
    CHECK(margin.Length() == 7);
    margin.Add(30, true);
    CHECK(margin.Length() == 21);
    margin.DropQuirky();
    CHECK(margin.Length() == 7);
}

TEST_CASE("page heights: tops are sums, of estimates until a block is measured") {
    HeightIndex heights({10, 20, 30, 40, 50});
    CHECK(heights.Total() == 150);
    CHECK(heights.Top(3) == 60);
    CHECK(heights.NotMeasured() == 5);
    heights.SetMeasured(1, 5);
    heights.SetMeasured(1, 25);
    CHECK(heights.NotMeasured() == 4);
    CHECK(heights.IsMeasured(1));
    CHECK_FALSE(heights.IsMeasured(2));
    CHECK(heights.Height(1) == 25);
    CHECK(heights.Top(1) == 10);
    CHECK(heights.Top(2) == 35);
    CHECK(heights.Total() == 155);
}

TEST_CASE("page heights: the block at a height") {
    const HeightIndex heights({10, 0, 30, 40, 50});
    const struct {
        double height;
        std::size_t block;
    } places[] = {{-5, 0}, {0, 0}, {9.5, 0}, {10, 2}, {39, 2}, {40, 3}, {129, 4}, {500, 4}};
    for (const auto& place : places) {
        CAPTURE(place.height);
        CHECK(heights.BlockAt(place.height) == place.block);
    }
}

TEST_CASE("page heights: a block that begins at its top, of any number of blocks") {
    for (std::size_t count = 1; count < 70; ++count) {
        std::vector<double> estimates;
        for (std::size_t i = 0; i < count; ++i)
            estimates.push_back(double(i * 7 % 5 + 1));
        const HeightIndex heights(estimates);
        for (std::size_t i = 0; i < count; ++i)
            CHECK(heights.BlockAt(heights.Top(i)) == i);
    }
}
