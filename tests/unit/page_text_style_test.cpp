// What the styles of a page's texts do to its lines.
#include "common/contrast.h"
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& body, double width = 400) {
    return PageSample(body).Lines(width);
}

// The text of the page's first block of lines, in units' numbers where they are not ASCII.
std::string FirstText(PageSample& page) {
    PageBoxId lines = rootPageBox;
    while (page.boxes[lines].kind != PageBoxKind::Lines || !page.boxes[lines].hasText)
        ++lines;
    std::string shown;
    const LinesText text = page.text.TextOf(lines);
    for (const char16_t unit : text.content->text.text) {
        if (unit < 128)
            shown += char(unit);
        else
            shown += "<" + std::to_string(unit) + ">";
    }
    return shown;
}

std::string Text(const std::u16string& block) {
    PageSample page(block);
    return FirstText(page);
}

// The height of the first of these lines: where the second one begins.
std::string FirstHeight(const std::u16string& line) {
    const std::string lines = Lines(u"<div>" + line + u"</div><div>x</div>");
    const std::size_t start = lines.rfind('|') + 1, comma = lines.find(',', start);
    return lines.substr(comma + 1, lines.find(' ', comma) - comma - 1);
}
// Of the last letter that is laid out; none: the one of all that has none of its own.
std::optional<Color> LastColor(const std::u16string& body) {
    PageSample page(body);
    page.flow.SetWidth(400);
    const PageFragment* fragment = page.flow.LayOut(0).get();
    while (fragment->lines.empty() && !fragment->parts.empty())
        fragment = fragment->parts.back().fragment.get();
    REQUIRE(!fragment->lines.empty());
    const StyleHandle& style = fragment->lines.back().content->text.runs.back().style;
    return dynamic_cast<const NoneStyle&>(*style).Style().color;
}
} // namespace

TEST_CASE("page text: letters and words are set apart") {
    const std::u16string words = u"aa bb cc";
    CHECK(Lines(u"<div style='float:right'>" + words + u"</div>") == "336,0 aa bb cc");
    CHECK(Lines(u"<div style='float:right;letter-spacing:2px'>" + words + u"</div>") ==
          "320,0 aa bb cc");
    CHECK(Lines(u"<div style='float:right;letter-spacing:.25em'>" + words + u"</div>") ==
          "304,0 aa bb cc");
    CHECK(Lines(u"<div style='float:right;letter-spacing:-1px'>" + words + u"</div>") ==
          "344,0 aa bb cc");
    CHECK(Lines(u"<div style='float:right;word-spacing:1em'>" + words + u"</div>") ==
          "304,0 aa bb cc");
    CHECK(Lines(u"<div style='float:right'>aa <span style='letter-spacing:8px'>bb</span> cc"
                u"</div>") == "320,0 aa bb cc");
    CHECK(Lines(u"<div style='letter-spacing:8px'>" + words, 100) == "0,0 aa bb|0,16 cc");
}

TEST_CASE("page text: raised text stands in a line that has room for it") {
    CHECK(FirstHeight(u"one") == "16");
    // The small font's ascent of 10.7 stands 6.3 higher; the line's own is 12.8.
    CHECK(FirstHeight(u"one<sup>2</sup>") == "20");
    CHECK(FirstHeight(u"<span style='vertical-align:10px'>one</span>") == "26");
    CHECK(FirstHeight(u"<span style='vertical-align:-10px'>one</span>") == "26");
    CHECK(FirstHeight(u"<span style='vertical-align:50%'>one</span>") == "25");
    CHECK(FirstHeight(u"<span style='line-height:20px;vertical-align:50%'>one</span>") == "28");
    CHECK(FirstHeight(u"<span style='vertical-align:text-top;font-size:8px'>one</span>") == "16");
    CHECK(FirstHeight(u"<i style='vertical-align:4px'>a<b style='vertical-align:4px'>b</b></i>") ==
          "24");
}

