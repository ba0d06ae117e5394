// Where the lines of a page stand.
#include "tests/unit/page_sample.h"
#include "view/page/list_marker.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& body, double width = 400) {
    return PageSample(body).Lines(width);
}
} // namespace

TEST_CASE("page layout: margins of paragraphs meet") {
    CHECK(Lines(u"<p>one<p>two") == "0,16 one|0,48 two");
    CHECK(Lines(u"<p style='margin-bottom:40px'>one<p>two") == "0,16 one|0,72 two");
    CHECK(Lines(u"<p style='margin:0'>one<p style='margin:0'>two") == "0,0 one|0,16 two");
    CHECK(Lines(u"<p>one<p style='margin-top:-6px'>two") == "0,16 one|0,42 two");
}

TEST_CASE("page layout: margins go through blocks without borders and padding") {
    CHECK(Lines(u"<div><p>one</div><div><p>two</div>") == "0,16 one|0,48 two");
    CHECK(Lines(u"<p>one<div></div><p>two") == "0,16 one|0,48 two");
    CHECK(Lines(u"<div style='padding:5px'><p>one</div><p>two") == "5,21 one|0,74 two");
    CHECK(Lines(u"<div style='border:2px solid'><p>one</div>") == "2,18 one");
}

TEST_CASE("page layout: blocks have indents and widths") {
    CHECK(Lines(u"<blockquote>one") == "40,16 one");
    CHECK(Lines(u"<div style='width:100px;margin:0 auto'>one") == "150,0 one");
    CHECK(Lines(u"<div style='margin-left:25%'>one") == "100,0 one");
    CHECK(Lines(u"<div style='max-width:48px'>one two three") == "0,0 one|0,16 two|0,32 three");
    CHECK(Lines(u"<div style='width:64px;padding:0 8px;box-sizing:border-box'>one two") ==
          "8,0 one|8,16 two");
    CHECK(Lines(u"<div align=center><table cellpadding=0 cellspacing=0><td>one</table></div>") ==
          "188,0 one");
}

TEST_CASE("page layout: blank lines do not make a height larger") {
    const std::u16string high = u"<div style='height:40px'>";
    CHECK(Lines(high + u"<br><br><br><br></div>b") == "0,0 /|0,16 /|0,32 /|0,48 /|0,40 b");
    CHECK(Lines(high + u"a<br>&nbsp;<br>c<br><br></div>b") ==
          "0,0 a/|0,16 ?/|0,32 c/|0,48 /|0,48 b");
    CHECK(Lines(high + u"<p>a<p>&nbsp;</div>b") == "0,16 a|0,48 ?|0,40 b");
}

TEST_CASE("page layout: heights") {
    CHECK(Lines(u"<div style='height:50px'>one</div>two") == "0,0 one|0,50 two");
    CHECK(Lines(u"<div style='min-height:50px'>one</div>two") == "0,0 one|0,50 two");
    CHECK(Lines(u"one<hr>two") == "0,0 one|0,34 two");
}

TEST_CASE("page layout: limits of widths and heights") {
    CHECK(Lines(u"<div style='min-width:50%;width:10px;float:right'>a") == "200,0 a");
    CHECK(Lines(u"<div style='max-width:50%;margin-left:auto'>a") == "200,0 a");
    CHECK(Lines(u"<div style='max-height:20px'>a<br>b</div>c") ==
          "0,0 a/|0,16 b|0,32 c"); // nothing lies on what follows
    CHECK(Lines(u"<div style='max-height:50px'>a</div>b") == "0,0 a|0,16 b");
    CHECK(Lines(u"<div style='height:50%'>a</div>b") == "0,0 a|0,16 b");
    CHECK(Lines(u"<div style='max-height:50%'>a<br>b</div>c") == "0,0 a/|0,16 b|0,32 c");
    CHECK(Lines(u"<img style='width:100px;max-width:25%' >a", 200) == "0,0 #a");
}

