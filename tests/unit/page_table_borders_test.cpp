// Borders of tables of a page, and what else their styles say.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
std::string Lines(const std::u16string& body, double width = 400) {
    return PageSample(body).Lines(width);
}

// The borders of each cell, in CSS pixels: top, right, bottom, left.
std::string Borders(const std::u16string& body) {
    PageSample page(body);
    std::string shown;
    for (PageBoxId id = rootPageBox; id < page.boxes.End(); ++id) {
        const PageBox& box = page.boxes[id];
        if (box.kind != PageBoxKind::Cell && box.kind != PageBoxKind::Table) continue;
        shown += shown.empty() ? "" : " ";
        for (const float width : box.style->borderWidth)
            shown += std::to_string(int(width));
    }
    return shown;
}

CssColor ColorOf(const std::u16string& body, PageBoxKind kind, CssSide side) {
    PageSample page(body);
    for (PageBoxId id = rootPageBox; id < page.boxes.End(); ++id)
        if (page.boxes[id].kind == kind) return page.boxes[id].style->borderColor[side];
    return cssTransparent;
}

const std::u16string collapse = u"<style>table{border-collapse:collapse}td{padding:0}</style>";
const CssColor red{255, 0, 0, 255}, green{0, 128, 0, 255};
} // namespace

TEST_CASE("page table: borders that meet are drawn once") {
    CHECK(Borders(collapse + u"<style>td{border:4px solid}</style><table><tr><td>a<td>b</table>") ==
          "2222 2222 2222");
    CHECK(Borders(collapse + u"<style>td{border:1px solid}</style><table><tr><td>a<td>b</table>") ==
          "0110 1001 1001");
    CHECK(Borders(collapse + u"<style>td{border:3px solid}</style><table><tr><td>a<tr><td>b") ==
          "1221 2112 2112");
    CHECK(Borders(collapse + u"<table border=1><tr><td>a</table>") == "0110 1001");
    CHECK(Borders(u"<style>td{border:4px solid}</style><table><tr><td>a<td>b</table>") ==
          "0000 4444 4444");
}

TEST_CASE("page table: lines within it and around it by old attributes") {
    const std::u16string rows = u"><tr><td>a<td>b<tr><td>c<td>d</table>";
    const auto borders = [&](const std::u16string& attributes) {
        return Borders(u"<table " + attributes + rows);
    };
    CHECK(borders(u"rules=all") == "0000 0000 0001 1000 1001");
    CHECK(borders(u"rules=cols") == "0000 0000 0001 0000 0001");
    CHECK(borders(u"rules=rows") == "0000 0000 0000 1000 1000");
    CHECK(borders(u"rules=none border=1") == borders(u"frame=box rules=none"));
    CHECK(borders(u"frame=void border=2") == "0000 1111 1111 1111 1111");
    CHECK(borders(u"frame=hsides") == "1010 0000 0000 0000 0000");
    CHECK(borders(u"frame=vsides") == "0101 0000 0000 0000 0000");
    CHECK(borders(u"frame=above") == "1000 0000 0000 0000 0000");
    CHECK(borders(u"frame=rhs") == "0100 0000 0000 0000 0000");
    CHECK(borders(u"frame=below") == "0010 0000 0000 0000 0000");
    CHECK(borders(u"frame=lhs") == "0001 0000 0000 0000 0000");
    CHECK(Borders(u"<table rules=groups><tbody><tr><td>a<tbody><tr><td>b<tr><td>c</table>") ==
          "0000 0000 1000 0000");
}

TEST_CASE("page table: what moves a table moves no text in it") {
    CHECK(Lines(u"<center><table cellpadding=0 cellspacing=0 width=80><td>a</table></center>",
                100) == "10,0 a");
    CHECK(Lines(u"<table cellpadding=0 cellspacing=0 width=80><td align=center>a</table>", 100) ==
          "36,0 a");
}

