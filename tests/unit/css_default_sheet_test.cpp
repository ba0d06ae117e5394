// The style of HTML without a sheet, and what its old attributes say.
#include "css_samples.h"

#include "formats/css/css_color.h"
#include "formats/css/css_default_sheet.h"

#include <doctest/doctest.h>

namespace {

CssBoxStyle BoxOf(std::u16string_view body) {
    return PageOf(u"", body).Box();
}
CssInheritedStyle TextOf(std::u16string_view body) {
    return PageOf(u"", body).Text();
}
CssLength Px(float pixels) {
    return CssLength::Pixels(pixels);
}

} // namespace

TEST_CASE("css: what elements look like without a sheet") {
    struct Row {
        std::u16string_view html;
        CssDisplay display;
        double fontSize;
        int weight;
        double marginTop;
    };
    const Row rows[] = {
        {u"<p id=x>", CssDisplay::Block, 16, 400, 16},
        {u"<div id=x>", CssDisplay::Block, 16, 400, 0},
        {u"<span id=x>", CssDisplay::Inline, 16, 400, 0},
        {u"<unknown id=x>", CssDisplay::Inline, 16, 400, 0},
        {u"<h1 id=x>", CssDisplay::Block, 32, 700, 21.44},
        {u"<section><h1 id=x>", CssDisplay::Block, 32, 700, 21.44},
        {u"<math><munderover><mo>S</mo><mn id=x>", CssDisplay::Inline, 16 / 1.2, 400, 0},
        {u"<h2 id=x>", CssDisplay::Block, 24, 700, 19.92},
        {u"<h3 id=x>", CssDisplay::Block, 18.72, 700, 18.72},
        {u"<h4 id=x>", CssDisplay::Block, 16, 700, 21.28},
        {u"<h5 id=x>", CssDisplay::Block, 13.28, 700, 22.1776},
        {u"<h6 id=x>", CssDisplay::Block, 10.72, 700, 24.9776},
        {u"<b id=x>", CssDisplay::Inline, 16, 700, 0},
        {u"<pre id=x>", CssDisplay::Block, 13, 400, 13},
        {u"<small id=x>", CssDisplay::Inline, 16 / 1.2, 400, 0},
        {u"<ul><li id=x>", CssDisplay::ListItem, 16, 400, 0},
        {u"<ul id=x>", CssDisplay::Block, 16, 400, 16},
        {u"<ul><li><ul id=x>", CssDisplay::Block, 16, 400, 0},
        {u"<table id=x>", CssDisplay::Table, 16, 400, 0},
        {u"<table><caption id=x>", CssDisplay::TableCaption, 16, 400, 0},
        {u"<table><thead id=x>", CssDisplay::TableHeaderGroup, 16, 400, 0},
        {u"<table><tr id=x>", CssDisplay::TableRow, 16, 400, 0},
        {u"<table><td id=x>", CssDisplay::TableCell, 16, 400, 0},
        {u"<table><th id=x>", CssDisplay::TableCell, 16, 700, 0},
        {u"<table><col id=x>", CssDisplay::TableColumn, 16, 400, 0},
        {u"<blockquote id=x>", CssDisplay::Block, 16, 400, 16},
        {u"<hr id=x>", CssDisplay::Block, 16, 400, 8},
        {u"<style id=x>", CssDisplay::None, 16, 400, 0},
        {u"<script id=x>", CssDisplay::None, 16, 400, 0},
        {u"<p hidden id=x>", CssDisplay::None, 16, 400, 0},
        {u"<noscript id=x>", CssDisplay::Inline, 16, 400, 0},
        {u"<details id=x>", CssDisplay::Block, 16, 400, 0},
    };
    for (const Row& row : rows) {
        const StyledPage page = PageOf(u"", row.html);
        const std::string name = Utf16ToUtf8(row.html);
        REQUIRE_MESSAGE(page.Id(u"x") != noHtmlNode, name);
        CHECK_MESSAGE(page.Box().display == row.display, name);
        if (row.display == CssDisplay::None) continue;
        CHECK_MESSAGE(page.Text().fontSize == doctest::Approx(row.fontSize), name);
        CHECK_MESSAGE(page.Text().fontWeight == row.weight, name);
        CHECK_MESSAGE(page.Box().margin[cssTop].value == doctest::Approx(row.marginTop), name);
    }
    CHECK(StyledPage(u"<body id=x>t").Box().margin[cssLeft] == Px(8));
    CHECK(BoxOf(u"<ul id=x>").padding[cssLeft] == Px(40));
    CHECK(BoxOf(u"<ul id=x dir=rtl>").padding[cssRight] == Px(40));
    CHECK(BoxOf(u"<ul id=x dir=rtl>").padding[cssLeft] == Px(0));
    CHECK(BoxOf(u"<blockquote id=x>").margin[cssLeft] == Px(40));
    CHECK(BoxOf(u"<dl><dd id=x>").margin[cssLeft] == Px(40));
    CHECK(BoxOf(u"<hr id=x>").borderStyle[cssTop] == CssBorderStyle::Inset);
    CHECK(BoxOf(u"<hr id=x>").margin[cssLeft].IsAuto());
    CHECK(TextOf(u"<em id=x>").fontStyle == CssFontStyle::Italic);
    CHECK(TextOf(u"<pre id=x>").whiteSpace == CssWhiteSpace::Pre);
    CHECK(TextOf(u"<a id=x href=y>").decorations == cssUnderline);
    CHECK(TextOf(u"<a id=x href=y>").color == CssColor{0, 0, 238});
    CHECK(TextOf(u"<a id=x name=y>").decorations == cssNoDecoration);
    CHECK(TextOf(u"<center id=x>").textAlign == CssTextAlign::HtmlCenter);
    CHECK(TextOf(u"<table><th id=x>").textAlign == CssTextAlign::Center);
    CHECK(TextOf(u"<table style='text-align:right'><th id=x>").textAlign == CssTextAlign::Right);
    CHECK(BoxOf(u"<table><td id=x>").verticalAlign == CssVerticalAlign::Middle);
    CHECK(BoxOf(u"<sup id=x>").verticalAlign == CssVerticalAlign::Super);
    CHECK(BoxOf(u"<math><msup><mi>x</mi><mn id=x>2").verticalAlign == CssVerticalAlign::Super);
    CHECK(BoxOf(u"<math><msub><mi>x</mi><mn id=x>2").verticalAlign == CssVerticalAlign::Sub);
    CHECK(TextOf(u"<ul><li><ul><li id=x>").listStyleType == CssListStyleType::Circle);
    CHECK(TextOf(u"<ol><li><ul><li><ul><li id=x>").listStyleType == CssListStyleType::Square);
    CHECK(TextOf(u"<ol><li id=x>").listStyleType == CssListStyleType::Decimal);
}

