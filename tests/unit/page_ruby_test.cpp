// Words with annotations above them. Letters of annotations are half as large: 4 by 8 pixels.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& body, double width = 400) {
    return PageSample(u"<style>p{margin:0}</style>" + body).Lines(width);
}
std::string Boxes(const std::u16string& body) {
    return PageSample(body).Boxes();
}
} // namespace

TEST_CASE("ruby: an annotation stands above the middle of its base") {
    CHECK(Lines(u"<p>a <ruby>word<rt>xyz</ruby> b<p>c") == "0,0 a # b|16,8 word|26,0 xyz|0,24 c");
    CHECK(Lines(u"<ruby>a<rt>wide</ruby>") == "0,0 #|4,8 a|0,0 wide");
}

TEST_CASE("ruby: each base has its own annotation") {
    CHECK(Lines(u"<ruby>a<rt>x</rt>b<rt>y</rt></ruby>") == "0,0 #?#|0,8 a|2,0 x|8,8 b|10,0 y");
    CHECK(Lines(u"<ruby>a<rp>(</rp><rt>x</rt><rp>)</rp>b</ruby>") == "0,0 #?b|0,8 a|2,0 x");
    // In older pages the annotations of several bases stand after the last of them.
    CHECK(Lines(u"<ruby><rb>a</rb><rb>b</rb><rt>x</rt><rt>y</rt></ruby>") == "0,0 #|0,8 ab|4,0 xy");
}

TEST_CASE("ruby: a line is only higher where its annotations need more than it has") {
    CHECK(Lines(u"<p style='line-height:32px'><ruby>a<rt>x</ruby><p>c") ==
          "0,0 #|0,0 a|2,0 x|0,32 c");
}

TEST_CASE("ruby: lines break between words, and not before a full stop") {
    const std::u16string word = u"<ruby>\u6F22<rt>x</rt></ruby>";
    // Ideographs are as wide as high.
    CHECK(Lines(word + word + u"\u3002", 40) == "0,0 #|0,24 #??|0,8 ?|6,0 x|0,32 ?|6,24 x");
    CHECK(Lines(u"aa <ruby>bb<rt>x</ruby>, cc", 40) == "0,0 aa|0,16 #?,|0,40 cc|0,24 bb|6,16 x");
}

TEST_CASE("ruby: what is no word stays in the line") {
    CHECK(Lines(u"<ruby>a</ruby>") == "0,0 a");
    CHECK(Lines(u"<ruby>a<br>b<rt>x</ruby>") == "0,0 a/|0,16 bx");
    CHECK(Lines(u"a<rt>x</rt>") == "0,0 ax");
    CHECK(Boxes(u"<ruby>" + std::u16string(300, u'a') + u"<rt>x</ruby>").find("Ruby") ==
          std::string::npos);
    CHECK(Boxes(u"<ruby>a<ruby>b<rt>x</ruby><rt>y</ruby>") ==
          "Block(Block(Lines[a?#?y](Ruby(Lines[b] Lines[x]))))");
}

TEST_CASE("ruby: its text is found in its place") {
    PageSample page(u"<p>a <ruby>word<rt>xyz</ruby> b");
    CHECK(page.Boxes() == "Block(Block(Block(Lines[a # b](Ruby(Lines[word] Lines[xyz])))))");
    for (HtmlNodeId id = page.tree.Next(htmlDocumentNode); id; id = page.tree.Next(id))
        if (page.tree[id].IsText() && page.tree[id].Text() == u"xyz")
            CHECK(page.boxes[page.boxes.BoxOf(id)].first == page.tree[id].parent);
}

TEST_CASE("ruby: a box in text that does not wrap stands in its own place") {
    CHECK(Lines(u"<p>x <nobr>ab<span style='display:inline-block;width:40px'>c</span></nobr>d") ==
          "0,0 x ab?#d|32,0 c");
}
