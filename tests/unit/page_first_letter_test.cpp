// First letters of blocks, in lines and as drop caps.
#include "tests/unit/page_sample.h"
#include "view/page/first_letter.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& style, const std::u16string& body, double width = 400) {
    return PageSample(u"<style>p{margin:0}p:first-letter{" + style + u"}</style>" + body)
        .Lines(width);
}

std::string Letter(std::u16string_view text) {
    const LetterSpan span = FindFirstLetter(text);
    return std::to_string(span.start) + "-" + std::to_string(span.end);
}
} // namespace

TEST_CASE("first letter: it is found with the punctuation around it") {
    CHECK(Letter(u"Once") == "0-1");
    CHECK(Letter(u"\n \u201COnce") == "2-4");
    CHECK(Letter(u"I. One") == "0-2");
    CHECK(Letter(u"(a) one") == "0-3");
    CHECK(Letter(u"A\u0301b") == "0-2");
    CHECK(Letter(u"\U0001D400b") == "0-2");
    CHECK(Letter(u"... and") == "0-3");
    CHECK(Letter(u" \n") == "2-2");
    CHECK(Letter(u"") == "0-0");
}

TEST_CASE("first letter: a floating one stands beside the lines") {
    // 32 pixels high, 16 wide.
    const std::u16string drop = u"float:left;font-size:32px";
    CHECK(Lines(drop, u"<p>Once upon a time", 96) == "16,0 nce upon a|16,16 time|0,0 O");
    CHECK(Lines(drop + u";padding-right:4px", u"<p>Once upon a time", 96) ==
          "20,0 nce upon|20,16 a time|0,0 O");
    CHECK(Lines(drop, u"<p>\u201COnce", 96) == "32,0 nce|0,0 ?O");
    CHECK(Lines(drop, u"<p><b>One</b> two", 96) == "16,0 ne two|0,0 O");
    CHECK(Lines(drop, u"<p>One<p>Two", 96) == "16,0 ne|32,16 wo|0,0 O|16,16 T");
}

TEST_CASE("first letter: one in its line has its own size") {
    CHECK(Lines(u"font-size:32px", u"<p>One<p>Two") == "0,0 One|0,32 Two");
    PageSample page(u"<style>p:first-letter{font-weight:bold;color:#ff0000}</style><p>One");
    const LinesText text = page.text.TextOf(page.boxes.FirstChild(page.boxes.FirstChild(1)));
    const auto& runs = text.content->text.runs;
    REQUIRE(runs.size() == 2);
    CHECK(runs[1].start == 1);
    const TextStyle style = static_cast<const NoneStyle&>(*runs[0].style).Style();
    CHECK(style.font.bold);
    CHECK(style.color == 0x0000FF);
    CHECK(text.content->text.text == u"One");
    CHECK(text.content->origins.size() == 1); // each unit still is that of the page
}

TEST_CASE("first letter: only a text's at the block's start") {
    const std::u16string drop = u"float:left;font-size:32px";
    CHECK(Lines(drop, u"<p><img>One") == "0,0 #One");
    CHECK(Lines(drop, u"<p><br>One") == "0,0 /|0,16 One");
    CHECK(Lines(drop, u"<p></p>One") == "0,0 One");
    CHECK(Lines(drop, u"<p><i style='float:right'>x</i>One") == "16,0 ne|392,0 x|0,0 O");
    CHECK(Lines(u"", u"<span>One</span>") == "0,0 One");
}