TEST_CASE("page table: borders that meet stand where columns from right to left have them") {
    const std::u16string first = u"<style>.a{border-left:4px solid}</style>";
    CHECK(Borders(collapse + first + u"<table dir=rtl><tr><td class=a>a<td>b</table>") ==
          "0000 0002 0200");
}

TEST_CASE("page table: collapsed borders take no more room than one") {
    CHECK(Lines(collapse + u"<style>td{border:4px solid}</style>"
                           u"<table><tr><td>aa<td>b<tr><td>c<td>d</table>x") ==
          "4,4 aa|24,4 b|4,24 c|24,24 d|0,44 x");
    CHECK(Lines(collapse + u"<table cellspacing=9><tr><td>a<td>b</table>") == "0,0 a|8,0 b");
}

TEST_CASE("page table: the wider border wins, then the style, then whose it is") {
    const auto left = [](const std::u16string& one, const std::u16string& other) {
        return ColorOf(collapse + u"<table><tr><td style='border-right:" + one +
                           u"'>a<td style='border-left:" + other + u"'>b</table>",
                       PageBoxKind::Cell, cssRight);
    };
    CHECK(left(u"4px solid red", u"6px dotted green") == green);
    CHECK(left(u"6px dotted red", u"4px solid green") == red);
    CHECK(left(u"4px dashed red", u"4px solid green") == green);
    CHECK(left(u"4px double red", u"4px solid green") == red);
    CHECK(left(u"4px solid red", u"4px solid green") == red);
    CHECK(left(u"none", u"4px solid green") == green);
    CHECK(left(u"hidden", u"4px solid green") == CssColor{});
    CHECK(ColorOf(collapse + u"<table style='border:4px solid red'><tr style='border:4px solid "
                             u"green'><td>a</table>",
                  PageBoxKind::Cell, cssTop) == green);
    CHECK(ColorOf(collapse + u"<table style='border:5px solid red'><tr><td style='border:4px solid "
                             u"green'>a</table>",
                  PageBoxKind::Cell, cssTop) == red);
    CHECK(ColorOf(collapse + u"<table><col style='border-left:4px solid red'><tr><td>a</table>",
                  PageBoxKind::Cell, cssLeft) == red);
    CHECK(ColorOf(collapse + u"<table><tbody style='border-top:4px solid red'><tr><td>a</table>",
                  PageBoxKind::Cell, cssTop) == red);
}

TEST_CASE("page table: cells over several rows and columns have borders around them alone") {
    CHECK(Borders(collapse + u"<style>td{border:2px solid}</style>"
                             u"<table><tr><td colspan=2>a<td>b<tr><td>c<td>d<td>e</table>") ==
          "1111 1111 1111 1111 1111 1111");
    CHECK(Borders(collapse + u"<style>tr{border-bottom:2px solid}</style>"
                             u"<table><tr><td rowspan=2>a<td>b<tr><td>c</table>") ==
          "0010 0010 0010 1010");
    // Beside edges of several widths a cell leaves each to the cell beyond.
    CHECK(Borders(collapse + u"<style>td{border:2px solid}</style><table><tr><td>a"
                             u"<td style='border:6px solid'>b<tr><td colspan=2>c</table>") ==
          "3311 1321 3363 0111");
}

TEST_CASE("page table: spacing between cells") {
    const std::u16string cells = u"<tr><td style='padding:0'>a<td style='padding:0'>b"
                                 u"<tr><td style='padding:0'>c</table>";
    CHECK(Lines(u"<table style='border-spacing:5px 10px'>" + cells) == "5,10 a|18,10 b|5,36 c");
    CHECK(Lines(u"<table cellspacing=0>" + cells) == "0,0 a|8,0 b|0,16 c");
    CHECK(Lines(u"<table cellspacing=4>" + cells) == "4,4 a|16,4 b|4,24 c");
    // A cell over two rows has the one between them.
    CHECK(Lines(u"<table cellpadding=0 style='border-spacing:0 10px'><tr><td rowspan=2>a<br>b<br>c"
                u"<td>x<tr><td>y</table>z") == "0,10 a/|0,26 b/|0,42 c|8,10 x|8,39 y|0,68 z");
}