TEST_CASE("css: every rule of the default sheet is understood as a whole") {
    // As many as it has blocks: a slip of the pen would drop one.
    CHECK(DefaultCssSheet().rules.size() == 86);
    CHECK(QuirksCssSheet().rules.size() == 2);
    CHECK(DefaultCssSheet().imports.empty());
}

TEST_CASE("css: in quirks mode a table begins anew") {
    const std::u16string_view body =
        u"<body style='font-size:30px;font-weight:bold'><table><td id=x>t</table>";
    CHECK(StyledPage(body).Text().fontSize == 16);
    CHECK(StyledPage(u"<!DOCTYPE html>" + std::u16string(body)).Text().fontSize == 30);
}

TEST_CASE("css: old attributes of text") {
    using Align = CssTextAlign;
    CHECK(TextOf(u"<p id=x align=center>").textAlign == Align::Center);
    CHECK(TextOf(u"<h1 id=x align=RIGHT>").textAlign == Align::Right);
    CHECK(TextOf(u"<div id=x align=center>").textAlign == Align::HtmlCenter);
    CHECK(TextOf(u"<p id=x align=middle>").textAlign == Align::Start);
    CHECK(TextOf(u"<p id=x align=justify>").textAlign == Align::Justify);
    CHECK(TextOf(u"<span id=x align=center>").textAlign == Align::Start);
    CHECK(TextOf(u"<font id=x color=red>").color == CssColor{255, 0, 0});
    CHECK(TextOf(u"<font id=x color='#0f0'>").color == CssColor{0, 255, 0});
    CHECK(TextOf(u"<font id=x color=chucknorris>").color == CssColor{0xC0, 0, 0});
    CHECK(TextOf(u"<font id=x size=5>").fontSize == 24);
    CHECK(TextOf(u"<font id=x size='+1'>").fontSize == 18);
    CHECK(TextOf(u"<font id=x size=-2>").fontSize == 10);
    CHECK(TextOf(u"<font id=x size=99>").fontSize == 48);
    CHECK(TextOf(u"<font id=x size=big>").fontSize == 16);
    CHECK(TextOf(u"<font id=x size='++1'>").fontSize == 16);
    CHECK(TextOf(u"<font id=x size='+ 1'>").fontSize == 16);
    const StyledPage face = PageOf(u"", u"<font id=x face='Arial, serif'>");
    CHECK(face.styles.Families(face.Text().families).size() == 2);
    CHECK(PageOf(u"font{color:blue}", u"<font id=x color=red>").Text().color ==
          CssColor{0, 0, 255});
    CHECK(TextOf(u"<ol id=x type=a>").listStyleType == CssListStyleType::LowerAlpha);
    CHECK(TextOf(u"<ol id=x type=A>").listStyleType == CssListStyleType::UpperAlpha);
    CHECK(TextOf(u"<ol><li id=x type=I>").listStyleType == CssListStyleType::UpperRoman);
    CHECK(TextOf(u"<ul id=x type=SQUARE>").listStyleType == CssListStyleType::Square);
    CHECK(BoxOf(u"<br id=x clear=all>").clear == CssClear::Both);
    CHECK(BoxOf(u"<br id=x clear=left>").clear == CssClear::Left);
}