TEST_CASE("page layout: the shape of a box gives its height") {
    const auto box = [](const std::u16string& style, const std::u16string& text = u"") {
        return Lines(u"<div style='width:64px;" + style + u"'>" + text + u"</div>x");
    };
    CHECK(box(u"aspect-ratio:2/1") == "0,32 x");
    CHECK(box(u"aspect-ratio:2;padding:8px") == "0,48 x");
    CHECK(box(u"aspect-ratio:2;padding:8px;box-sizing:border-box") == "0,32 x");
    CHECK(box(u"aspect-ratio:2;max-height:20px") == "0,20 x");
    CHECK(box(u"aspect-ratio:2;height:10px") == "0,10 x");
    CHECK(box(u"aspect-ratio:4", u"a<br>b") == "0,0 a/|0,16 b|0,32 x"); // no lower than its text
    CHECK(Lines(u"<div style='display:flex;flex-direction:column'><div style='aspect-ratio:8'>"
                u"</div>x</div>") == "0,50 x");
}

TEST_CASE("page layout: relative boxes keep their place for what is around") {
    CHECK(
        Lines(u"<p style='margin:0;position:relative;left:10%;top:-4px'>a<p style='margin:0'>b") ==
        "40,-4 a|0,16 b");
    CHECK(
        Lines(u"<div style='position:relative;top:5px'><p>a<div style='position:relative;left:7px'>"
              u"b<p style='margin:0'>c</div></div>d") == "0,21 a|7,53 b|7,69 c|0,80 d");
    CHECK(Lines(u"<p style='margin:0;position:relative;right:10px;bottom:4px'>a") == "-10,-4 a");
    CHECK(Lines(u"<div style='float:left;position:relative;top:7px'>f</div>a") == "8,0 a|0,7 f");
    CHECK(Lines(u"<table cellspacing=0 cellpadding=0 style='position:relative;left:9px'><tr><td>a"
                u"</table>b") == "9,0 a|0,16 b");
    CHECK(Lines(u"a<span style='display:inline-block;position:relative;top:3px'>b</span>") ==
          "0,0 a#|8,3 b");
}

TEST_CASE("page layout: elements and attributes that take things away") {
    CHECK(Lines(u"a<p hidden>b</p><p style='margin:0'>c") == "0,0 a|0,16 c");
    CHECK(Lines(u"a<span hidden>b</span>c") == "0,0 ac");
}

TEST_CASE("page layout: old attributes of lists, breaks and pictures") {
    CHECK(Lines(u"<ol type=a start=2><li>x<li type=I>y</ol>") ==
          "18,16 b.|40,16 x|2,32 III.|40,32 y");
    CHECK(Lines(u"<ul type=square><li>x</ul>") == "26,16 ?|40,16 x");
    const std::u16string box = u"<div style='float:left;width:8px;height:40px'></div>";
    CHECK(Lines(box + u"a<br>b") == "8,0 a/|8,16 b");
    CHECK(Lines(box + u"a<br clear=all>b") == "8,0 a/|0,40 b");
    CHECK(Lines(box + u"a<br clear=left>b") == "8,0 a/|0,40 b");
    CHECK(Lines(box + u"a<br clear=right>b") == "8,0 a/|8,16 b");
    CHECK(Lines(u"<img align=left width=20 height=20 hspace=5 vspace=3>a") == "30,0 a");
    CHECK(
        Lines(u"<img align=right width=20 height=20 hspace=5>a<p style='clear:right;margin:0'>b") ==
        "0,0 a|0,20 b");
    CHECK(Lines(u"<hr align=left width=50% style='margin:0'>a") == "0,2 a");
    CHECK(Lines(u"<p align=center style='margin:0'>aa", 100) == "42,0 aa");
}

TEST_CASE("page layout: the text of a picture that cannot be shown stands in the line") {
    CHECK(Lines(u"a<img alt='bb cc'>d") == "0,0 a#d|8,0 bb cc");
    CHECK(Lines(u"<img alt='bb cc dd'>", 60) == "0,0 #|0,0 bb cc|0,16 dd");
    CHECK(Lines(u"<table><td width=40><img alt='bb cc dd'><td>e</table>") ==
          "3,3 #|3,3 bb cc|3,19 dd|47,11 e");
    CHECK(Lines(u"a<img alt=''>d<div style='float:right'>x<img alt=''>y</div>") ==
          "0,0 a#d|384,0 x#y");
    CHECK(Lines(u"a<img alt='bb cc dd' width=40 height=30>d", 100) == "0,0 a#d|8,0 bb cc");
}

