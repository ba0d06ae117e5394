// Boxes of a page, and the text of its lines.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
// What is in the body.
std::string Boxes(const std::u16string& body) {
    std::string all = PageSample(body).Boxes();
    constexpr std::string_view around = "Block(Block";
    if (all.rfind(around, 0) != 0) return all;
    return all.substr(around.size() + 1, all.size() - around.size() - 3);
}
} // namespace

TEST_CASE("page boxes: paragraphs are the boxes of their lines") {
    CHECK(Boxes(u"<p>one<p>two <b>bold</b> three") == "Lines[one] Lines[two bold three]");
    CHECK(Boxes(u"<div><p>one</div><div></div>") == "Block(Lines[one]) Block");
}

TEST_CASE("page boxes: text beside blocks has lines of its own") {
    CHECK(Boxes(u"one <p>two</p> three") == "Lines[one] Lines[two] Lines[three]");
    CHECK(Boxes(u" <p>two</p> \n <p>three</p> ") == "Lines[two] Lines[three]");
}

TEST_CASE("page boxes: a block within an inline element divides it") {
    CHECK(Boxes(u"<i>one<div>two</div>three</i> four") ==
          "Lines[one] Lines[two] Lines[three four]");
}

TEST_CASE("page boxes: white space collapses, also across elements") {
    CHECK(Boxes(u"<p> one \n two<b> three </b> four </p>") == "Lines[one two three four]");
    CHECK(Boxes(u"<p>one <br> two</p>") == "Lines[one/two]");
    CHECK(Boxes(u"<pre>one  two\n three</pre>") == "Lines[one  two/ three]");
    CHECK(Boxes(u"<p style='white-space:pre-line'>a  b \n c</p>") == "Lines[a b/c]");
}

TEST_CASE("page boxes: pictures and blocks in lines are units, floats are not") {
    CHECK(Boxes(u"<p>one<img>two") == "Block(Lines[one#two](Picture))");
    CHECK(Boxes(u"<p>one<svg><text>c</text></svg>two") == "Block(Lines[one#two](Picture))");
    CHECK(Boxes(u"<p>one<span style='display:inline-block'>in</span>two") ==
          "Block(Lines[one#two](Lines[in]))");
    CHECK(Boxes(u"<p>one<span style='float:left'>in</span> two") ==
          "Block(Lines[one two](Lines[in]))");
    CHECK(Boxes(u"<p>one<span style='position:absolute'>in</span>two") ==
          "Block(Lines[onetwo](Lines[in]))");
    CHECK(Boxes(u"<img style='display:block'>") == "Picture");
}

TEST_CASE("page boxes: what is not displayed has none") {
    CHECK(Boxes(u"<p>one<span hidden>two</span><script>three</script>") == "Lines[one]");
    CHECK(Boxes(u"<p style='display:none'>one</p><p>two") == "Lines[two]");
    CHECK(Boxes(u"<p>a<video>no player</video>b<canvas>c</canvas>") == "Lines[ab]");
}

TEST_CASE("page boxes: tables, their rows and cells") {
    CHECK(Boxes(u"<table><caption>c</caption><tr><td>a<td>b</table>") ==
          "Table(Caption(Lines[c]) RowGroup(Row(Cell(Lines[a]) Cell(Lines[b]))))");
    CHECK(Boxes(u"<table><colgroup><col><col></colgroup><tr><td></table>") ==
          "Table(Columns(Column Column) RowGroup(Row(Cell)))");
}

TEST_CASE("page boxes: cells without a table's elements have a row") {
    CHECK(Boxes(u"<div style='display:table'><div style='display:table-cell'>a</div>"
                u"<div style='display:table-cell'>b</div></div>") ==
          "Table(Row(Cell(Lines[a]) Cell(Lines[b])))");
    CHECK(Boxes(u"a <div style='display:table-cell'>b</div> <!-- --><div style='display:table-row'>"
                u"<p style='display:table-cell'>c</div> d") ==
          "Lines[a] Table(Row(Cell(Lines[b])) Row(Cell(Lines[c]))) Lines[d]");
    CHECK(Boxes(u"<table style='display:block'><col><tr><td>b</table>") ==
          "Block(Table(Columns(Column) RowGroup(Row(Cell(Lines[b])))))");
    CHECK(Boxes(u"<table style='display:block'><caption>a</caption><tr><td>b<td>c</table>") ==
          "Block(Table(Caption(Lines[a]) RowGroup(Row(Cell(Lines[b]) Cell(Lines[c])))))");
    CHECK(Boxes(u"<div style='display:table'>a<b>b</b><div style='display:table-row'>c</div>"
                u"</div>") == "Table(Row(Cell(Lines[ab])) Row(Cell(Lines[c])))");
}

TEST_CASE("page boxes: generated text") {
    CHECK(Boxes(u"<style>b::before{content:'<'}b::after{content:'>'}</style><p>a<b>x</b>c") ==
          "Lines[a<x>c]");
    CHECK(Boxes(u"<style>p::before{content:'<'}p::after{content:'>'}</style><p>x<p>") ==
          "Lines[<x>] Lines[<>]");
    CHECK(Boxes(u"<style>div::after{content:'!'}</style><div>a<p>b</div>c") ==
          "Block(Lines[a] Lines[b] Lines[!]) Lines[c]");
}

namespace {
// Each unit of the first lines with where it is in its node: "a0 b1 -".
std::string Origins(const std::u16string& body) {
    PageSample page(body);
    PageBoxId lines = rootPageBox;
    while (page.boxes[lines].kind != PageBoxKind::Lines)
        ++lines;
    const auto content = page.text.TextOf(lines).content;
    std::string shown;
    std::size_t origin = 0;
    for (TextPos at = 0; at < TextPos(content->text.text.size()); ++at) {
        const auto& all = content->origins;
        while (origin + 1 < all.size() && all[origin + 1].start <= at)
            ++origin;
        const char16_t unit = content->text.text[std::size_t(at)];
        shown += unit < 128 ? char(unit) : '?';
        shown += all[origin].node == noHtmlNode
                     ? "-"
                     : std::to_string(int(all[origin].unit) + at - all[origin].start);
    }
    return shown;
}
} // namespace

TEST_CASE("page boxes: where each unit of the text comes from") {
    CHECK(Origins(u"<p>ab") == "a0b1");
    CHECK(Origins(u"<p>  a \n b <i> c</i>") == "a2 3b6 7c1");
    CHECK(Origins(u"<p>a <br> b") == "a0?0b1");
    CHECK(Origins(u"<style>i::before{content:'<'}</style><p>a<i>b</i>") == "a0<-b0");
    CHECK(Origins(u"<p style='text-transform:uppercase'>ab") == "A0B1");
    CHECK(Origins(u"<pre>a\n b") == "a0?1 2b3");
}
