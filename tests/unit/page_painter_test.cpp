// What is drawn of a laid-out page.
#include "platform/none/none_canvas.h"
#include "tests/unit/page_sample.h"
#include "view/page/page_painter.h"

#include <doctest/doctest.h>

namespace {
using Kind = NoneDrawing::Kind;

// Of a page that is 100 pixels wide, as far as its first zone goes.
std::vector<NoneDrawing> Painted(const std::u16string& body, Rect clip = {0, 0, 100, 100}) {
    PageSample page(body);
    page.flow.SetWidth(100);
    NoneCanvas canvas;
    PagePaint paint{page.boxes, 1, 0x123456, clip, {}, {}, {}};
    PaintFragment(canvas, paint, *page.flow.LayOut(0), 0, 0);
    return canvas.drawings;
}

std::vector<Rect> Fills(const std::vector<NoneDrawing>& drawings, Color color) {
    std::vector<Rect> fills;
    for (const NoneDrawing& drawing : drawings)
        if (drawing.kind == Kind::Fill && drawing.color == color) fills.push_back(drawing.rect);
    return fills;
}
} // namespace

TEST_CASE("page painter: text stands on its baseline, in the reader's colour") {
    const auto drawings = Painted(u"<div style='padding:10px'>one");
    REQUIRE(drawings.size() == 1);
    CHECK(drawings[0].kind == Kind::Text);
    CHECK(drawings[0].text == u"one");
    CHECK(drawings[0].left == 10);
    CHECK(drawings[0].baseline == 23);
    CHECK(drawings[0].color == 0x123456);
}

TEST_CASE("page painter: a background is below its text, and borders are around it") {
    const auto drawings =
        Painted(u"<div style='background:#ff0000;border:2px solid #00ff00;border-left:0'>one");
    CHECK(Fills(drawings, 0x0000FF) == std::vector<Rect>{{0, 0, 100, 20}});
    CHECK(Fills(drawings, 0x00FF00) ==
          std::vector<Rect>{{0, 0, 100, 2}, {0, 18, 100, 2}, {98, 0, 2, 20}});
    CHECK(drawings.back().kind == Kind::Text);
}

TEST_CASE("page painter: nothing outside of what is to be drawn") {
    const std::u16string body = u"<div style='background:#ff0000;height:60px'>one</div>";
    CHECK(Fills(Painted(body, {10, 20, 30, 10}), 0x0000FF) == std::vector<Rect>{{10, 20, 30, 10}});
    for (const NoneDrawing& drawing : Painted(body, {10, 20, 30, 10}))
        CHECK(drawing.kind != Kind::Text);
    CHECK(Painted(body, {0, 70, 100, 10}).empty());
}

TEST_CASE("page painter: a transparent background draws nothing") {
    CHECK(Painted(u"<div style='background:transparent;height:9px'></div>").empty());
}

TEST_CASE("page painter: a picture that cannot be drawn leaves its place grey") {
    const auto drawings = Painted(u"<img style='display:block;width:30px;height:20px'>");
    REQUIRE(drawings.size() == 1);
    CHECK(drawings[0].kind == Kind::Tint);
    CHECK(drawings[0].rect == Rect{0, 0, 30, 20});
}