TEST_CASE("page layout: floats stand beside what follows") {
    const std::u16string box = u"<div style='float:left;width:80px;height:32px'>f</div>";
    CHECK(Lines(box + u"aa bb cc dd ee ff gg hh ii", 160) ==
          "80,0 aa bb cc|80,16 dd ee ff|0,32 gg hh ii|0,0 f");
    CHECK(Lines(box + u"<p>aa bb cc<p>dd ee ff gg hh ii", 160) ==
          "80,16 aa bb cc|0,48 dd ee ff gg hh ii|0,16 f");
    CHECK(Lines(box + u"<p style='clear:left'>aa", 160) == "0,32 aa|0,0 f");
    CHECK(Lines(u"<div style='float:right'>right</div>left", 160) == "0,0 left|120,0 right");
}

TEST_CASE("page layout: a block that keeps floats in is as high as they are") {
    CHECK(Lines(u"<div style='overflow:hidden'><div style='float:left;height:40px'>f</div></div>"
                u"two") == "0,0 f|0,40 two");
    CHECK(Lines(u"<div><div style='float:left;height:40px'>f</div></div>two") == "8,0 two|0,0 f");
}

TEST_CASE("page layout: what would scroll is as high as its content") {
    CHECK(Lines(u"<div style='height:16px;overflow:auto'>one<br>two</div>x") ==
          "0,0 one/|0,16 two|0,32 x");
    CHECK(Lines(u"<div style='max-height:16px;overflow:scroll'>one<br>two</div>x") ==
          "0,0 one/|0,16 two|0,32 x");
}

TEST_CASE("page layout: cells share a table that is narrower than their widths") {
    const std::u16string table = u"<table cellspacing=0 cellpadding=0><td style='width:80px'>a";
    CHECK(Lines(table + u"<td style='width:80px'>b</table>", 96) == "0,0 a|48,0 b");
    CHECK(Lines(table + u"<td style='width:80px'>b</table>", 200) == "0,0 a|80,0 b");
}

TEST_CASE("page layout: a block that keeps floats out fills what they leave of a line") {
    const auto lines = [](const std::u16string& style, const std::u16string& words) {
        return PageSample(u"<div style='float:left;width:40px'>float</div><div style='" + style +
                          u"'>" + words + u"</div>")
            .Lines(120);
    };
    CHECK(lines(u"overflow:hidden", u"one two three") == "0,0 float|40,0 one two|40,16 three");
    CHECK(lines(u"display:flow-root;margin-left:56px", u"one two") == "0,0 float|56,0 one two");
    CHECK(lines(u"overflow:hidden;margin-left:24px", u"one two") == "0,0 float|40,0 one two");
    CHECK(lines(u"display:table", u"one two three") == "0,0 float|40,0 one two|40,16 three");
    CHECK(lines(u"overflow:hidden", u"longestword") == "0,0 float|0,16 longestword");
    CHECK(lines(u"overflow:hidden;width:100px", u"one two") == "0,0 float|0,16 one two");
}

TEST_CASE("page layout: a line that its box would cut goes on in the next one") {
    const std::u16string one = u"<div style='width:40px;white-space:nowrap;",
                         two = u"'>one two</div>";
    CHECK(Lines(one + u"overflow:hidden" + two) == "0,0 one|0,16 two");
    CHECK(Lines(one + two) == "0,0 one two");
}

TEST_CASE("page layout: floats begin where a margin after them ends") {
    const std::u16string box = u"<div style='float:right;width:80px;height:32px'>f</div>";
    CHECK(Lines(box + u"<p>one") == "0,16 one|320,16 f");
    CHECK(Lines(u"<div>" + box + u"</div><p>one") == "0,16 one|320,16 f");
    CHECK(Lines(u"<p>one</p>" + box + u"<p>two") == "0,16 one|0,48 two|320,48 f");
    CHECK(Lines(u"<p>one</p>" + box + u"<p style='clear:both'>two") ==
          "0,16 one|0,80 two|320,48 f");
    CHECK(Lines(u"<p>one</p>" + box) == "0,16 one|320,48 f");
}

TEST_CASE("page layout: a float at the beginning of a line stands beside it") {
    CHECK(Lines(u"one<br><b style='float:right;width:40px'>f</b>two", 100) ==
          "0,0 one/|0,16 two|60,16 f");
}

