// First lines of blocks, which may have a style of their own.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& style, const std::u16string& body, double width = 80) {
    return PageSample(u"<style>p{margin:0}p::first-line{" + style + u"}</style>" + body)
        .Lines(width);
}
} // namespace

TEST_CASE("first line: it breaks by its own style, and what follows by the block's") {
    // 16 pixels wide, 32 high.
    CHECK(Lines(u"font-size:32px", u"<p>one two three four") == "0,0 one|0,32 two three|0,48 four");
    CHECK(Lines(u"letter-spacing:8px", u"<p>one two three") == "0,0 one|0,16 two three");
    CHECK(Lines(u"color:red", u"<p>one two three") == "0,0 one two|0,16 three");
}

TEST_CASE("first line: elements in it keep what is their own") {
    PageSample page(u"<style>p::first-line{font-weight:700;color:#ff0000}</style>"
                    u"<p>one <i style='color:#0000ff'>two</i> three");
    const PageBoxId lines = page.boxes.FirstChild(page.boxes.FirstChild(1));
    const LinesText text = page.text.TextOf(lines);
    REQUIRE(text.content->firstLine);
    CHECK(text.content->firstLine->text == text.content->text.text);
    const auto& runs = text.content->firstLine->styles;
    REQUIRE(runs.size() == 3);
    const auto style = [&](std::size_t run) {
        return static_cast<const NoneStyle&>(*runs[run].style).Style();
    };
    CHECK(style(0).font.bold);
    CHECK(style(0).color == 0x0000FF);
    CHECK(style(1).font.bold);
    CHECK(style(1).font.italic);
    CHECK(style(1).color == 0xFF0000);
}

TEST_CASE("first line: capitals in it are those of the same units") {
    CHECK(Lines(u"text-transform:uppercase", u"<p>one two three") == "0,0 one two|0,16 three");
    PageSample page(u"<style>p::first-line{text-transform:uppercase}</style><p>one two three");
    const PageBoxId lines = page.boxes.FirstChild(page.boxes.FirstChild(1));
    CHECK(page.text.TextOf(lines).content->firstLine->text == u"ONE TWO THREE");
}

TEST_CASE("first line: only the first of a block") {
    CHECK(Lines(u"letter-spacing:8px", u"<p>one two<br>one two<p>one two") ==
          "0,0 one|0,16 two/|0,32 one two|0,48 one|0,64 two");
    CHECK(Lines(u"letter-spacing:8px", u"<p>one two <img style='float:left'>three") ==
          "0,0 one|24,16 two|24,32 three");
}