TEST_CASE("page table: as wide as what is as wide as its text does not make that narrower") {
    CHECK(Lines(u"<div style='float:left'><table cellpadding=0 cellspacing=0 width=100%>"
                u"<tr><td>aa bb</table></div>c") == "40,0 c|0,0 aa bb");
}

TEST_CASE("page table: is as wide as the longest word of its caption") {
    CHECK(Lines(u"<table cellspacing=0><caption>ccc cccccc</caption><tr><td style=padding:0>a") ==
          "12,0 ccc|0,16 cccccc|0,32 a");
}

TEST_CASE("page: a fraction has its parts one above the other") {
    CHECK(Lines(u"<math><mfrac><mn>1</mn><mn>22</mn></mfrac></math>") == "0,0 #|5,0 1|1,17 22");
}

TEST_CASE("page: the index of a root stands before it, and a formula of its own in the middle") {
    CHECK(Lines(u"<math><mroot><mn>8</mn><mn>3</mn></mroot></math>") == "0,0 #|7,0 ?8|0,0 3");
    CHECK(Lines(u"<p style='margin:0'>a<math display=block><mn>1</mn></math>b") ==
          "0,0 a|196,16 1|0,32 b");
}

TEST_CASE("page table: captions above and below, with their margins") {
    const std::u16string rows = u"<tr><td style='padding:0'>aaaa</table>";
    CHECK(Lines(u"<table cellspacing=0><caption>c</caption>" + rows) == "12,0 c|0,16 aaaa");
    CHECK(Lines(u"<table cellspacing=0><caption align=bottom>c</caption>" + rows) ==
          "0,0 aaaa|12,16 c");
    CHECK(Lines(u"<table cellspacing=0 style='caption-side:bottom'><caption style='margin-top:5px'>"
                u"c</caption>" +
                rows) == "0,0 aaaa|12,21 c");
}

TEST_CASE("page table: rows that are collapsed are gone") {
    CHECK(Lines(u"<table cellspacing=0 cellpadding=0><tr><td>a<tr style='visibility:collapse'><td>b"
                u"<tr><td>c</table>") == "0,0 a|0,16 c");
}

TEST_CASE("page table: old attributes") {
    CHECK(Lines(u"<table cellspacing=0 cellpadding=5><tr><td>a<td>b</table>") == "5,5 a|23,5 b");
    const std::u16string start = u"<table cellspacing=0 cellpadding=0>", tall = u"<td>a<br>b<br>c";
    CHECK(Lines(start + u"<tr valign=top><td>x" + tall) == "0,0 x|8,0 a/|8,16 b/|8,32 c");
    CHECK(Lines(start + u"<tr><td valign=bottom>x" + tall) == "0,32 x|8,0 a/|8,16 b/|8,32 c");
    CHECK(Lines(start + u"<tr><td>x" + tall) == "0,16 x|8,0 a/|8,16 b/|8,32 c");
    CHECK(Lines(start + u"<tr><td nowrap>aa bb<td>cc dd</table>", 64) ==
          "0,8 aa bb|40,0 cc|40,16 dd");
    CHECK(Lines(u"<table align=right cellspacing=0 cellpadding=0><tr><td>aa</table>bb", 100) ==
          "0,0 bb|84,0 aa");
    CHECK(Lines(u"<table align=center cellspacing=0 cellpadding=0><tr><td>aa</table>bb", 100) ==
          "42,0 aa|0,16 bb");
    CHECK(Lines(start + u"<tr><td width=50 align=right>a<td height=30>b</table>") ==
          "42,7 a|50,7 b");
}
