// Items of flex containers: how wide they are, and where they stand.
#include "tests/unit/page_sample.h"
#include "view/page/flex_sizes.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& body, double width = 400) {
    return PageSample(u"<style>p{margin:0}.f{display:flex}</style>" + body).Lines(width);
}

FlexSize Item(double basis, double min, double grow = 0, double shrink = 1) {
    return {basis, min, 1e9, grow, shrink * basis};
}

std::string Places(const std::vector<FlexSize>& items, double width, double gap = 0,
                   CssJustifyContent justify = CssJustifyContent::Start) {
    std::string text;
    for (const FlexPlace& place : FlexPlaces(items, width, gap, justify))
        text += std::to_string(int(place.left)) + "+" + std::to_string(int(place.width)) + " ";
    return text;
}
// Those that are drawn.
std::string Boxes(const PageFragment& fragment, double left, double top) {
    std::string text;
    const auto number = [](double each) { return std::to_string(int(each)); };
    for (const PlacedBox& box : fragment.boxes)
        text += number(left + box.left) + "," + number(top + box.top) + " " + number(box.width) +
                "x" + number(box.height) + " ";
    for (const PlacedPart& part : fragment.parts)
        text += Boxes(*part.fragment, left + part.left, top + part.top);
    return text;
}
} // namespace

TEST_CASE("flex: room that is left goes to those that grow, or between items") {
    CHECK(Places({Item(50, 0), Item(50, 0)}, 200) == "0+50 50+50 ");
    CHECK(Places({Item(50, 0, 1), Item(50, 0, 3)}, 200) == "0+75 75+125 ");
    CHECK(Places({Item(50, 0, 0.5), Item(50, 0)}, 200) == "0+100 100+50 ");
    CHECK(Places({Item(50, 0), Item(50, 0)}, 200, 10, CssJustifyContent::End) == "90+50 150+50 ");
    CHECK(Places({Item(50, 0)}, 200, 0, CssJustifyContent::Center) == "75+50 ");
    CHECK(Places({Item(50, 0), Item(50, 0)}, 200, 0, CssJustifyContent::SpaceBetween) ==
          "0+50 150+50 ");
    CHECK(Places({Item(50, 0), Item(50, 0)}, 200, 0, CssJustifyContent::SpaceAround) ==
          "25+50 125+50 ");
    CHECK(Places({Item(0, 60, 1), Item(0, 20, 1)}, 200) == "0+100 100+100 ");
    CHECK(Places({Item(0, 120, 1), Item(0, 20, 1), Item(0, 20, 1)}, 200) == "0+120 120+40 160+40 ");
    // Not more than there is where one cannot do with its part.
    CHECK(Places({Item(0, 80, 0.5), Item(0, 0, 0.4)}, 100) == "0+80 80+20 ");
    FlexSize small = Item(0, 0, 1);
    small.max = 30;
    CHECK(Places({Item(0, 120, 1), small, Item(0, 20, 1)}, 200) == "0+120 120+30 150+50 ");
    FlexSize pushed = Item(50, 0);
    pushed.autoLeft = true;
    CHECK(Places({Item(50, 0), pushed}, 200) == "0+50 150+50 ");
}

TEST_CASE("flex: items become narrower by their widths, down to their words") {
    CHECK(Places({Item(200, 0), Item(100, 0)}, 150) == "0+100 100+50 ");
    CHECK(Places({Item(200, 180), Item(100, 0)}, 240) == "0+180 180+60 ");
    CHECK(Places({Item(200, 0, 0, 0), Item(100, 0)}, 240) == "0+200 200+40 ");
}

TEST_CASE("flex: items stand beside each other") {
    CHECK(Lines(u"<div class=f><p>one<p>two</div>three") == "0,0 one|24,0 two|0,16 three");
    CHECK(Lines(u"<div class=f style='gap:10px'><p>one<p>two</div>") == "0,0 one|34,0 two");
    CHECK(Lines(u"<div class=f><p style='flex:1'>one<p style='flex:1'>two</div>") ==
          "0,0 one|200,0 two");
    CHECK(Lines(u"<div class=f><p style='width:100px'>one<p>two</div>") == "0,0 one|100,0 two");
    CHECK(Lines(u"<div class=f><p>one<p style='margin-left:auto'>two</div>") ==
          "0,0 one|376,0 two");
    CHECK(Lines(u"<div class=f style='flex-direction:row-reverse'><p>one<p>two</div>") ==
          "376,0 one|352,0 two");
}

