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

TEST_CASE("page painter: an element in a line has its background and borders around its letters") {
    const auto drawings =
        Painted(u"aa<span style='background:#ff0000;border:1px solid #00ff00;padding:2px 4px;"
                u"margin:0 3px'>bb</span>");
    // It reaches out of its line, which is as high as the letters.
    CHECK(Fills(drawings, 0x0000FF) == std::vector<Rect>{{19, 0, 26, 19}});
    CHECK(Fills(drawings, 0x00FF00) ==
          std::vector<Rect>{{19, 18, 26, 1}, {19, 0, 1, 19}, {44, 0, 1, 19}});
}

TEST_CASE("page painter: an element of two lines has its sides where it begins and ends") {
    const auto drawings = Painted(u"<div style='line-height:40px'><span style='border:1px solid "
                                  u"#00ff00'>aaaaaaa bbbbbbb</span>");
    CHECK(Fills(drawings, 0x00FF00) == std::vector<Rect>{{0, 11, 57, 1},
                                                         {0, 28, 57, 1},
                                                         {0, 11, 1, 18},
                                                         {0, 51, 57, 1},
                                                         {0, 68, 57, 1},
                                                         {56, 51, 1, 18}});
}

TEST_CASE("page painter: borders around a first letter, and around what content adds") {
    const std::u16string border = u"{border:1px solid #00ff00}</style>";
    const std::vector<Rect> around{{0, 0, 10, 1}, {0, 17, 10, 1}, {0, 0, 1, 18}, {9, 0, 1, 18}};
    CHECK(Fills(Painted(u"<style>p{margin:0;padding-top:1px}p:first-letter" + border + u"<p>one"),
                0x00FF00) == around);
    CHECK(Fills(Painted(u"<style>p{margin:0;padding-top:1px}p:before{content:'1'}p:before" +
                        border + u"<p>one"),
                0x00FF00) == around);
}

TEST_CASE("page painter: backgrounds in lines, one on the other, raised with their text") {
    const auto drawings = Painted(u"<mark>a<b style='background:#ff0000'>b</b>c</mark>"
                                  u"<span style='visibility:hidden;background:#00ff00'>d</span>");
    CHECK(Fills(drawings, 0x00FFFF) == std::vector<Rect>{{0, 0, 24, 16}});
    CHECK(Fills(drawings, 0x0000FF) == std::vector<Rect>{{8, 0, 8, 16}});
    CHECK(Fills(drawings, 0x00FF00).empty());
    const auto raised = Painted(u"<div style='line-height:40px'>a<span style='background:#ff0000;"
                                u"position:relative;top:-5px'>b</span>");
    CHECK(Fills(raised, 0x0000FF) == std::vector<Rect>{{8, 7, 8, 16}});
}

