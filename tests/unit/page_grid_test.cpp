// Items of grid containers: in which cells, how wide the columns are, how high the rows.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
// Items with letters of 8 by 16 pixels, in a grid of this style.
std::string Grid(const std::u16string& style, const std::u16string& items, double width = 400) {
    return PageSample(u"<style>p{margin:0}.g{display:grid;" + style + u"}</style><div class=g>" +
                      items + u"</div>")
        .Lines(width);
}
const std::u16string four = u"<p>one<p>two<p>three<p>four";
} // namespace

TEST_CASE("grid: one column holds what fills the width") {
    CHECK(Grid(u"", u"<p>one<p>two") == "0,0 one|0,16 two");
    CHECK(Grid(u"gap:10px", u"<p>one<p>two") == "0,0 one|0,26 two");
    CHECK(Grid(u"", u"text <b>bold</b>") == "0,0 text|0,16 bold");
}

TEST_CASE("grid: columns are as wide as they say") {
    CHECK(Grid(u"grid-template-columns:100px 1fr", four) ==
          "0,0 one|100,0 two|0,16 three|100,16 four");
    CHECK(Grid(u"grid-template-columns:1fr 3fr", u"<p>one<p>two") == "0,0 one|100,0 two");
    CHECK(Grid(u"grid-template-columns:25% auto", u"<p>one<p>two") == "0,0 one|100,0 two");
    CHECK(Grid(u"grid-template-columns:1fr 1fr;gap:20px", u"<p>one<p>two") == "0,0 one|210,0 two");
    CHECK(Grid(u"grid-template-columns:repeat(4,1fr)", four) ==
          "0,0 one|100,0 two|200,0 three|300,0 four");
    CHECK(Grid(u"grid-template-columns:calc(50px + 50px) 2em 1fr", u"<p>one<p>two<p>three") ==
          "0,0 one|100,0 two|132,0 three");
    CHECK(Grid(u"grid-template-columns:calc(10% + 10px) 1fr", u"<p>one<p>two") ==
          "0,0 one|50,0 two");
    // Shares below one in all leave a part free.
    CHECK(Grid(u"grid-template-columns:0.25fr 0.25fr", u"<p>one<p>two") == "0,0 one|100,0 two");
    // What a long word takes is missing to the other shares alike.
    CHECK(Grid(u"grid-template-columns:1fr 1fr 1fr", u"<p>twelveletter<p>one<p>two", 200) ==
          "0,0 twelveletter|96,0 one|148,0 two");
}

TEST_CASE("grid: columns go by their content") {
    CHECK(Grid(u"grid-template-columns:max-content 1fr", u"<p>one two<p>three") ==
          "0,0 one two|56,0 three");
    CHECK(Grid(u"grid-template-columns:min-content 1fr", u"<p>one two<p>three") ==
          "0,0 one|0,16 two|24,0 three");
    CHECK(Grid(u"grid-template-columns:auto auto", u"<p>one<p>two") == "0,0 one|200,0 two");
    CHECK(Grid(u"grid-template-columns:fit-content(40px) 1fr", u"<p>one two<p>x") ==
          "0,0 one|0,16 two|40,0 x");
    CHECK(Grid(u"grid-template-columns:minmax(100px,auto) 1fr", u"<p>one<p>two") ==
          "0,0 one|100,0 two");
    CHECK(Grid(u"grid-template-columns:minmax(0,1fr) minmax(0,1fr)", u"<p>one<p>two") ==
          "0,0 one|200,0 two");
}

TEST_CASE("grid: an item that says how narrow it may be, or scrolls, does not widen its column") {
    const auto beside = [](const std::u16string& columns, const std::u16string& style) {
        return Grid(u"grid-template-columns:24px " + columns,
                    u"<p>bar<div style='" + style +
                        u"'>one two<p style='white-space:nowrap'>a line that is too wide</div>",
                    100);
    };
    const std::string below = "0,0 bar|0,16 one two|0,32 a line that is too wide";
    const std::string inRow = "0,0 bar|24,0 one two|24,16 a line that is too wide";
    CHECK(beside(u"1fr", u"") == below);
    CHECK(beside(u"1fr", u"min-width:0") == inRow);
    CHECK(beside(u"auto", u"overflow:auto") == inRow);
    CHECK(beside(u"minmax(0,1fr)", u"") == inRow);
    CHECK(beside(u"min-content", u"min-width:0") == below);
}