TEST_CASE("flex: from right to left") {
    CHECK(Lines(u"<div class=f dir=rtl><p>one<p>two</div>") == "376,0 one|352,0 two");
    CHECK(Lines(u"<div class=f dir=rtl><p>one<p style='margin-right:auto'>two</div>") ==
          "376,0 one|0,0 two");
    CHECK(Lines(u"<div class=f dir=rtl style='flex-direction:row-reverse'><p>one<p>two</div>") ==
          "0,0 one|24,0 two");
    const std::u16string column = u"<div class=f dir=rtl style='flex-direction:column;align-items:";
    CHECK(Lines(column + u"start'><p>one</div>") == "376,0 one");
    CHECK(Lines(column + u"end'><p>one</div>") == "0,0 one");
}

TEST_CASE("flex: text, and elements that would be in lines, are items") {
    CHECK(Lines(u"<div class=f>one <b>two</b> <i>three</i></div>") ==
          "0,0 one|24,0 two|48,0 three");
    CHECK(Lines(u"<div class=f style='justify-content:center'>one</div>") == "188,0 one");
    CHECK(Lines(u"<div class=f><p style='float:right'>one<p>two</div>") == "0,0 one|24,0 two");
}

TEST_CASE("flex: a poem is in the middle, as wide as its longest verse") {
    CHECK(Lines(u"<div class=f style='justify-content:center'><div><p>one<p>three</div></div>") ==
          "180,0 one|180,16 three");
}

TEST_CASE("flex: items that do not fit beside each other stand below each other") {
    const std::u16string items = u"<p>oneword<p>another</div>x";
    CHECK(Lines(u"<div class=f>" + items, 100) == "0,0 oneword|0,16 another|0,32 x");
    CHECK(Lines(u"<div class=f style='flex-wrap:wrap;row-gap:4px'>" + items, 100) ==
          "0,0 oneword|0,20 another|0,36 x");
    CHECK(Lines(u"<div class=f style='flex-wrap:wrap'>" + items, 112) ==
          "0,0 oneword|56,0 another|0,16 x");
    CHECK(Lines(u"<div class=f><p>one two<p>three</div>", 72) == "0,0 one|0,16 two|32,0 three");
}

TEST_CASE(
    "flex: an item that says how narrow it may be, or scrolls, stays beside what is before it") {
    const auto beside = [](const std::u16string& style) {
        return Lines(u"<div class=f><p>bar<div style='flex-grow:1;" + style +
                         u"'>one two<p style='white-space:nowrap'>a line that is too wide</div>",
                     100);
    };
    CHECK(beside(u"") == "0,0 bar|0,16 one two|0,32 a line that is too wide");
    const std::string inRow = "0,0 bar|24,0 one two|24,16 a line that is too wide";
    CHECK(beside(u"min-width:0") == inRow);
    CHECK(beside(u"min-width:60px") == inRow);
    CHECK(beside(u"overflow-x:auto") == inRow);
    CHECK(beside(u"min-width:90px") == beside(u""));
}

TEST_CASE("flex: a column") {
    const std::u16string column = u"<div class=f style='flex-direction:column;";
    CHECK(Lines(column + u"'><p>one<p>two</div>") == "0,0 one|0,16 two");
    CHECK(Lines(column + u"align-items:center'><p>one<p>three</div>") == "188,0 one|180,16 three");
    CHECK(Lines(column + u"height:64px;justify-content:center'><p>one<p>two</div>x") ==
          "0,16 one|0,32 two|0,64 x");
}

TEST_CASE("flex: items stand in their row as they are told") {
    const std::u16string items = u"<p>one<p>a<br>b</div>";
    CHECK(Lines(u"<div class=f style='align-items:center'>" + items) == "0,8 one|24,0 a/|24,16 b");
    CHECK(Lines(u"<div class=f style='align-items:flex-end'>" + items) ==
          "0,16 one|24,0 a/|24,16 b");
    CHECK(Lines(u"<div class=f style='min-height:48px;align-items:center'><p>one</div>x") ==
          "0,16 one|0,48 x");
}

TEST_CASE("flex: items stand on one baseline, or where one of them asks for") {
    CHECK(Lines(u"<div class=f style='align-items:baseline'><p style='padding-top:4px'>one<p>two"
                u"</div>x") == "0,4 one|24,4 two|0,20 x");
    CHECK(Lines(u"<div class=f><p>a<br>b<p style='align-self:flex-end'>two</div>") ==
          "0,0 a/|0,16 b|8,16 two");
}