TEST_CASE("page layout: a margin at the top of a box is above its background") {
    PageSample page(u"<div style='background:red'><p style='margin:20px 0'>x</div>");
    page.flow.SetWidth(400);
    const PageFragment& fragment = *page.flow.LayOut(0);
    REQUIRE(fragment.boxes.size() == 1);
    CHECK(fragment.boxes[0].top == 20);
    CHECK(fragment.boxes[0].height == 16);
}

TEST_CASE("page layout: a box that only clears floats has its parent as high as them") {
    PageSample page(u"<div style='background:red'><div style='float:left'>a<br>b</div>"
                    u"<div style='clear:both'></div></div><p>x");
    page.flow.SetWidth(400);
    const PageFragment& fragment = *page.flow.LayOut(0);
    REQUIRE(fragment.boxes.size() == 1);
    CHECK(fragment.boxes[0].top == 0);
    CHECK(fragment.boxes[0].height == 32);
}

TEST_CASE("page layout: a float after a block does not wait for a larger margin") {
    const std::u16string box = u"<div style='float:right;width:80px;height:32px'>f</div>";
    const std::u16string far = u"<p style='margin-top:40px'>two";
    CHECK(Lines(u"<p>one</p>" + box + far) == "0,16 one|0,72 two|320,48 f");
    CHECK(Lines(u"<p>one</p><div>" + box + u"</div>" + far) == "0,16 one|0,72 two|320,48 f");
    CHECK(Lines(u"<p>one</p><div>" + box + far + u"</div>") == "0,16 one|0,72 two|320,72 f");
}

TEST_CASE("page layout: a float goes below the floats that it clears") {
    const std::u16string box = u"<div style='width:80px;height:32px;float:";
    CHECK(Lines(box + u"left'>a</div>" + box + u"left;clear:left'>b</div>one") ==
          "80,0 one|0,0 a|0,32 b");
    CHECK(Lines(box + u"left'>a</div>" + box + u"right;clear:left'>b</div>one") ==
          "80,0 one|0,0 a|320,32 b");
    CHECK(Lines(box + u"left'>a</div>" + box + u"left;clear:right'>b</div>one") ==
          "160,0 one|0,0 a|80,0 b");
}

TEST_CASE("page layout: an indent counts in a width that goes by the content") {
    const std::u16string start = u"<div style='float:left;text-indent:";
    CHECK(Lines(start + u"-8px;padding-left:8px'>aa</div>b") == "16,0 b|0,0 aa");
    CHECK(Lines(start + u"8px'>aa</div>b") == "24,0 b|8,0 aa");
}

TEST_CASE("page layout: what does not wrap within a block that does") {
    CHECK(Lines(u"<span style='white-space:nowrap'>aa bb</span> cc", 48) == "0,0 aa ?bb|0,16 cc");
    CHECK(Lines(u"aa <nobr>bb-bb</nobr>", 48) == "0,0 aa|0,16 bb?-?bb");
    CHECK(Lines(u"<nobr>aa <b>bb</b></nobr> c", 48) == "0,0 aa ?bb|0,16 c");
    CHECK(Lines(u"<nobr>aa </nobr><br>c", 48) == "0,0 aa/|0,16 c");
}

TEST_CASE("page layout: margins and padding of what stands in a line") {
    CHECK(Lines(u"<span style='margin-left:16px'>aa</span> b", 40) == "0,0 #?aa|0,16 b");
    CHECK(Lines(u"aa <span style='padding:0 8px'>b</span> c", 56) == "0,0 aa #?b?#|0,16 c");
    CHECK(Lines(u"aa <span style='border:solid 8px'>bb</span>", 48) == "0,0 aa|0,16 #?bb?#");
    CHECK(Lines(u"<span style='padding-left:1px'>aa</span>", 48) == "0,0 #?aa");
    CHECK(Lines(u"<span style='border-left:1px solid'>aa</span>", 48) == "0,0 #?aa");
    CHECK(Lines(u"<span style='margin-left:1px'>aa</span>", 48) == "0,0 #?aa");
}

TEST_CASE("page layout: percentages in a table within a cell make its column no wider") {
    const std::u16string table = u"<table cellpadding=0 cellspacing=0>";
    const std::u16string inner = table + u"<td width='10%'>aaaa<td>b</table>";
    CHECK(Lines(table + u"<td>" + inner + u"<td>c</table>") == "0,0 aaaa|32,0 b|40,0 c");
    CHECK(Lines(inner + u"c") == "0,0 aaaa|32,0 b|0,16 c");
}