TEST_CASE("grid: an item across shares asks for no width of its own") {
    CHECK(Grid(u"grid-template-columns:1fr minmax(0,100px) 1fr",
               u"<p style='grid-column:1/-1'>acrosseverything<p style='grid-column:2'>two",
               100) == "0,0 acrosseveryt|0,16 hing|0,32 two");
    CHECK(Grid(u"grid-template-columns:1fr 3fr",
               u"<p style='grid-column:1/-1'>acrosseverythinghere<p>one<p>two",
               200) == "0,0 acrosseverythinghere|0,16 one|50,16 two");
}

TEST_CASE("grid: columns are there as often as they fit") {
    const std::u16string fill = u"grid-template-columns:repeat(auto-fill,minmax(90px,1fr))";
    CHECK(Grid(fill, four) == "0,0 one|100,0 two|200,0 three|300,0 four");
    CHECK(Grid(fill, four, 200) == "0,0 one|100,0 two|0,16 three|100,16 four");
    CHECK(Grid(fill, u"<p>one<p>two") == "0,0 one|100,0 two");
    CHECK(Grid(u"grid-template-columns:repeat(auto-fit,minmax(90px,1fr))", u"<p>one<p>two") ==
          "0,0 one|200,0 two");
}

TEST_CASE("grid: items go where they say") {
    const std::u16string columns = u"grid-template-columns:100px 100px 100px 100px";
    CHECK(Grid(columns, u"<p style='grid-column:2'>one<p>two") == "100,0 one|200,0 two");
    CHECK(Grid(columns, u"<p style='grid-column:1/3'>one<p>two") == "0,0 one|200,0 two");
    CHECK(Grid(columns, u"<p style='grid-column:1/-1'>one<p>two") == "0,0 one|0,16 two");
    CHECK(Grid(columns, u"<p style='grid-column:span 2'>one<p>two") == "0,0 one|200,0 two");
    CHECK(Grid(columns, u"<p>one<p style='grid-column:1'>two<p>x") == "0,0 one|0,16 two|100,16 x");
    CHECK(Grid(columns, u"<p style='grid-row:2'>one<p>two") == "0,16 one|0,0 two");
    CHECK(Grid(columns, u"<p style='grid-row:1/span 2'>one<p>a<p>b<p>c<p>d") ==
          "0,0 one|100,0 a|200,0 b|300,0 c|100,16 d");
    CHECK(Grid(columns, u"<p style='grid-area:1/2/3/4'>one") == "100,0 one");
}

TEST_CASE("grid: areas and lines have names") {
    const std::u16string areas = u"grid-template-columns:100px 1fr;"
                                 u"grid-template-areas:'head head' 'side main'";
    const std::u16string items = u"<p style='grid-area:main'>main<p style='grid-area:side'>side"
                                 u"<p style='grid-area:head'>head";
    CHECK(Grid(areas, items) == "100,16 main|0,16 side|0,0 head");
    CHECK(Grid(u"grid-template:'head head' auto 'side main' auto / 100px 1fr", items) ==
          "100,16 main|0,16 side|0,0 head");
    CHECK(Grid(areas, u"<p style='grid-column:main-start'>x") == "100,0 x");
    const std::u16string lines = u"grid-template-columns:[full-start] 50px [text-start] 1fr "
                                 u"[text-end] 50px [full-end]";
    CHECK(Grid(lines, u"<p style='grid-column:text'>one<p style='grid-column:full'>two") ==
          "50,0 one|0,16 two");
    CHECK(Grid(u"grid-template-areas:'a b' 'b a'", u"<p style='grid-area:b'>x") == "0,0 x");
    // Areas make columns by themselves.
    CHECK(Grid(u"grid-template-areas:'a b'", u"<p>one<p>two") == "0,0 one|200,0 two");
    for (const auto* const noRectangle : {u"'a a' 'a b'", u"'a b' 'a a'", u"'a .' '. b' 'a .'"})
        CHECK(Grid(u"grid-template-areas:" + std::u16string(noRectangle),
                   u"<p style='grid-area:b'>x") == "0,0 x");
}

TEST_CASE("grid: nothing stands on anything else") {
    CHECK(Grid(u"", u"<p style='grid-area:1/1'>one<p style='grid-area:1/1'>two") ==
          "0,0 one|0,16 two");
    // Columns that do not fit beside each other.
    CHECK(Grid(u"grid-template-columns:300px 300px", u"<p>one<p>two") == "0,0 one|0,16 two");
    CHECK(Grid(u"grid-template-columns:1fr 1fr", u"<p>oneword<p>another", 100) ==
          "0,0 oneword|0,16 another");
    // By a part of a pixel they may be wider.
    CHECK(Grid(u"grid-template-columns:200.5px 200px", u"<p>one<p>two") == "0,0 one|200,0 two");
}

