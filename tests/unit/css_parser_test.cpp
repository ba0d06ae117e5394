// Rules and declarations with their errors, media and imports: which rules a sheet has.
#include "common/utf.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_media.h"
#include "formats/css/css_page_sheets.h"
#include "formats/css/css_parser.h"
#include "formats/html/html_reader.h"

#include <doctest/doctest.h>

namespace {

std::string NameOf(CssProperty property) {
    switch (property) {
    case CssProperty::TextColor: return "color";
    case CssProperty::MarginTop: return "top";
    case CssProperty::Display: return "display";
    case CssProperty::FontWeight: return "weight";
    case CssProperty::Custom: return "variable";
    case CssProperty::WithVariables: return "later";
    default: return "other";
    }
}

// Each rule as the type of its first selector and its properties.
std::string Rules(const CssSheet& sheet) {
    std::string all;
    for (const CssRule& rule : sheet.rules) {
        const CssSelector& selector = sheet.selectors[rule.selectors];
        const CssCompound& last = sheet.compounds[selector.compounds + selector.compoundCount - 1u];
        all += (all.empty() ? "" : " ") + Utf16ToUtf8(sheet.texts[last.type]) + "{";
        for (const CssDeclaration& declaration : DeclarationsOf(sheet, rule))
            all += NameOf(declaration.property) + (declaration.important ? "!" : "") + ";";
        all += "}";
    }
    return all;
}

struct Row {
    std::u16string_view css;
    std::string_view rules;
};

} // namespace

TEST_CASE("css: rules are read, and what is wrong is left out") {
    const Row rows[] = {
        {u"", ""},
        {u"p{color:red}", "p{color;}"},
        {u" p { color : red ; margin-top : 1px } ", "p{color;top;}"},
        {u"p{color:red", "p{color;}"},
        {u"p{color:red;;;margin-top:0;}", "p{color;top;}"},
        {u"p{color:red!important;margin-top:0 ! IMPORTANT}", "p{color!;top!;}"},
        {u"p{color:red important}", ""},
        {u"p{color:}", ""},
        {u"p{color red;margin-top:0}", "p{top;}"},
        {u"p{color;margin-top:0}", "p{top;}"},
        {u"p{colour:red;margin-top:0}", "p{top;}"},
        {u"p{color:red blue;margin-top:0}", "p{top;}"},
        {u"p{color:red{;}margin-top:0}", "p{top;}"},
        {u"p{color:{x:y;z};margin-top:0}", "p{top;}"},
        {u"p{color:(;margin-top:0}", ""},
        {u"p{color:';margin-top:0\n;margin-top:1px}", "p{top;}"},
        {u"p{:color:red;margin-top:0}", "p{top;}"},
        {u"p{@x y;margin-top:0}", "p{top;}"},
        {u"p{@x{a:b}margin-top:0}", "p{top;}"},
        {u"p{b{color:red}margin-top:0}", "p{top;}"},
        {u"p{*color:red;_color:red;margin-top:0}", "p{top;}"},
        {u"p{--x:{a};margin-top:0}", "p{top;}"},
        {u"p{color:var(--x);--x:1;margin-top:0}", "p{later;variable;top;}"},
        {u"p{COLOR:RED}", "p{color;}"},
        {u"p{\\63olor:red}", "p{color;}"},
        {u"p,b{color:red}", "p{color;}"},
        {u"p,{color:red}b{color:red}", "b{color;}"},
        {u"p,1{color:red}b{color:red}", "b{color;}"},
        {u"{color:red}b{color:red}", "b{color;}"},
        {u"p;b{color:red}i{color:red}", "i{color;}"},
        {u"p{}b{color:red}", "b{color;}"},
        {u"} b{color:red} i{color:red}", "i{color;}"},
        {u"<!-- p{color:red} --> b{color:red}", "p{color;} b{color;}"},
        {u"/*<![CDATA[ x */ <!-- p{color:red} // --> /* ]]>*/", "p{color;}"},
        {u"// p{color:red} b{color:red}", "b{color;}"},
        {u"@font-face{color:red}b{color:red}", "b{color;}"},
        {u"@page :first{color:red}b{color:red}", "b{color;}"},
        {u"@x;b{color:red}", "b{color;}"},
        {u"@x (;b{color:red}", ""},
        {u"@x y{z{}[}]}b{color:red}", "b{color;}"},
        {u"@charset \"utf-8\";b{color:red}", "b{color;}"},
        {u"@media screen{p{color:red}}b{color:red}", "p{color;} b{color;}"},
        {u"@media print{p{color:red}}b{color:red}", "b{color;}"},
        {u"@media{p{color:red}}", "p{color;}"},
        {u"@media screen{p{color:red} } } b{color:red} i{color:red}", "p{color;} i{color;}"},
        {u"@media screen{@media print{p{color:red}}b{color:red}}", "b{color;}"},
        {u"@media screen{p;}b{color:red}", "b{color;}"},
        {u"@media screen;b{color:red}", "b{color;}"},
        {u"@media print{p;}b{color:red}", "b{color;}"}, // what is cut off ends with the block
        {u"@media print{@x}b{color:red}", "b{color;}"},
        {u"@media print{@media print{p}i{color:red}}b{color:red}", "b{color;}"},
        {u"@media screen{@media print{p}i{color:red}}b{color:red}", "i{color;} b{color;}"},
        {u"@media screen{p{color:red", "p{color;}"},
        {u"@supports (display:grid){p{color:red}}b{color:red}", "p{color;} b{color;}"},
    };
    for (const Row& row : rows)
        CHECK_MESSAGE(Rules(ReadCss(row.css)) == row.rules, Utf16ToUtf8(row.css));
}