TEST_CASE("page layout: a table between its margins") {
    const std::u16string start = u"<table cellspacing=2 cellpadding=1>";
    CHECK(Lines(start + u"<tr><td>a<td>bb<tr><td>ccc<td>d</table>") ==
          "3,3 a|31,3 bb|3,23 ccc|31,23 d");
    CHECK(Lines(start + u"<tr><td colspan=2>aaaa<tr><td>b<td>c</table>x") ==
          "3,3 aaaa|3,23 b|21,23 c|0,42 x");
    CHECK(Lines(start + u"<tr><td rowspan=2>a<td>b<tr><td>c</table>") == "3,13 a|15,3 b|15,23 c");
}

TEST_CASE("page layout: columns go by the direction of their table") {
    const std::u16string start = u"<table dir=rtl cellspacing=2 cellpadding=1 align=left>";
    CHECK(Lines(start + u"<tr><td>a<td>bb<tr><td>ccc<td>d</table>") ==
          "39,3 a|3,3 bb|23,23 ccc|11,23 d");
    CHECK(Lines(start + u"<tr><td>a<td>b<tr><td colspan=2>cccc</table>") ==
          "27,3 a|9,3 b|3,23 cccc");
}

TEST_CASE("page layout: lists and definitions are indented") {
    CHECK(Lines(u"<ol><li>one<li>two<li value=9>nine<li>x</ol>") ==
          "18,16 1.|40,16 one|18,32 2.|40,32 two|18,48 9.|40,48 nine|10,64 10.|40,64 x");
    CHECK(Lines(u"<ul><li><p>one</p>two</ul>") == "26,16 ?|40,16 one|40,48 two");
    CHECK(Lines(u"<ol reversed><li>a<li>b</ol>") == "18,16 2.|40,16 a|18,32 1.|40,32 b");
    CHECK(Lines(u"<ol start=3 style='list-style-position:inside'><li>a</ol>") == "40,16 3. a");
    CHECK(Lines(u"<ul style='list-style:none'><li>a</ul>") == "40,16 a");
    CHECK(Lines(u"<ul><li></ul>after") == "0,16 after");
    CHECK(Lines(u"<dl><dt>one<dd>two</dl>") == "0,16 one|40,32 two");
}

TEST_CASE("page layout: markers of lists") {
    const struct {
        CssListStyleType type;
        int number;
        std::u16string_view marker;
    } cases[] = {{CssListStyleType::Decimal, 12, u"12."},
                 {CssListStyleType::DecimalLeadingZero, 7, u"07."},
                 {CssListStyleType::LowerAlpha, 26, u"z."},
                 {CssListStyleType::LowerAlpha, 27, u"aa."},
                 {CssListStyleType::UpperAlpha, 703, u"AAA."},
                 {CssListStyleType::LowerAlpha, 0, u"0."},
                 {CssListStyleType::LowerRoman, 1994, u"mcmxciv."},
                 {CssListStyleType::UpperRoman, 49, u"XLIX."},
                 {CssListStyleType::UpperRoman, 4000, u"4000."},
                 {CssListStyleType::LowerGreek, 2, u"\u03B2."},
                 {CssListStyleType::Square, 3, u"\u25AA"},
                 {CssListStyleType::None, 3, u""}};
    for (const auto& [type, number, marker] : cases)
        CHECK(ListMarker(type, number) == marker);
}

TEST_CASE("page layout: the end of an element after a break begins no line") {
    const std::u16string item = u"<dd style='display:inline;margin:0'>"; // isolated in its line
    CHECK(Lines(item + u"one<br></dd><p style='margin:0'>x") == "0,0 one/|0,16 x");
    CHECK(Lines(u"<div>" + item + u"<b style='background:red'>one<br></b></dd></div>x") ==
          "0,0 one/|0,16 x");
    CHECK(Lines(u"<div>" + item + u"one<br></dd>two</div>x").ends_with("|0,32 x"));
}