TEST_CASE("grid: rows are at least as high as they say, and as their items") {
    CHECK(Grid(u"grid-template-rows:40px", u"<p>one<p>two") == "0,0 one|0,40 two");
    CHECK(Grid(u"grid-template-rows:10px", u"<p>one<p>two") == "0,0 one|0,16 two");
    CHECK(Grid(u"grid-auto-rows:1fr", u"<p>a<br>b<p>two<p>x") == "0,0 a/|0,16 b|0,32 two|0,64 x");
    CHECK(Grid(u"grid-auto-rows:0.5fr", u"<p>a<br>b<p>two<p>x") == "0,0 a/|0,16 b|0,32 two|0,48 x");
    CHECK(Grid(u"grid-template-columns:1fr 1fr",
               u"<p style='grid-row:span 2'>a<br>b<br>c<br>d"
               u"<p>two<p>x") == "0,0 a/|0,16 b/|0,32 c/|0,48 d|200,0 two|200,32 x");
}

TEST_CASE("grid: items stand in their cells as they are told") {
    const std::u16string columns = u"grid-template-columns:1fr 1fr;";
    const std::u16string items = u"<p>one<p>a<br>b";
    CHECK(Grid(columns + u"align-items:center", items) == "0,8 one|200,0 a/|200,16 b");
    CHECK(Grid(columns + u"align-items:end", items) == "0,16 one|200,0 a/|200,16 b");
    CHECK(Grid(columns + u"justify-items:center", items) == "88,0 one|296,0 a/|296,16 b");
    CHECK(Grid(columns + u"place-items:end", items) == "176,16 one|392,0 a/|392,16 b");
    CHECK(Grid(columns, u"<p style='justify-self:end'>one<p style='margin-left:auto'>x") ==
          "176,0 one|392,0 x");
    CHECK(Grid(u"grid-template-columns:50px 50px;justify-content:center", u"<p>one<p>two") ==
          "150,0 one|200,0 two");
    CHECK(Grid(columns + u"direction:rtl", u"<p>one<p>two") == "376,0 one|176,0 two");
}

TEST_CASE("grid: items go down the columns where the page says so") {
    CHECK(Grid(u"grid-auto-flow:column;grid-template-rows:auto auto", u"<p>one<p>two<p>three") ==
          "0,0 one|0,16 two|192,0 three");
    CHECK(Grid(u"grid:auto auto/auto-flow", u"<p>one<p>two<p>three") ==
          "0,0 one|0,16 two|192,0 three");
}

TEST_CASE("grid: one in a line is as wide as its columns") {
    CHECK(PageSample(u"<p style='margin:0'>a<span style='display:inline-grid;"
                     u"grid-template-columns:auto auto'><b>one</b><b>two</b></span>b")
              .Lines(400) == "0,0 a#b|8,0 one|32,0 two");
}

TEST_CASE("grid: a cell around one is as wide as its longest word") {
    CHECK(PageSample(u"<table cellpadding=0 cellspacing=0><td><div style='display:grid'><p "
                     u"style='margin:0'>a longestword</div><td>one two three four five</table>")
              .Lines(128) ==
          "0,24 a|0,40 longestword|88,0 one|88,16 two|88,32 three|88,48 four|88,64 five");
}

TEST_CASE("grid: more tracks than any page has") {
    CHECK(Grid(u"grid-template-columns:repeat(1000000,1px)", u"<p>a<p>b").find('b') !=
          std::string::npos);
    CHECK(Grid(u"grid-template-columns:repeat(auto-fill,1px)", u"<p>a<p>b").find('b') !=
          std::string::npos);
    CHECK(Grid(u"grid-template-columns:repeat(1000,1fr)",
               u"<p style='grid-area:1000000/1000000'>a<p style='grid-column:span 1000000'>b")
              .find('b') != std::string::npos);
    std::u16string items;
    for (int i = 0; i < 3000; ++i)
        items += u"<p>x";
    CHECK(Grid(u"grid-template-columns:repeat(100,1fr)", items, 2000).ends_with("1980,464 x"));
}

TEST_CASE("page grid: names of lines begin tracks as well as rows of areas") {
    CHECK(Grid(u"grid-template:[a] 40px [b] auto / 100px 1fr", u"<p>one<p>two<p>three") ==
          "0,0 one|100,0 two|0,40 three");
    CHECK(Grid(u"grid-template:[a] 'x y' 40px [b] / 100px 1fr",
               u"<p style='grid-area:y'>one<p style='grid-area:x'>two") == "100,0 one|0,0 two");
}
