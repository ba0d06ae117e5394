// Boxes out of the flow: beside the text, in places of their own, and on nothing.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& body, double width) {
    return PageSample(body).Lines(width);
}

// Words that take some lines of 100 pixels.
const std::u16string words = u"one two three four five six";
} // namespace

TEST_CASE("page positioned: a side bar that is fixed to the window stands beside the text") {
    const std::u16string bar =
        u"<div style='position:fixed;top:0;left:0;width:60px'>chapter<br>other</div>";
    CHECK(Lines(bar + u"<div style='margin-left:60px'>one two three</div>", 160) ==
          "60,0 one two|60,16 three|0,0 chapter/|0,16 other");
    // Also where the page makes room by the padding of what is laid out by itself.
    CHECK(Lines(bar + u"<div style='padding-left:60px;overflow:hidden'>one two three</div>", 160) ==
          "0,0 chapter/|0,16 other|60,0 one two|60,16 three");
    // A head over all the page, and what hides out of the window, stand in the text.
    CHECK(Lines(u"<div style='position:fixed;top:0;left:0;right:0'>head</div>one", 160) ==
          "0,0 head|0,16 one");
    CHECK(Lines(u"<div style='position:fixed;top:0;left:-60px;width:60px'>menu</div>one", 160) ==
          "0,0 menu|0,16 one");
    // Without a width, between insets that leave it a side of the window.
    const std::u16string between =
        u"<div style='position:fixed;top:0;bottom:0;left:0;right:60%'>bar</div>";
    CHECK(Lines(u"<div style='margin-left:40%'>one</div>" + between + u"two", 160) ==
          "64,0 one|0,16 two|0,0 bar");
}

TEST_CASE("page positioned: padding without a background covers nothing") {
    const auto menu = [](const std::u16string& style) {
        return Lines(
            u"<div style='position:relative;overflow:hidden'><p style='margin:20px 0 0'>head</p>"
            u"<div style='position:absolute;top:0;padding:4px 0;" +
                style + u"'>menu</div><p>one",
            100);
    };
    CHECK(menu(u"") == "0,20 head|0,52 one|0,4 menu");
    CHECK(menu(u"background:#eee") == "0,20 head|32,52 one|0,40 menu");
}

TEST_CASE("page positioned: what a page puts above itself covers nothing") {
    const auto skip = [](const std::u16string& top) {
        return Lines(u"<a style='position:absolute;left:0;top:" + top + u"'>skip</a>one", 100);
    };
    CHECK(skip(u"-100%") == "0,0 one|-32,0 skip");
    CHECK(skip(u"-40px") == "0,0 one|-32,0 skip");
    CHECK(skip(u"-16px") == "0,0 one|-32,0 skip");
    CHECK(skip(u"-15px") == skip(u"0"));
    CHECK(Lines(u"<p>first<div style='position:relative'>"
                u"<a style='position:absolute;right:0;top:-32px'>up</a>one</div>",
                100) == "0,16 first|0,48 one|84,32 up");
}

TEST_CASE("page positioned: text goes around a box that has no room beside it") {
    CHECK(Lines(u"<div style='position:absolute;top:0;right:0;width:40px'>share</div>" + words,
                100) == "0,0 one two|0,16 three four|0,32 five six|60,0 share");
    CHECK(Lines(u"<div style='position:absolute;top:0;right:0;width:40px'>share</div>"
                u"<div style='overflow:hidden'>one two three</div>",
                100) == "60,0 share|0,16 one two|0,32 three");
}

TEST_CASE("page positioned: boxes stand at the heights that their style says") {
    const std::u16string sheet = u"<style>.page{position:relative;height:100px;margin:8px 0}"
                                 u"b{position:absolute;font-weight:normal}</style>";
    CHECK(Lines(sheet + u"<div class=page><b style='left:9px;top:10px'>one</b>"
                        u"<b style='left:9px;top:40px'>two</b>"
                        u"<b style='left:9px;bottom:0'>three</b></div>after",
                200) == "9,18 one|9,48 two|9,92 three|0,116 after");
    CHECK(Lines(u"<div style='position:relative;padding:5px'>"
                u"<b style='position:absolute;right:2px;top:2px'>copy</b><p>one</div>",
                100) == "5,21 one|66,2 copy");
    // Also after a box that others stood in.
    CHECK(Lines(u"<div><div>one</div></div><div style='position:relative;margin-top:20px'><div>two"
                u"<b style='position:absolute;top:0;right:0'>x</b></div></div>",
                100) == "0,0 one|0,36 two|92,36 x");
}