TEST_CASE("page layout: a break at the end of a block begins no line") {
    CHECK(Lines(u"<div>one<br></div>two") == "0,0 one/|0,16 two");
    CHECK(Lines(u"<div>one<br><br></div>two") == "0,0 one/|0,16 /|0,32 two");
    CHECK(Lines(u"<div><br></div>two") == "0,0 /|0,16 two");
    CHECK(Lines(u"<div style='white-space:pre'>one\n</div>two") == "0,0 one/|0,16 two");
}

TEST_CASE("page layout: capitals") {
    CHECK(Lines(u"<p style='text-transform:uppercase'>one two") == "0,16 ONE TWO");
    CHECK(Lines(u"<p style='text-transform:capitalize'>one two") == "0,16 One Two");
    PageSample small(u"<p style='font-variant:small-caps'>Ab");
    CHECK(small.Lines(400) == "0,16 AB");
    CHECK(small.boxes.Count() == 3);
    CHECK(small.text.TextOf(3).content->text.runs.size() == 2);
}

TEST_CASE("page layout: text beside the page's edge by its style") {
    CHECK(Lines(u"<p style='text-align:right'>one", 80) == "56,16 one");
    CHECK(Lines(u"<center>one</center>", 80) == "28,0 one");
    CHECK(Lines(u"<p style='text-indent:16px'>one two three", 80) == "16,16 one two|0,32 three");
    CHECK(Lines(u"<p dir=rtl>one", 80) == "56,16 one");
}

TEST_CASE("page layout: what is positioned takes no room") {
    CHECK(Lines(u"<p>one <span style='position:absolute;left:90%'>7</span>two", 100) ==
          "0,16 one two|90,16 7");
    CHECK(Lines(u"<p>one <span style='position:absolute;right:0'>7</span>two", 100) ==
          "0,16 one two|92,16 7");
}

TEST_CASE("page layout: any zone alone is laid out as it is in the whole page") {
    std::u16string body;
    for (int i = 0; i < 40; ++i) {
        const std::u16string number(1, char16_t(u'a' + i % 26));
        if (i % 7 == 0) body += u"<div style='padding:3px;border:1px solid'>";
        body += u"<p>paragraph " + number;
        if (i % 7 == 3) body += u"</div>";
        if (i % 9 == 0) body += u"<h2>heading</h2>";
        if (i % 11 == 0) body += u"<ul><li>item<li>item</ul>";
    }
    PageSample forward(body);
    const std::string whole = forward.Lines(200);
    PageSample backward(body);
    backward.flow.SetWidth(200);
    for (std::size_t zone = backward.flow.ZoneCount(); zone-- > 0;)
        backward.flow.LayOut(zone);
    CHECK(backward.flow.Heights().NotMeasured() == 0);
    CHECK(backward.Lines(200) == whole);
    CHECK(backward.flow.Heights().Total() == forward.flow.Heights().Total());
}

TEST_CASE("page layout: a long page is laid out where it is looked at") {
    std::u16string body;
    for (int i = 0; i < 5000; ++i)
        body += u"<p>one two three four";
    PageSample page(body);
    page.flow.SetWidth(100);
    REQUIRE(page.flow.ZoneCount() == 5000);
    const std::size_t middle = page.flow.Heights().BlockAt(page.flow.Heights().Total() / 2);
    CHECK(middle > 2000);
    CHECK(middle < 3000);
    page.flow.LayOut(middle);
    CHECK(page.flow.LayoutsMade() == 1);
    CHECK(page.flow.MeasureSome(10));
    CHECK(page.flow.LayoutsMade() == 11);
    while (page.flow.MeasureSome(500)) {
    }
    CHECK(page.flow.Heights().NotMeasured() == 0);
    CHECK(page.flow.LayoutsMade() == 5000);
}

TEST_CASE("page layout: boxes in boxes are laid out once for each level") {
    std::u16string body;
    for (int i = 0; i < 200; ++i)
        body += u"<span style='display:inline-block'>";
    PageSample page(body + u"x");
    CHECK(page.Lines(400).ends_with("|0,0 x"));
    CHECK(page.system.paragraphs < 20 * 200);
}

TEST_CASE("page layout: many floats in a text are laid out a few times each") {
    std::u16string body = u"<p>";
    for (int i = 0; i < 3000; ++i)
        body += u"<span style='float:left'>a</span>b ";
    PageSample page(body);
    page.Lines(400);
    CHECK(page.system.paragraphs <= 4 * 3000);
}