TEST_CASE("css: old attributes of body, rules and pictures") {
    const StyledPage page(u"<body id=x text=red bgcolor=blue link=lime leftmargin=3 marginheight=4>"
                          u"<a id=y href=z>t</a><a id=z>t</a>");
    CHECK(page.Text().color == CssColor{255, 0, 0});
    CHECK(page.Box().background == CssColor{0, 0, 255});
    CHECK(page.Box().margin[cssLeft] == Px(3));
    CHECK(page.Box().margin[cssRight] == Px(3)); // as browsers, of one side for both
    CHECK(page.Box().margin[cssBottom] == Px(4));
    CHECK(page.Text(u"y").color == CssColor{0, 255, 0});
    CHECK(page.Text(u"z").color == CssColor{255, 0, 0});
    CHECK(BoxOf(u"<hr id=x width=50%>").width == CssLength::Percent(50));
    CHECK(BoxOf(u"<hr id=x align=left>").margin[cssLeft] == Px(0));
    CHECK(BoxOf(u"<hr id=x align=left>").margin[cssRight].IsAuto());
    CHECK(BoxOf(u"<hr id=x size=5>").height == Px(3));
    CHECK(BoxOf(u"<hr id=x size=1>").borderWidth[cssBottom] == 0);
    CHECK(BoxOf(u"<hr id=x size=8 noshade>").borderWidth[cssTop] == 4);
    CHECK(BoxOf(u"<hr id=x noshade>").borderStyle[cssTop] == CssBorderStyle::Solid);
    CHECK(BoxOf(u"<hr id=x color=red>").borderColor[cssTop] == CssColor{255, 0, 0});
    CHECK(BoxOf(u"<hr id=x>").borderColor[cssTop] == CssColor{128, 128, 128});
    CHECK(BoxOf(u"<img id=x width=10 height='20%'>").width == Px(10));
    CHECK(BoxOf(u"<img id=x width=10 height='20%'>").height == CssLength::Percent(20));
    CHECK(BoxOf(u"<img id=x width=x>").width.IsAuto());
    CHECK(BoxOf(u"<img id=x align=left>").floats == CssFloat::Left);
    CHECK(BoxOf(u"<img id=x align=absmiddle>").verticalAlign == CssVerticalAlign::Middle);
    CHECK(BoxOf(u"<img id=x border=2>").borderWidth[cssLeft] == 2);
    CHECK(BoxOf(u"<img id=x hspace=5>").margin[cssRight] == Px(5));
    CHECK(BoxOf(u"<img id=x vspace=5>").margin[cssTop] == Px(5));
}