TEST_CASE("css: media queries") {
    const std::u16string_view hold[] = {u"",
                                        u"all",
                                        u"SCREEN",
                                        u"screen, print",
                                        u"only screen",
                                        u"not print",
                                        u"print, screen",
                                        u"(min-width: 800px)",
                                        u"screen and (max-width: 50em)",
                                        u"(width: 800px)",
                                        u"(width >= 800px)",
                                        u"(400px < width <= 800px)",
                                        u"(800px >= width)",
                                        u"(900px > width)",
                                        u"not (width < 1px)",
                                        u"(min-width: 1px) and (max-height: 600px)",
                                        u"(min-width:9999px) or (min-height:1px)",
                                        u"(color)",
                                        u"(orientation: landscape)",
                                        u"((min-width: 1px))",
                                        u"screen and (width)",
                                        u"handheld, (min-width: 0)"};
    for (const std::u16string_view query : hold)
        CHECK_MESSAGE(AskCssMedia(query, {}).applies, Utf16ToUtf8(query));
    const std::u16string_view doNot[] = {u"print",
                                         u"not screen",
                                         u"not all",
                                         u"speech, print",
                                         u"(min-width: 801px)",
                                         u"screen and (max-width: 799px)",
                                         u"screen and print",
                                         u"(unknown: 1)",
                                         u"(min-width)",
                                         u"(orientation: portrait)",
                                         u"(width > 800px)",
                                         u"(800px < width)",
                                         u"(800px width)",
                                         u"(width: 800px 1px)",
                                         u"(color red)",
                                         u"screen (color)",
                                         u"(width >= )",
                                         u"(min-width: 10)",
                                         u"and",
                                         u"amzn-kf8",
                                         u"screen and",
                                         u"(",
                                         u"not"};
    for (const std::u16string_view query : doNot)
        CHECK_MESSAGE(!AskCssMedia(query, {}).applies, Utf16ToUtf8(query));
    CHECK(AskCssMedia(u"(min-width: 1px)", {}).dependsOnViewport);
    CHECK(AskCssMedia(u"(orientation: landscape)", {}).dependsOnViewport);
    CHECK_FALSE(AskCssMedia(u"screen", {}).dependsOnViewport);
    CHECK(AskCssMedia(u"(orientation: portrait)", {100, 100}).applies);
    const auto nested = [](std::size_t depth) {
        return std::u16string(depth, u'(') + u"width" + std::u16string(depth, u')');
    };
    CHECK(AskCssMedia(nested(1 + maxCssSelectorDepth), {}).applies);
    CHECK_FALSE(AskCssMedia(nested(2 + maxCssSelectorDepth), {}).applies);
    CHECK(ReadCss(u"@media (min-width:1px){p{color:red}}").dependsOnViewport);
}