TEST_CASE("page layout: tables in tables") {
    std::u16string body;
    for (int i = 0; i < 100; ++i)
        body += u"<table cellspacing=0 cellpadding=0><td>";
    PageSample page(body + u"x");
    CHECK(page.Lines(400) == "0,0 x");
    CHECK(page.system.paragraphs < 20 * 100);
}

TEST_CASE("page layout: a float after the last space of its block is there") {
    CHECK(Lines(u"<p style='margin:0'>one <b style='float:right'>7</b> </p>two") ==
          "0,0 one|0,16 two|392,0 7");
    CHECK(Lines(u"<p style='margin:0'>one <b style='position:absolute;right:0'>7</b>\n</p>two") ==
          "0,0 one|392,0 7|0,16 two");
}

TEST_CASE("page layout: widths that follow from the content") {
    CHECK(Lines(u"<div style='width:fit-content;margin:auto'>one</div>") == "188,0 one");
    CHECK(Lines(u"<div style='width:min-content'>one two") == "0,0 one|0,16 two");
    CHECK(Lines(u"<div style='width:max-content'>one two three", 48) == "0,0 one two three");
    CHECK(Lines(u"<div style='max-width:fit-content;margin:auto'>one</div>") == "188,0 one");
    CHECK(Lines(u"<div style='float:right;width:min-content'>one two") == "376,0 one|376,16 two");
}

TEST_CASE("page layout: a block without a height hides what clears floats, and no words") {
    const std::u16string hides = u"<div style='height:0;overflow:hidden'>";
    CHECK(Lines(hides + u".</div>two") == "0,0 two");
    CHECK(Lines(hides + u"&nbsp;</div>two") == "0,0 two");
    CHECK(Lines(hides + u"one</div>two") == "0,0 one|0,16 two");
    CHECK(Lines(u"<div style='max-height:0;overflow:hidden'>one</div>two") == "0,0 one|0,16 two");
}

TEST_CASE("page layout: a table's share of a width is with its borders and beside its margins") {
    const std::u16string table = u"<table cellpadding=0 cellspacing=0 style='width:50%;";
    const std::u16string cells = u"'><td align=right>one</table>";
    CHECK(Lines(table + cells) == "176,0 one");
    CHECK(Lines(table + u"border:8px solid" + cells) == "168,8 one");
    CHECK(Lines(table + u"margin-left:50px" + cells) == "226,0 one");
    CHECK(Lines(u"<table cellpadding=0 cellspacing=0 style='max-width:50%'><td>one two three four "
                u"five six seven</table>") == "0,0 one two three four five|0,16 six seven");
}

TEST_CASE("page layout: what is positioned may stand in the padding of its box") {
    const auto box = [](const std::u16string& style, const std::u16string& place) {
        return Lines(u"<div style='position:relative;width:300px;padding:20px;" + style +
                     u"'>text<b style='position:absolute;right:10px;" + place + u"'>7</b></div>");
    };
    CHECK(box(u"", u"top:2px") == "20,20 text|322,2 7");
    CHECK(box(u"overflow:hidden", u"top:2px") == "20,20 text|322,2 7");
    CHECK(box(u"overflow:hidden", u"top:-90px") == "20,20 text|322,0 7"); // but not above the page
    CHECK(box(u"float:left", u"top:2px") == "20,20 text|322,2 7");
    CHECK(box(u"display:flex", u"") == "20,20 text|322,20 7");
    CHECK(box(u"display:flex", u"left:5px") == "20,20 text|5,20 7");
}

TEST_CASE("page layout: what is positioned goes by the nearest box that says so") {
    const std::u16string number = u"<b style='position:absolute;right:10px'>7</b>";
    CHECK(Lines(u"<p style='margin:0 100px'>one" + number) == "100,0 one|382,0 7");
    CHECK(Lines(u"<p style='margin:0 100px;position:relative'>one" + number) ==
          "100,0 one|282,0 7");
    CHECK(Lines(u"<p style='margin:0 100px;padding:0 9px;position:relative'>one" + number) ==
          "109,0 one|282,0 7");
    CHECK(Lines(u"<div style='position:relative;margin:0 50px'><div style='overflow:hidden;"
                u"margin:0 50px'>one" +
                number) == "100,0 one|332,0 7");
}