TEST_CASE("page text: raised text is drawn where it is raised to, in its own size") {
    PageSample page(u"a<sup style='font-size:16px'>b</sup><sub>c</sub>"
                    u"<span style='position:relative;top:-3px'>d</span>");
    const LinesText text = page.text.TextOf(rootPageBox + 1);
    const auto& runs = text.content->text.runs;
    REQUIRE(runs.size() == 4);
    const auto style = [&](std::size_t run) {
        return static_cast<const NoneStyle&>(*runs[run].style).Style();
    };
    CHECK(style(0).raise == 0);
    CHECK(style(1).raise == doctest::Approx(16.0 / 3 + 1));
    CHECK(style(1).font.points == 12);
    CHECK(style(2).raise == doctest::Approx(-16.0 / 5 - 1));
    CHECK(style(3).raise == 3);
    CHECK(FirstHeight(u"a<span style='position:relative;top:-30px'>d</span>") == "16");
}

TEST_CASE("page text: a list of families is answered by the first one that is there") {
    const auto family = [](const std::u16string& list) {
        PageSample page(u"<p style=\"font-family:" + list + u"\">a");
        const PageBoxId lines = page.boxes.FirstChild(page.boxes.FirstChild(rootPageBox));
        const LinesText text = page.text.TextOf(lines);
        return static_cast<const NoneStyle&>(*text.content->strut).Style().font.family;
    };
    CHECK(family(u"'None Mono'") == u"None Mono");
    CHECK(family(u"Missing, 'none mono', serif") == u"none mono");
    CHECK(family(u"Missing, 'Also missing', sans-serif, 'None Mono'") == u"None Sans");
    CHECK(family(u"monospace") == u"None Mono");
    CHECK(family(u"cursive") == u"None Cursive");
    CHECK(family(u"fantasy") == u"None Fantasy");
    CHECK(family(u"system-ui") == u"None Interface");
    CHECK(family(u"'monospace', serif") == u"None Serif"); // a name, of nothing that is there
    CHECK(family(u"ui-rounded, sans-serif") == u"None Sans");
    CHECK(family(u"Missing") == u"None Serif");
    CHECK(family(u"inherit") == u"None Serif"); // no list at all
}

TEST_CASE("page text: lines on text") {
    PageSample page(u"<s>a</s><u>b</u><span style='text-decoration:overline'>c</span>"
                    u"<u><s style='text-decoration:line-through overline'>d</s></u>");
    const LinesText text = page.text.TextOf(rootPageBox + 1);
    const auto& runs = text.content->text.runs;
    REQUIRE(runs.size() == 4);
    const auto lines = [&](std::size_t run) {
        const TextStyle style = static_cast<const NoneStyle&>(*runs[run].style).Style();
        return std::string(style.underline ? "u" : "") + (style.strikethrough ? "s" : "") +
               (style.overline ? "o" : "");
    };
    CHECK(lines(0) == "s");
    CHECK(lines(1) == "u");
    CHECK(lines(2) == "o");
    CHECK(lines(3) == "uso");
}

TEST_CASE("page text: what is marked has its background") {
    PageSample page(u"a<mark>b<i>c</i></mark>d");
    const LinesText text = page.text.TextOf(rootPageBox + 1);
    const auto& decorations = text.content->decorations;
    REQUIRE(decorations.size() == 1);
    CHECK(decorations[0].start == 1);
    CHECK(decorations[0].end == 3);
    CHECK(decorations[0].style->background.Bgr() == 0x00FFFF);
    CHECK(decorations[0].begins);
    CHECK(decorations[0].ends);
}

TEST_CASE("page text: cases") {
    CHECK(Text(u"<p style='text-transform:uppercase'>Ab\u00E4") == "AB<196>");
    CHECK(Text(u"<p style='text-transform:lowercase'>AB\u00C4\u03A3\u0416I") ==
          "ab<228><963><1078>i");
    CHECK(Text(u"<p style='text-transform:capitalize'>one (two) three-four o'clock") ==
          "One (Two) Three-Four O'clock");
    CHECK(Text(u"<p><span style='text-transform:uppercase'>a</span>b") == "Ab");
}