TEST_CASE("css: old attributes of tables") {
    const StyledPage page =
        PageOf(u"", u"<table id=t border=3 cellpadding=4 cellspacing=5 width='50%' align=center "
                    u"bgcolor=red><tr id=r valign=top align=right><td id=x nowrap width=7 height=8>"
                    u"<table><td id=n>inner</table></table>");
    CHECK(page.Box(u"t").borderWidth[cssTop] == 3);
    CHECK(page.Box(u"t").borderStyle[cssTop] == CssBorderStyle::Outset);
    CHECK(page.Text(u"t").borderSpacingX == 5);
    CHECK(page.Box(u"t").width == CssLength::Percent(50));
    CHECK(page.Box(u"t").margin[cssLeft].IsAuto());
    CHECK(page.Box(u"t").background == CssColor{255, 0, 0});
    CHECK(page.Box().padding[cssLeft] == Px(4));
    CHECK(page.Box().borderStyle[cssTop] == CssBorderStyle::Inset);
    CHECK(page.Box().borderWidth[cssTop] == 1);
    CHECK(page.Box().verticalAlign == CssVerticalAlign::Top);
    CHECK(page.Text().textAlign == CssTextAlign::HtmlRight);
    CHECK(page.Text().whiteSpace == CssWhiteSpace::NoWrap);
    CHECK(page.Box().width == Px(7));
    CHECK(page.Box().height == Px(8));
    CHECK(page.Box(u"n").padding[cssLeft] == Px(1));
    CHECK(page.Box(u"n").borderWidth[cssTop] == 0);
    CHECK(BoxOf(u"<table id=x align=right>").floats == CssFloat::Right);
    CHECK(BoxOf(u"<table id=x border=0>").borderWidth[cssTop] == 0);
    CHECK(BoxOf(u"<table id=x border>").borderWidth[cssTop] == 1);
    CHECK(BoxOf(u"<table id=x width=0>").width.IsAuto());
    CHECK(BoxOf(u"<table><td id=x width=0>").width.IsAuto());
    CHECK(TextOf(u"<table><caption id=x align=bottom>").captionSide == CssCaptionSide::Bottom);
}

TEST_CASE("css: directions") {
    const auto rightToLeft = [](std::u16string_view body) {
        return TextOf(body).direction == CssDirection::RightToLeft;
    };
    CHECK(rightToLeft(u"<p id=x dir=rtl>a"));
    CHECK(rightToLeft(u"<p id=x dir=RTL>a"));
    CHECK(rightToLeft(u"<p dir=rtl><b id=x>a"));
    CHECK_FALSE(rightToLeft(u"<p dir=rtl><b id=x dir=ltr>a"));
    CHECK(rightToLeft(u"<p id=x dir=auto>1 <b>\u05D0</b> a"));
    CHECK_FALSE(rightToLeft(u"<p id=x dir=auto>1 <bdi>\u05D0</bdi> a"));
    CHECK(rightToLeft(u"<bdi id=x>\u05D0 a</bdi>"));
    CHECK_FALSE(rightToLeft(u"<p dir=rtl><b id=x dir=auto>12"));
    CHECK(BoxOf(u"<bdo id=x dir=rtl>a").unicodeBidi == CssUnicodeBidi::IsolateOverride);
    CHECK(BoxOf(u"<span id=x dir=rtl>a").unicodeBidi == CssUnicodeBidi::Isolate);
}

TEST_CASE("css: HTML's own colours") {
    struct Row {
        std::u16string_view text;
        CssColor color;
    };
    const Row rows[] = {{u"#ff8000", {255, 128, 0}},
                        {u"ff8000", {255, 128, 0}},
                        {u" Red ", {255, 0, 0}},
                        {u"#f80", {255, 136, 0}},
                        {u"f80", {15, 8, 0}},
                        {u"x", {0, 0, 0}},
                        {u"#", {0, 0, 0}},
                        {u"#1234567890ab", {0x12, 0x56, 0x90}},
                        {u"123456789123456789123456789", {0x23, 0x23, 0x23}}};
    for (const Row& row : rows)
        CHECK_MESSAGE(HtmlColor(row.text) == row.color, Utf16ToUtf8(row.text));
    CHECK_FALSE(HtmlColor(u""));
    CHECK_FALSE(HtmlColor(u"transparent"));
}