TEST_CASE("page painter: dotted, dashed and double borders") {
    const auto bottom = [](const std::u16string& style, Rect clip = {0, 0, 100, 100}) {
        return Fills(
            Painted(u"<div style='width:20px;border-bottom:" + style + u" #00ff00'></div>", clip),
            0x00FF00);
    };
    CHECK(bottom(u"4px dotted") == std::vector<Rect>{{0, 0, 4, 4}, {8, 0, 4, 4}, {16, 0, 4, 4}});
    CHECK(bottom(u"4px dashed") == std::vector<Rect>{{0, 0, 8, 4}, {16, 0, 4, 4}});
    CHECK(bottom(u"1px dashed").size() == 4);
    CHECK(bottom(u"6px double") == std::vector<Rect>{{0, 0, 20, 2}, {0, 4, 20, 2}});
    CHECK(bottom(u"2px double") == std::vector<Rect>{{0, 0, 20, 2}});
    CHECK(bottom(u"4px dotted", {9, 0, 20, 20}) == std::vector<Rect>{{9, 0, 3, 4}, {16, 0, 4, 4}});
    // Of one that is longer than any window only what is seen is drawn.
    CHECK(Fills(Painted(u"<div style='height:90000000px;border-left:1px dotted #00ff00'></div>"),
                0x00FF00)
              .size() == 50);
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

TEST_CASE("page painter: the canvas has the background of the root, else that of the body") {
    const auto canvasOf = [](const std::u16string& style) {
        const PageSample page(u"<style>" + style + u"</style>one");
        return page.boxes.CanvasBackground();
    };
    CHECK(canvasOf(u"").IsTransparent());
    CHECK(canvasOf(u"body{background:#ff0000}") == CssColor{255, 0, 0, 255});
    CHECK(canvasOf(u"html{background:#0000ff}") == CssColor{0, 0, 255, 255});
    CHECK(canvasOf(u"html{background:#0000ff}body{background:#ff0000}") ==
          CssColor{0, 0, 255, 255});
    // What the canvas has its box does not draw once more.
    CHECK(Fills(Painted(u"<style>body{background:#ff0000}</style>one"), 0x0000FF).empty());
    CHECK(Fills(Painted(u"<style>html{background:#00ff00}body{background:#ff0000}</style>one"),
                0x0000FF)
              .size() == 1);
}

TEST_CASE("page painter: what is hidden takes its room and is not drawn") {
    CHECK(Painted(u"<div style='visibility:hidden;background:#ff0000;border:1px solid'>"
                  u"<img style='display:block;width:9px;height:9px'></div>")
              .empty());
    const auto drawings = Painted(u"aa<span style='visibility:hidden'>bb"
                                  u"<b style='visibility:visible'>cc</b></span>dd");
    REQUIRE(drawings.size() == 1);
    CHECK(drawings[0].text == u"aabbccdd");
    REQUIRE(drawings[0].without.size() == 1);
    CHECK(drawings[0].without[0].left == 16);
    CHECK(drawings[0].without[0].width == 16);
    CHECK(Painted(u"aa")[0].without.empty());
}

TEST_CASE("page painter: a relative box is drawn away from its place, what follows is not") {
    const auto drawings = Painted(u"<div style='position:relative;left:10px;top:5px;"
                                  u"background:#ff0000'>one</div>");
    CHECK(Fills(drawings, 0x0000FF) == std::vector<Rect>{{10, 5, 90, 16}});
    REQUIRE(drawings.size() == 2);
    CHECK(drawings[1].left == 10);
    CHECK(drawings[1].baseline == 13 + 5);
}

TEST_CASE("page painter: a picture that cannot be shown has its text in its place") {
    const auto drawings = Painted(u"<img alt='two words' style='display:block'>");
    REQUIRE(drawings.size() == 1);
    CHECK(drawings[0].kind == Kind::Text);
    CHECK(drawings[0].text == u"two words");
    CHECK(Painted(u"<img alt='' style='display:block'>").empty());
    const auto framed = Painted(u"<img alt='two' width=60 height=40 style='display:block'>");
    CHECK(Fills(framed, 0xA0A0A0) ==
          std::vector<Rect>{{0, 0, 60, 1}, {0, 39, 60, 1}, {0, 1, 1, 38}, {59, 1, 1, 38}});
    CHECK(framed.front().text == u"two");
    CHECK(Painted(u"<img alt='' width=60 height=40 style='display:block'>").empty());
}

TEST_CASE("page painter: a legend stands in the line of its fieldset's border") {
    const std::u16string fieldset =
        u"<fieldset style='margin:0;padding:0;border:2px solid #0000ff;background:#00ff00'>";
    const std::u16string legend = u"<legend style='padding:0'>abc</legend>one</fieldset>";
    const auto drawings = Painted(fieldset + legend);
    CHECK(Fills(drawings, 0x00FF00) == std::vector<Rect>{{0, 7, 100, 27}});
    CHECK(Fills(drawings, 0xFF0000) ==
          std::vector<Rect>{
              {0, 7, 2, 2}, {26, 7, 74, 2}, {0, 32, 100, 2}, {0, 7, 2, 27}, {98, 7, 2, 27}});
    CHECK(PageSample(fieldset + legend).Lines(100) == "2,0 abc|2,16 one");
    // In the middle, or no legend: there is text before it, it floats.
    CHECK(PageSample(fieldset + u"<legend style='padding:0;margin:0 auto'>abc</legend>one")
              .Lines(100) == "38,0 abc|2,16 one");
    CHECK(PageSample(fieldset + u"one" + legend).Lines(100) == "2,2 one|2,34 one|2,18 abc");
    CHECK(PageSample(fieldset + u"<legend style='padding:0;float:right'>abc</legend>one")
              .Lines(100) == "2,2 one|74,2 abc");
    // One that is lower than the border is in its middle.
    CHECK(PageSample(u"<fieldset style='margin:0;padding:0;border:20px solid'>" + legend)
              .Lines(100) == "20,2 abc|20,20 one");
}
