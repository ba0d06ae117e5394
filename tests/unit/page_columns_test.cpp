// Text in columns, as high as each other.
#include "tests/unit/page_sample.h"
#include "view/page/column_breaks.h"
#include "view/page/multi_columns.h"

#include <doctest/doctest.h>

namespace {
std::string Columns(const std::u16string& style, const std::u16string& body, double width = 400) {
    return PageSample(u"<style>p,h2{margin:0;font-size:16px}.c{column-gap:0;" + style +
                      u"}</style><div class=c>" + body + u"</div>end")
        .Lines(width);
}
const std::u16string four = u"<p>one<p>two<p>three<p>four";

std::string Filled(const std::vector<ColumnChunk>& chunks, std::size_t columns) {
    std::string text;
    for (const ColumnChunk& column : Balanced(chunks, columns, 0).columns)
        text += std::to_string(int(column.top)) + "-" + std::to_string(int(column.bottom)) + " ";
    return text;
}
} // namespace

TEST_CASE("columns: as high as each other") {
    CHECK(Filled({{0, 10}, {10, 20}, {20, 30}}, 2) == "0-20 20-30 ");
    CHECK(Filled({{0, 10}, {10, 20}, {20, 30}, {30, 40}}, 2) == "0-20 20-40 ");
    CHECK(Filled({{0, 10}, {15, 100}, {110, 120}}, 3) == "0-10 15-100 110-120 ");
    CHECK(Filled({{0, 10}, {15, 100}, {110, 120}}, 2) == "0-100 110-120 ");
    CHECK(Filled({{0, 10}}, 5) == "0-10 ");
}

TEST_CASE("columns: so many, or as many as fit") {
    const std::string two = "0,0 one|0,16 two|200,0 three|200,16 four|0,32 end";
    CHECK(Columns(u"column-count:2", four) == two);
    CHECK(Columns(u"columns:2", four) == two);
    CHECK(Columns(u"column-width:150px", four) == two);
    CHECK(Columns(u"columns:100px 2", four) == two);
    CHECK(Columns(u"columns:300px 2", four) == "0,0 one|0,16 two|0,32 three|0,48 four|0,64 end");
    CHECK(Columns(u"columns:4;column-gap:20px", four) ==
          "0,0 one|105,0 two|210,0 three|315,0 four|0,16 end");
    CHECK(Columns(u"columns:2;direction:rtl", u"<p>one<p>two") == "376,0 one|176,0 two|0,16 end");
    CHECK(Columns(u"columns:1000000", u"<p>a<p>b").find('b') != std::string::npos);
}

TEST_CASE("columns: lines of a paragraph go on in the next column, two at least") {
    CHECK(Columns(u"columns:2", u"a<br>b<br>c<br>d") ==
          "0,0 a/|0,16 b/|200,0 c/|200,16 d|0,32 end");
    CHECK(Columns(u"columns:2", u"a<br>b<br>c") == "0,0 a/|0,16 b/|0,32 c|0,48 end");
}

TEST_CASE("columns: what is to stay together does") {
    CHECK(Columns(u"columns:2", u"<p>one<h2 style='break-after:avoid'>head</h2><p>two<p>three") ==
          "0,0 one|0,16 head|0,32 two|200,0 three|0,48 end");
    CHECK(Columns(u"columns:2", u"<div style='break-inside:avoid'><p>a<p>b<p>c</div><p>d") ==
          "0,0 a|0,16 b|0,32 c|200,0 d|0,48 end");
}

TEST_CASE("columns: a heading across them") {
    CHECK(Columns(u"columns:2", u"<p>one<p>two<h2 style='column-span:all'>head</h2>" + four) ==
          "0,0 one|200,0 two|0,16 head|0,32 one|0,48 two|200,32 three|200,48 four|0,64 end");
}

TEST_CASE("columns: the first margin holds, those at later columns' tops do not") {
    const std::u16string style = u"columns:2}p{margin:10px 0 !important";
    CHECK(Columns(style, u"<p>one<p>two") == "0,10 one|200,0 two|0,31 end");
    CHECK(Columns(style, u"<p>one") == "0,10 one|0,26 end");
    CHECK(Columns(style, u"<p>one<h2 style='column-span:all'>head</h2><p>two<p>three") ==
          "0,10 one|0,26 head|0,52 two|200,42 three|0,73 end");
}

TEST_CASE("columns: higher than a window there is one") {
    std::u16string many;
    for (int i = 0; i < 200; ++i)
        many += u"<p>one";
    CHECK(Columns(u"columns:2", many).find("200,") == std::string::npos);
    // Longer ones are laid out piece by piece.
    const std::u16string letters(maxUnitsInColumns + 1, u'x');
    PageSample page(u"<div style='columns:2'><p>" + letters + u"</div>");
    CHECK(page.boxes[3].isTooLong);
}

TEST_CASE("columns: a border goes on from column to column") {
    PageSample page(u"<div style='columns:2;column-gap:0'>"
                    u"<div style='background:red'>a<br>b<br>c<br>d</div></div>");
    page.flow.SetWidth(400);
    const PageFragment& content = *page.flow.LayOut(0)->parts[0].fragment->parts[0].fragment;
    REQUIRE(content.boxes.size() == 2);
    CHECK(content.boxes[0].height == 32);
    CHECK(content.boxes[0].endsBelow);
    CHECK(content.boxes[1].left == 200);
    CHECK(content.boxes[1].top == 0);
    CHECK(content.boxes[1].beginsAbove);
}

TEST_CASE("columns: a box begins in its column where its text does") {
    PageSample page(u"<div style='columns:2;column-gap:0'>a<div style='background:red'>b</div>"
                    u"c<br>d</div>");
    page.flow.SetWidth(400);
    const PageFragment& content = *page.flow.LayOut(0)->parts[0].fragment->parts[0].fragment;
    REQUIRE(content.boxes.size() == 1);
    CHECK(content.boxes[0].top == 16);
    CHECK(content.boxes[0].height == 16);
}

TEST_CASE("columns: a line stands between each two") {
    PageSample page(u"<div style='columns:4;column-gap:20px;column-rule:2px solid red'>"
                    u"<p style='margin:0'>a<p style='margin:0'>b<p style='margin:0'>c</div>");
    page.flow.SetWidth(400);
    const PageFragment& content = *page.flow.LayOut(0)->parts[0].fragment->parts[0].fragment;
    REQUIRE(content.boxes.size() == 2);
    CHECK(content.boxes[0].isColumnRule);
    CHECK(content.boxes[0].left == 94); // columns of 85 pixels
    CHECK(content.boxes[0].width == 2);
    CHECK(content.boxes[0].height == 16);
    CHECK(content.boxes[1].left == 199);
}
