// Pages without a doctype: margins as browsers have them there.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& body) {
    return PageSample(body, {}, u"<body style='margin:0'>").Lines(400);
}
const std::u16string table = u"<table cellpadding=0 cellspacing=0><td>";
} // namespace

TEST_CASE("page quirks: margins of the default sheet go at the edges of cells") {
    CHECK(Lines(table + u"<p>a<p>b</table>c") == "0,0 a|0,32 b|0,48 c");
    CHECK(Lines(table + u"<h4>a</h4></table>c") == "0,0 a|0,37 c");
    CHECK(Lines(table + u"<div><p>a</div></table>c") == "0,0 a|0,16 c");
    CHECK(Lines(table + u"a<p>b</table>c") == "0,0 a|0,32 b|0,48 c");
    CHECK(PageSample(table + u"<p>a</table>c").Lines(400) == "0,16 a|0,48 c");
}

TEST_CASE("page quirks: a cell's height is that of its border box") {
    const std::u16string cell = u"<table cellpadding=4 cellspacing=0><td height=40>a</table>b";
    CHECK(Lines(cell) == "4,12 a|0,40 b");
    CHECK(PageSample(cell).Lines(400) == "4,16 a|0,48 b");
}

TEST_CASE("page quirks: the page's own margins stay") {
    CHECK(Lines(table + u"<p style='margin:8px 0'>a</table>c") == "0,8 a|0,32 c");
    CHECK(Lines(table + u"<p style='margin-top:8px'>a</table>c") == "0,8 a|0,24 c");
    CHECK(Lines(table + u"<div style='padding-top:4px'><p>a</div></table>c") == "0,20 a|0,36 c");
    CHECK(Lines(table + u"<hr style='margin-left:0'></table>c") == "0,18 c");
}

TEST_CASE("page quirks: the first margin of the page goes") {
    CHECK(Lines(u"<p>a<p>b") == "0,0 a|0,32 b");
    CHECK(Lines(u"<center><h4>a</center>") == "196,0 a");
    CHECK(Lines(u"<p style='margin-top:8px'>a") == "0,8 a");
    CHECK(PageSample(u"<p>a").Lines(400) == "0,16 a");
}

TEST_CASE("page quirks: a list's marker counts in the first line of its item") {
    const std::u16string list = u"<ul style='line-height:40px'>",
                         small = u"<b style='line-height:20px'>";
    CHECK(Lines(list + u"<li>" + small + u"b<br>c</b></ul>d") == "26,0 ?|40,0 b/|40,40 c|0,76 d");
}

TEST_CASE("page quirks: the block's font counts in lines with text of its own") {
    const std::u16string large = u"<div style='line-height:40px'>";
    const std::u16string picture = u"<img width=8 height=8>",
                         small = u"<b style='line-height:20px'>";
    CHECK(Lines(large + picture + u"</div>c") == "0,0 #|0,8 c");
    CHECK(Lines(large + small + u"b</b></div>c") == "0,0 b|0,20 c");
    CHECK(Lines(large + small + u"b</b> \n</div>c") == "0,0 b|0,20 c");
    CHECK(Lines(large + small + u"b</b>a</div>c") == "0,0 ba|0,40 c");
    CHECK(Lines(large + small + u"b</b><br></div>c") == "0,0 b/|0,20 c");
    CHECK(Lines(large + picture + u"<br>d</div>c") == "0,0 #/|0,8 d|0,48 c");
    CHECK(Lines(large + u"<br></div>c") == "0,0 /|0,40 c");
    CHECK(PageSample(large + small + u"b</b></div>c").Lines(400) == "0,0 b|0,40 c");
    const std::u16string loose =
        u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" "
        u"\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\"><body style='margin:0'>";
    CHECK(PageSample(large + small + u"b</b></div>c", {}, loose).Lines(400) == "0,0 b|0,20 c");
}

TEST_CASE("page quirks: pictures that are aligned by an attribute") {
    const std::u16string start = u"<div style='line-height:0'>";
    const std::u16string high = u"<img width=8 height=32>";
    // On the headless fonts the small x is half as high as the letter.
    CHECK(Lines(start + high + u"<img align=middle width=8 height=32></div>c") == "0,0 ##|0,48 c");
    CHECK(Lines(start + high + u"<img align=absmiddle width=8 height=32></div>c") ==
          "0,0 ##|0,44 c");
}