TEST_CASE("page text: white space as its style says") {
    CHECK(Lines(u"<pre style='margin:0;font-size:16px'>a  b\n c</pre>") == "0,0 a  b/|0,16  c");
    CHECK(Lines(u"<div style='white-space:pre-line'> a  b \n c  </div>") == "0,0 a b/|0,16 c");
    CHECK(Lines(u"<div style='white-space:pre-wrap'>a  b cc\n dd</div>", 40) ==
          "0,0 a  b|0,16 cc/|0,32  dd");
    CHECK(Lines(u"<div style='white-space:nowrap'>aa bb cc</div>", 40) == "0,0 aa bb cc");
    CHECK(Lines(u"<nobr>aa bb</nobr> cc", 48) == "0,0 aa ?bb|0,16 cc");
    CHECK(Lines(u"aa <nobr>bb cc</nobr> dd", 56) == "0,0 aa|0,16 bb ?cc|0,32 dd");
    CHECK(Lines(u"<pre style='margin:0'>a\tb</pre>") == "0,0 a\tb");
}

TEST_CASE("page text: a tab is eight spaces wide") {
    const std::u16string pre = u"<pre style='margin:0;float:right;font-size:10px'>";
    CHECK(Lines(pre + u"a\tb</pre>") == "355,0 a\tb");
    CHECK(Lines(pre + u"\t\t</pre>") == "320,0 \t\t");
}

TEST_CASE("page text: line heights") {
    CHECK(FirstHeight(u"<p style='margin:0;line-height:2'>a") == "32");
    CHECK(FirstHeight(u"<p style='margin:0;line-height:150%'>a") == "24");
    CHECK(FirstHeight(u"<p style='margin:0;line-height:20px'>a") == "20");
    CHECK(FirstHeight(u"<p style='margin:0;line-height:1.5em'>a") == "24");
    CHECK(FirstHeight(u"<p style='margin:0;line-height:normal'>a") == "16");
    CHECK(FirstHeight(u"<p style='margin:0;line-height:.5'>a") == "8");
    // A number is inherited as it is, a percentage and an em as pixels.
    const std::u16string small = u"<p style='margin:0;font-size:8px'>a";
    CHECK(FirstHeight(u"<div style='line-height:2'>" + small + u"</div>") == "16");
    CHECK(FirstHeight(u"<div style='line-height:200%'>" + small + u"</div>") == "32");
    CHECK(FirstHeight(u"<div style='line-height:2em'>" + small + u"</div>") == "32");
}

TEST_CASE("page text: first lines are indented, also by a part of the width and to the left") {
    CHECK(Lines(u"<p style='margin:0;text-indent:10%'>aa bb", 80) == "8,0 aa bb");
    CHECK(Lines(u"<p style='margin:0;text-indent:24px'>aa bb cc", 64) == "24,0 aa bb|0,16 cc");
    CHECK(Lines(u"<p style='margin:0 0 0 32px;text-indent:-16px'>aa bb cc", 72) ==
          "16,0 aa bb|32,16 cc");
    CHECK(Lines(u"<div style='text-indent:50%;width:80px'><p style='margin:0;width:32px'>a") ==
          "16,0 a");
}

TEST_CASE("page text: alignment") {
    const auto aligned = [](const char16_t* style) {
        return Lines(u"<p style='margin:0;" + std::u16string(style) + u"'>aa bb", 100);
    };
    CHECK(aligned(u"text-align:start") == "0,0 aa bb");
    CHECK(aligned(u"text-align:end") == "60,0 aa bb");
    CHECK(aligned(u"text-align:start;direction:rtl") == "60,0 aa bb");
    CHECK(aligned(u"text-align:end;direction:rtl") == "0,0 aa bb");
    CHECK(aligned(u"text-align:center") == "30,0 aa bb");
    CHECK(aligned(u"text-align:justify;direction:rtl") == "60,0 aa bb");
    CHECK(Lines(u"<p dir=rtl style='margin:0'>aa bb", 100) == "60,0 aa bb");
    PageSample page(u"<p style='margin:0;text-align:justify'>aa bb cc");
    page.flow.SetWidth(60);
    const PageFragmentPtr fragment = page.flow.LayOut(0);
    const InlineLayout& layout = fragment->lines.front().layout;
    CHECK(layout.pieces[0].lines->Line(0).width == 60);
    CHECK(layout.pieces[0].lines->Line(1).width == 16);
}