TEST_CASE("css: imports stand before all rules") {
    const auto imports = [](std::u16string_view css) {
        std::string all;
        for (const std::u16string& address : ReadCss(css).imports)
            all += Utf16ToUtf8(address) + " ";
        return all;
    };
    CHECK(imports(u"@import 'a.css';@import url(b.css) screen;@import url( \"c.css\" );") ==
          "a.css b.css c.css ");
    CHECK(imports(u"@charset 'x'; @import 'a.css'") == "a.css ");
    CHECK(imports(u"@import 'a.css' print;@import 'b.css' (min-width: 9999px);") == "");
    CHECK(imports(u"p{}@import 'a.css';") == "");
    CHECK(imports(u"@media screen{}@import 'a.css';") == "");
    CHECK(imports(u"@import a.css;@import;@import '';@import 'b.css'{}@import 'c.css';") == "");
    CHECK(imports(u"@media screen{@import 'a.css';}") == "");
}

TEST_CASE("css: the sheets of a page") {
    const HtmlTree tree =
        ReadHtml(u"<style>a</style><style media=print>b</style><style type=text/x>c</style>"
                 u"<link rel=stylesheet href=d.css><link rel='alternate stylesheet' href=e.css>"
                 u"<link rel=next href=f.css><link rel=StyleSheet><style title=One>g</style>"
                 u"<style title=Two>h</style><body><style type='text/css; x'>i</style>");
    std::string all;
    for (const CssPageSheet& sheet : FindCssSheets(tree, {}))
        all += Utf16ToUtf8(sheet.text + sheet.address) + " ";
    CHECK(all == "a d.css g i ");
}

TEST_CASE("css: a template's sheets are no sheets of the page") {
    const HtmlTree tree = ReadHtml(u"<template><style>a</style><link rel=stylesheet href=b.css>"
                                   u"</template><style>c</style>");
    const std::vector<CssPageSheet> sheets = FindCssSheets(tree, {});
    REQUIRE(sheets.size() == 1);
    CHECK(sheets[0].text == u"c");
}

TEST_CASE("css: bytes of a sheet become text") {
    CHECK(DecodeCss("\xEF\xBB\xBF"
                    "a\xC3\xA9",
                    1252) == u"a\u00E9");
    CHECK(DecodeCss(std::string_view("\xFF\xFE"
                                     "a\0",
                                     4),
                    1252) == u"a");
    CHECK(DecodeCss(std::string_view("\xFE\xFF"
                                     "\0a",
                                     4),
                    1252) == u"a");
    CHECK(DecodeCss("\xE0", 1251) == u"\u0430");
    CHECK(DecodeCss("@charset \"utf-8\";\xC3\xA9", 1251) == u"@charset \"utf-8\";\u00E9");
    CHECK(DecodeCss("@charset \"windows-1251\";\xE0", 1252) == u"@charset \"windows-1251\";\u0430");
    CHECK(DecodeCss("@charset \"nonsense\";\xE0", 1251) == u"@charset \"nonsense\";\u0430");
    // By all labels that pages may have, too; a sheet in UTF-16 could not have said so in these.
    CHECK(DecodeCss("@charset \"cp1251\";\xE0", 1252) == u"@charset \"cp1251\";\u0430");
    CHECK(DecodeCss("@charset \"Latin1\";\xE0", 1251) == u"@charset \"Latin1\";\u00E0");
    CHECK(DecodeCss("@charset \"utf-16\";\xC3\xA9", 1251) == u"@charset \"utf-16\";\u00E9");
    // A cut unit, a lone half of a pair.
    CHECK(DecodeCss(std::string_view("\xFF\xFE"
                                     "a\0b",
                                     5),
                    1252) == u"a\uFFFD");
    CHECK(DecodeCss("\xFE\xFF\xD8\x01", 1252) == u"\uFFFD");
}