TEST_CASE("flex: margins of a column take what is left") {
    const std::u16string column = u"<div class=f style='flex-direction:column;";
    const std::u16string foot = u"'><p>one<p>two<p style='margin-top:auto'>foot</div>x";
    CHECK(Lines(column + u"height:80px" + foot) == "0,0 one|0,16 two|0,64 foot|0,80 x");
    CHECK(Lines(column + foot) == "0,0 one|0,16 two|0,32 foot|0,48 x");
    CHECK(Lines(column + u"height:64px;justify-content:end'><p style='margin-bottom:auto'>one"
                         u"<p style='margin-bottom:auto'>two</div>") == "0,0 one|0,32 two");
}

TEST_CASE("flex: margins at the sides of a column's items take what is left beside them") {
    const std::u16string item = u"<div class=f style='flex-direction:column'><p style='";
    CHECK(Lines(item + u"margin-left:auto'>one</div>") == "376,0 one");
    CHECK(Lines(item + u"margin:0 auto'>one</div>") == "188,0 one");
    CHECK(Lines(item + u"margin-right:auto;align-self:end'>one</div>") == "0,0 one");
    CHECK(Lines(item + u"margin:0 auto'>onelongword</div>", 80) == "0,0 onelongword");
}

TEST_CASE("flex: rows from below to above, and columns") {
    const std::u16string reverse = u"<div class=f style='flex-wrap:wrap-reverse;width:40px'>";
    CHECK(Lines(reverse + u"<p>one<p>two</div>x") == "0,0 two|0,16 one|0,32 x");
    CHECK(Lines(u"<div class=f style='flex-wrap:wrap-reverse;align-items:flex-start'>"
                u"<p>one<p>a<br>b</div>") == "0,16 one|24,0 a/|24,16 b");
    const std::u16string column = u"<div class=f style='flex-direction:column-reverse;";
    CHECK(Lines(column + u"'><p>one<p>two</div>") == "0,0 two|0,16 one");
    CHECK(Lines(column + u"height:64px'><p>one<p>two</div>x") == "0,32 two|0,48 one|0,64 x");
}

TEST_CASE("flex: items of a row are as high as it") {
    const auto boxes = [](const std::u16string& style) {
        PageSample page(u"<style>p{margin:0;background:red}.f{display:flex}</style>"
                        u"<div class=f><p style='" +
                        style + u"'>one<p>a<br>b</div>");
        page.flow.SetWidth(400);
        return Boxes(*page.flow.LayOut(0), 0, 0);
    };
    CHECK(boxes(u"") == "0,0 24x32 24,0 8x32 ");
    CHECK(boxes(u"height:10px") == "0,0 24x16 24,0 8x32 ");
    CHECK(boxes(u"align-self:center") == "0,8 24x16 24,0 8x32 ");
}

TEST_CASE("flex: what is in an item as high as its row shares that height") {
    const auto row = [](const std::u16string& style, const std::u16string& items) {
        return Lines(u"<div class=f><p>a<br>b<br>c<br>d</p><div class=f style='" + style + u"'>" +
                     items + u"</div></div>");
    };
    const std::string tall = "0,0 a/|0,16 b/|0,32 c/|0,48 d|";
    const std::u16string column = u"flex-direction:column";
    CHECK(row(column, u"<p>one<p>two") == tall + "8,0 one|8,16 two");
    CHECK(row(column, u"<p>one<p style='margin-top:auto'>two") == tall + "8,0 one|8,48 two");
    CHECK(row(column, u"<p style='flex:1'>one<p>two") == tall + "8,0 one|8,48 two");
    CHECK(row(column + u";justify-content:center", u"<p>one<p>two") == tall + "8,16 one|8,32 two");
    CHECK(row(column + u";justify-content:flex-end", u"<p>one") == tall + "8,48 one");
    CHECK(row(u"align-items:center", u"<p>one<p>x<br>y") == tall + "8,24 one|32,16 x/|32,32 y");
    CHECK(row(u"align-items:flex-end", u"<p>one") == tall + "8,48 one");
    CHECK(row(u"", u"<div class=f style='align-items:flex-end'><p>one</div>") == tall + "8,48 one");
    CHECK(row(u"max-height:16px;" + column, u"<p style='margin-top:auto'>one") == tall + "8,0 one");
}

TEST_CASE("flex: a number of a line goes by the page around the container") {
    CHECK(Lines(u"<div class=f style='justify-content:center'><p>one<span style='position:absolute;"
                u"right:10%'>5</span></div>") == "188,0 one|352,0 5");
}