TEST_CASE("page positioned: a box in one that is out of the flow is told from its top") {
    CHECK(Lines(u"<div style='position:absolute;top:0;right:0;width:100%'>"
                u"<div style='margin-top:32px'>one</div>"
                u"<div style='position:absolute;top:0;right:8px'>two</div></div>",
                100) == "0,32 one|68,0 two");
}

TEST_CASE("page positioned: no box is on another or on text above it") {
    const std::u16string box = u"<b style='position:absolute;left:0;top:0'>";
    CHECK(Lines(u"one" + (u"<div>" + box + u"two</b></div>") + (u"<div>" + box + u"six</b></div>"),
                100) == "0,0 one|0,16 two|0,32 six");
}

TEST_CASE("page positioned: of a pile none is on another") {
    std::u16string page;
    std::string piled;
    for (int i = 0; i < 600; ++i) {
        page += u"<div><b style='position:absolute;left:0;top:0'>two</b></div>";
        piled += (i > 0 ? "|0," : "0,") + std::to_string(16 * i) + " two";
    }
    CHECK(Lines(page, 100) == piled);
    // Each where it is the first to have room.
    CHECK(Lines(u"<b style='position:absolute;left:0;top:16px'>1</b>"
                u"<b style='position:absolute;left:0;top:32px'>2</b>"
                u"<b style='position:absolute;left:0;top:48px'>3</b>"
                u"<b style='position:absolute;left:0;top:64px'>4</b>"
                u"<b style='position:absolute;left:0;top:96px'>6</b>"
                u"<p>text</p>"
                u"<b style='position:absolute;left:0;top:16px'>5</b>",
                100) == "8,16 text|0,16 1|0,32 2|0,48 3|0,64 4|0,96 6|0,80 5");
}

TEST_CASE("page positioned: a box between both sides fills the room between them") {
    CHECK(Lines(u"<div style='position:absolute;top:0;left:40px;right:20px'>one two three</div>",
                124) == "40,0 one two|40,16 three");
    CHECK(Lines(u"<div style='position:absolute;top:0;left:60px'>one two three</div>", 124) ==
          "60,0 one two|60,16 three");
}

TEST_CASE("page positioned: a page is as high as a bar beside its text") {
    std::u16string bar = u"<div style='position:absolute;top:0;left:0;width:60px'>";
    for (int i = 0; i < 400; ++i)
        bar += u"line<br>";
    PageSample page(bar + u"</div><div style='margin-left:60px'><p>one<p>two</div>");
    page.flow.SetWidth(200);
    while (page.flow.MeasureSome(100)) {
    }
    CHECK(page.flow.Heights().Total() >= 400 * 16);
}

TEST_CASE("page positioned: nothing of a bar is cut off where the text beside it is divided") {
    std::u16string body = u"<div style='position:absolute;top:0;left:0;width:60px'>";
    for (int i = 0; i < 400; ++i)
        body += u"line<br>";
    body += u"</div><div style='margin-left:60px'>";
    for (int i = 0; i < 200; ++i)
        body += u"<p>one";
    PageSample page(body);
    page.flow.SetWidth(200);
    REQUIRE(page.flow.ZoneCount() > 1);
    CHECK(page.flow.HeightOf(0) >= 400 * 16);
}

TEST_CASE("page positioned: what a page hides from everybody who looks at it is not shown") {
    const auto hidden = [](const std::u16string& style) {
        return Lines(u"<style>.a{" + style + u"}</style><div>one</div><div class=a>link</div>two",
                     160) == "0,0 one|0,16 two";
    };
    CHECK(hidden(u"position:absolute;left:-9999px"));
    CHECK(hidden(u"position:absolute;top:-1000px"));
    CHECK(hidden(u"position:fixed;left:-999px"));
    CHECK(hidden(u"position:absolute;width:1px;height:1px;overflow:hidden"));
    CHECK(hidden(u"position:absolute;height:1px;overflow:hidden"));
    CHECK(hidden(u"height:0;width:0;overflow:hidden"));
    CHECK(Lines(u"one<div style='width:0;overflow:hidden'>link</div>two", 160) ==
          "0,0 one|0,16 two");
    // Nothing here would open it or bring it back.
    CHECK(!hidden(u"max-height:0;overflow:hidden"));
    CHECK(!hidden(u"height:0;overflow:hidden"));
    CHECK(!hidden(u"opacity:0"));
    CHECK(!hidden(u"width:0;min-width:100%;overflow:hidden"));
    CHECK(Lines(u"<div style='display:flex'><div style='width:0;flex:1;overflow:hidden'>one</div>"
                u"</div>",
                160) == "0,0 one");
}