TEST_CASE("page text: directions of elements in a line") {
    CHECK(Text(u"<p>a<span dir=rtl>b</span>c") == "a<8295>b<8297>c");
    CHECK(Text(u"<p>a<bdo dir=rtl>b</bdo>c") == "a<8296><8238>b<8236><8297>c");
    CHECK(Text(u"<p>a<bdi>b</bdi>c") == "a<8294>b<8297>c");
    CHECK(Text(u"<p>a<span style='direction:rtl;unicode-bidi:embed'>b</span>c") ==
          "a<8235>b<8236>c");
    CHECK(Text(u"<p dir=rtl>a<b>b</b>") == "ab");
}

TEST_CASE("page text: a page in visual order goes from left to right, whatever its elements say") {
    PageSample page(u"<p dir=rtl>a<span dir=rtl>b</span>c");
    page.tree.SetVisualOrder();
    CHECK(FirstText(page) == "<8237>abc<8236>");
    const std::string start = "<!DOCTYPE html><meta charset=";
    CHECK(ReadHtmlFile(start + "iso-8859-8>\xE0", 0, 1252).tree.IsVisualOrder());
    CHECK(ReadHtmlFile(start + "visual>\xE0", 0, 1252).tree.IsVisualOrder());
    CHECK_FALSE(ReadHtmlFile(start + "iso-8859-8-i>\xE0", 0, 1252).tree.IsVisualOrder());
    CHECK_FALSE(ReadHtmlFile(start + "windows-1255>\xE0", 0, 1252).tree.IsVisualOrder());
}

TEST_CASE("page text: generated text") {
    CHECK(Text(u"<style>i::before{content:'('attr(title)': '}i:after{content:')'}</style>"
               u"<p><i title=T>a</i>b") == "(T: a)b");
    CHECK(Text(u"<p>a <q>b <q>c</q> d</q>") == "a <8220>b <8216>c<8217> d<8221>");
    CHECK(Text(u"<style>p::before{content:'\\201C'}p::after{content:'x';color:red}</style><p>a") ==
          "<8220>ax");
    CHECK(Lines(u"<style>p{margin:0}p::before{content:'1';vertical-align:10px}</style>"
                u"<p>a<p>b") == "0,0 1a|0,26 1b");
}

TEST_CASE("page text: what could not be read on its background is shown so that it can") {
    struct Case {
        const char* body;
        std::optional<Color> color;
    };
    constexpr Color white = 0xFFFFFF, black = 0;
    const Case table[] = {
        {"<p style='color:#808080'>x", 0x808080},
        {"<p style='color:#eee'>x", black},
        {"<p style='background:black'>x", white},
        {"<p style='background:rgba(0,0,0,.3)'>x", {}}, // which is not drawn
        {"<div style='background:#123'><p style='color:#234'>x", white},
        {"<div style='background:#123'><p style='background:white;color:#234'>x", 0x443322},
        {"<p>aa<b style='background:#000;color:#111'>x", white},
        {"<p style='background:#000'>aa<b style='background:#fff;color:#111'><i>x", 0x111111},
        {"<table bgcolor=black><tr><td>x", white},
        {"<table bgcolor=black><tr bgcolor=white><td>x", {}},
        {"<style>p::before{content:'y';background:#000}</style><p>", white},
        {"<ul style='background:#000;color:#000'><li>x", white},
    };
    for (const Case& row : table) {
        CAPTURE(row.body);
        const std::string body = row.body;
        const auto color = LastColor(std::u16string(body.begin(), body.end()));
        if (row.color == white)
            CHECK(IsReadable(color.value_or(black), black));
        else
            CHECK(color == row.color);
    }
    // A colour stays one, lighter than it was.
    const Color link = LastColor(u"<p style='background:#000;color:#00c'>x").value_or(black);
    CHECK(IsReadable(link, black));
    CHECK((link >> 16) > (link & 0xFF));
}

TEST_CASE("page text: addresses and paths break as in browsers") {
    CHECK(Text(u"/usr/lib and/or w.5 a|b 3,5") == "/<8288>usr/<8288>lib and/<8288>or w.<8288>5 "
                                                  "a|<8288>b 3,5");
    CHECK(Text(u"x?y 3-4 -5 a-b what\u2026now") ==
          "x?<8203>y 3-<8203>4 -5 a-b what<8230><8203>now");
    CHECK(Text(u"<pre>a/b</pre>") == "a/b");
    CHECK(Lines(u"<p style='margin:0'>aa /usr/lib b", 64) == "0,0 aa|0,16 /?usr/?lib|0,32 b");
}