TEST_CASE("page positioned: a heading that makes room for a picture is shown") {
    CHECK(Lines(u"<div style='text-indent:-9999px'>one</div>", 160) == "0,0 one");
    CHECK(Lines(u"<div style='text-indent:100%;overflow:hidden;white-space:nowrap'>one</div>",
                160) == "0,0 one");
}

namespace {
std::u16string Paragraphs(int count) {
    std::u16string all;
    for (int i = 0; i < count; ++i)
        all += u"<p>one";
    return all;
}

// Where a text stands in the page's lines, as "0,16"; empty where it is in none.
std::string PlaceOf(const std::string& text, const std::string& lines) {
    const auto end = ("|" + lines + "|").find(" " + text + "|");
    if (end == std::string::npos) return {};
    const auto start = ("|" + lines).rfind('|', end);
    return lines.substr(start, end - 1 - start);
}
} // namespace

TEST_CASE("page positioned: a bar after the text stands beside its beginning") {
    const std::u16string text = u"<div style='margin-left:60px'>" + Paragraphs(400) + u"</div>";
    const auto placeOf = [&](const std::u16string& style, const std::u16string& before = {}) {
        PageSample page(before + text + u"<nav style='width:56px;" + style + u"'>bar</nav>end");
        const std::string lines = page.Lines(200);
        REQUIRE(page.flow.ZoneCount() > 2);
        return PlaceOf("bar", lines);
    };
    CHECK(placeOf(u"position:absolute;top:0;left:0") == "0,0");
    CHECK(placeOf(u"position:absolute;top:40px;left:2px;margin:3px") == "5,43");
    CHECK(placeOf(u"position:fixed;top:0;left:0") == "0,0");
    // A heading may be higher than the page reckons with.
    CHECK(placeOf(u"position:absolute;top:20px;left:0;width:30px;padding:9px", u"<p>a<p>b") ==
          "9,73");
    // Where the text is, it is after it.
    CHECK(placeOf(u"position:absolute;top:9px;left:60px;padding:9px") == "69,12825");
    CHECK(placeOf(u"position:absolute;top:9px;right:0;width:150px;padding:9px") == "41,12825");
    CHECK(placeOf(u"position:absolute;left:0") == "0,12816");
}

TEST_CASE("page positioned: a bar after the text stands below the top of what it is told from") {
    const std::u16string bar =
        u"<nav style='position:absolute;top:8px;right:0;width:50px'>bar</nav>";
    PageSample page(u"<header>head</header><div style='position:relative;padding-right:60px'>" +
                    Paragraphs(200) + bar + Paragraphs(200) + u"</div>end");
    const std::string lines = page.Lines(200);
    REQUIRE(page.flow.ZoneCount() > 2);
    CHECK(PlaceOf("bar", lines) == "150,40");
    CHECK(PlaceOf("end", lines) == "0,12832");
}

TEST_CASE(
    "page positioned: a bar takes no room where it is written, also where that is seen first") {
    const std::u16string text = u"<div style='margin-left:60px'>" + Paragraphs(400) + u"</div>";
    PageSample page(text +
                    u"<nav style='position:absolute;top:0;left:0;width:56px'><b>bar</b></nav>");
    page.flow.SetWidth(200);
    const std::size_t last = page.flow.ZoneCount() - 1;
    PageBoxId bar = rootPageBox;
    while (page.boxes[bar].style->position != CssPosition::Absolute)
        ++bar;
    CHECK(page.flow.LayOut(last)->parts.empty());
    CHECK(page.flow.ZoneOf(bar) == 0);
    CHECK(page.flow.LayoutsMade() == 2);
    // Without room beside the text it stands where it is written.
    PageSample narrow(Paragraphs(400) + u"<nav style='position:absolute;top:0;left:0;width:56px;"
                                        u"padding:9px'>bar</nav>");
    narrow.flow.SetWidth(100);
    CHECK(narrow.flow.LayOut(narrow.flow.ZoneCount() - 1)->parts.size() == 1);
}

TEST_CASE("page positioned: text goes on beside a bar as far as that is high") {
    std::u16string bar = u"<nav style='position:absolute;top:0;left:0;width:56px'>";
    for (int i = 0; i < 100; ++i)
        bar += u"<div>line</div>";
    PageSample page(u"<div style='margin-left:60px'>" + Paragraphs(400) + u"</div>" + bar +
                    u"</nav>end");
    const std::string lines = page.Lines(200);
    CHECK(PlaceOf("line", lines) == "0,0");
    // No gap where the zone ends.
    CHECK(PlaceOf("end", lines) == "0,12816");
    page.flow.SetWidth(199);
    page.flow.LayOut(0);
    CHECK(page.flow.Heights().Height(0) < 200 * 32);
}
