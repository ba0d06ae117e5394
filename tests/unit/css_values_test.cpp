// What each property takes and what it does not, and the computed values of lengths, colours and
// fonts.
#include "css_samples.h"

#include "formats/css/css_color.h"
#include "formats/css/css_length.h"

#include <doctest/doctest.h>

namespace {

bool IsUnderstood(std::u16string_view declaration, bool quirks = false) {
    CssReading reading;
    reading.quirks = quirks;
    return !ReadCssBlock(declaration, reading).declarations.empty();
}

} // namespace

TEST_CASE("css: values that properties take") {
    const std::u16string_view understood[] = {u"margin:0",
                                              u"margin:1px 2em 3% auto",
                                              u"margin:-1px auto",
                                              u"margin: 0 auto",
                                              u"margin-left:-50%",
                                              u"padding:1em",
                                              u"padding:0 1px",
                                              u"border:1px solid red",
                                              u"border:solid",
                                              u"border:none",
                                              u"border:0",
                                              u"border:thin dotted",
                                              u"border:red solid 1px",
                                              u"border-top:medium double #000",
                                              u"border-width:1px 2px 3px 4px",
                                              u"border-width:thin",
                                              u"border-style:solid dashed",
                                              u"border-color:red #000 transparent currentcolor",
                                              u"border-left-width:0",
                                              u"border-spacing:2px",
                                              u"border-spacing:0 2px",
                                              u"border-collapse:collapse",
                                              u"width:50%",
                                              u"width:auto",
                                              u"height:1px",
                                              u"max-width:none",
                                              u"max-width:24em",
                                              u"min-width:0",
                                              u"max-height:100vh",
                                              u"top:-1px",
                                              u"left:92%",
                                              u"right:auto",
                                              u"inset:0",
                                              u"background:#fff",
                                              u"background:red url(x.png) no-repeat 0 0",
                                              u"background:none",
                                              u"background:url('x') center / cover",
                                              u"background:transparent",
                                              u"background-color:rgba(0,0,0,.5)",
                                              u"background:linear-gradient(red, blue)",
                                              u"display:none",
                                              u"display:inline-block",
                                              u"display:flex",
                                              u"display:grid",
                                              u"display:table-cell",
                                              u"display:list-item",
                                              u"display:contents",
                                              u"position:absolute",
                                              u"float:left",
                                              u"clear:both",
                                              u"overflow:hidden",
                                              u"overflow:auto scroll",
                                              u"overflow-x:auto",
                                              u"box-sizing:border-box",
                                              u"visibility:hidden",
                                              u"color:red",
                                              u"color:#F00",
                                              u"color:windowtext",
                                              u"text-align:justify",
                                              u"text-align:start",
                                              u"text-indent:-2em",
                                              u"text-indent:5%",
                                              u"line-height:1.5",
                                              u"line-height:150%",
                                              u"line-height:normal",
                                              u"line-height:0em",
                                              u"letter-spacing:.2em",
                                              u"letter-spacing:normal",
                                              u"word-spacing:-1px",
                                              u"font-size:small",
                                              u"font-size:larger",
                                              u"font-size:110%",
                                              u"font-size:9pt",
                                              u"font-style:italic",
                                              u"font-style:oblique",
                                              u"font-weight:600",
                                              u"font-weight:bolder",
                                              u"font-variant:small-caps",
                                              u"font-variant:normal",
                                              u"font-family:Georgia, 'Times New Roman', serif",
                                              u"font-family:A B C",
                                              u"font:12px serif",
                                              u"font:italic small-caps bold 12px/1.5 'A', serif",
                                              u"font:normal normal 1em/normal x",
                                              u"font:condensed 1em x",
                                              u"text-transform:uppercase",
                                              u"text-decoration:none",
                                              u"text-decoration:underline line-through",
                                              u"text-decoration:underline dotted red",
                                              u"text-decoration-line:overline",
                                              u"vertical-align:super",
                                              u"vertical-align:-0.3em",
                                              u"vertical-align:25%",
                                              u"white-space:nowrap",
                                              u"white-space:pre-wrap",
                                              u"list-style:none",
                                              u"list-style:square inside",
                                              u"list-style:url(x) lower-roman",
                                              u"list-style-type:upper-alpha",
                                              u"list-style-position:inside",
                                              u"direction:rtl",
                                              u"unicode-bidi:bidi-override",
                                              u"caption-side:bottom",
                                              u"empty-cells:hide",
                                              u"table-layout:fixed",
                                              u"page-break-before:always",
                                              u"break-after:page",
                                              u"break-inside:avoid",
                                              u"page-break-inside:avoid",
                                              u"content:'x'",
                                              u"content:attr(title)",
                                              u"content:open-quote 'a' url(x)",
                                              u"content:none",
                                              u"content:'a' / 'b'",
                                              u"overflow-wrap:break-word",
                                              u"word-wrap:break-word",
                                              u"margin-inline:1px",
                                              u"margin:inherit",
                                              u"font:inherit",
                                              u"color:unset"};
    for (const std::u16string_view one : understood)
        CHECK_MESSAGE(IsUnderstood(one), Utf16ToUtf8(one));
}

TEST_CASE("css: values that properties do not take") {
    const std::u16string_view wrong[] = {u"margin:1",
                                         u"margin:1px 2px 3px 4px 5px",
                                         u"margin:1px,2px",
                                         u"margin:none",
                                         u"margin:1xx",
                                         u"padding:-1px",
                                         u"padding:auto",
                                         u"border:1px 2px solid",
                                         u"border:1px solid red blue",
                                         u"border:solid dashed",
                                         u"border-width:-1px",
                                         u"border-width:5%",
                                         u"border-style:2px",
                                         u"border-spacing:-1px",
                                         u"border-spacing:1px 2px 3px",
                                         u"width:-1px",
                                         u"width:10",
                                         u"width:none",
                                         u"max-width:auto",
                                         u"height:red",
                                         u"top:none",
                                         u"background:red blue!",
                                         u"background:foo",
                                         u"background-color:url(x)",
                                         u"display:blocky",
                                         u"display:block inline",
                                         u"position:center",
                                         u"float:center",
                                         u"clear:all",
                                         u"overflow:x",
                                         u"visibility:none",
                                         u"color:",
                                         u"color:12",
                                         u"color:#12",
                                         u"color:#12345",
                                         u"color:ff0000",
                                         u"color:rgb(1,2)",
                                         u"color:rgb(1,2,3,4,5)",
                                         u"color:rgb(a,b,c)",
                                         u"color:nocolour",
                                         u"text-align:middle",
                                         u"text-align:-html-center",
                                         u"text-align:-html-header-cell",
                                         u"text-indent:1",
                                         u"line-height:-1",
                                         u"line-height:auto",
                                         u"letter-spacing:5%",
                                         u"font-size:-1px",
                                         u"font-size:12",
                                         u"font-size:huge",
                                         u"font-weight:-1",
                                         u"font-weight:boldest",
                                         u"font-family:",
                                         u"font-family:'a' 'b'",
                                         u"font-family:a,,b",
                                         u"font-family:a,",
                                         u"font-family:1",
                                         u"font-style:bold",
                                         u"font:12px",
                                         u"font:serif",
                                         u"font:bold",
                                         u"font:caption",
                                         u"font:12px/ serif",
                                         u"text-decoration:underlined",
                                         u"vertical-align:center",
                                         u"white-space:wrap",
                                         u"list-style:blue",
                                         u"content:red",
                                         u"content:attr(1)",
                                         u"content:counter(x)",
                                         u"page-break-before:yes",
                                         u"colr:red",
                                         u"margin:inherit 1px",
                                         u"font-size:calc(1px + 1em)",
                                         u"color:var(--x)",
                                         u"width:1px!x"};
    for (const std::u16string_view one : wrong)
        CHECK_MESSAGE(!IsUnderstood(one), Utf16ToUtf8(one));
    for (const std::u16string_view one :
         {u"margin:1", u"width:10", u"color:ff0000", u"font-size:12", u"background-color:fff"})
        CHECK_MESSAGE(IsUnderstood(one, true), Utf16ToUtf8(std::u16string_view(one)));
}

TEST_CASE("css: lengths in all units") {
    struct Row {
        std::u16string_view length;
        double pixels;
    };
    const Row rows[] = {{u"10px", 10},
                        {u"2em", 40},
                        {u"2rem", 32},
                        {u"1in", 96},
                        {u"2.54cm", 96},
                        {u"25.4mm", 96},
                        {u"101.6q", 96},
                        {u"72pt", 96},
                        {u"6pc", 96},
                        {u"1ex", 10},
                        {u"1ch", 10},
                        {u"10vw", 80},
                        {u"10vh", 60},
                        {u"10vmin", 60},
                        {u"10vmax", 80},
                        {u"0", 0},
                        {u"-1.5EM", -30},
                        {u"1e3px", 1000},
                        {u"99999999in", 1'000'000}};
    for (const Row& row : rows) {
        std::u16string css = u"#x{font-size:20px;margin-left:";
        css += row.length;
        css += u"}";
        const StyledPage page = PageOf(css, u"<div id=x>text</div>");
        CHECK_MESSAGE(page.Box().margin[cssLeft].value == doctest::Approx(row.pixels),
                      Utf16ToUtf8(row.length));
        CHECK(page.styles.DependsOnViewport() == (row.length.find(u'v') != row.length.npos));
    }
}

TEST_CASE("css: colours") {
    struct Row {
        std::u16string_view color;
        CssColor rgb;
    };
    const Row rows[] = {
        {u"red", {255, 0, 0}},
        {u"LightGoldenrodYellow", {250, 250, 210}},
        {u"#faebd0", {250, 235, 208}},
        {u"#DDE", {221, 221, 238}},
        {u"#12345678", {18, 52, 86, 120}},
        {u"#1234", {17, 34, 51, 68}},
        {u"rgb(1,2,3)", {1, 2, 3}},
        {u"rgb(100%, 0%, 50%)", {255, 0, 128}},
        {u"rgb(300,-5,0)", {255, 0, 0}},
        {u"rgba(1, 2, 3, .5)", {1, 2, 3, 128}},
        {u"rgb(1 2 3 / 50%)", {1, 2, 3, 128}},
        {u"hsl(120, 100%, 25%)", {0, 128, 0}},
        {u"hsl(0.5turn 100% 50%)", {0, 255, 255}},
        {u"hsla(-120,100%,50%,1)", {0, 0, 255}},
        {u"transparent", {0, 0, 0, 0}},
    };
    for (const Row& row : rows) {
        std::u16string css = u"background-color:";
        css += row.color;
        CHECK_MESSAGE(WithDeclarations(css).Box().background == row.rgb, Utf16ToUtf8(row.color));
    }
    const StyledPage current =
        WithDeclarations(u"color:red;border:1px solid;background:currentcolor");
    CHECK(current.Box().borderColor[cssTop] == CssColor{255, 0, 0});
    CHECK(current.Box().background == CssColor{255, 0, 0});
    CHECK(CssColor{1, 2, 3}.Bgr() == 0x030201);
}

TEST_CASE("css: sizes of fonts") {
    struct Row {
        std::u16string_view css;
        double size; // within a parent of 20 pixels
    };
    const Row rows[] = {
        {u"", 20},
        {u"font-size:1em", 20},
        {u"font-size:150%", 30},
        {u"font-size:1.5rem", 24},
        {u"font-size:medium", 16},
        {u"font-size:xx-small", 9},
        {u"font-size:xxx-large", 48},
        {u"font-size:smaller", 20 / 1.2},
        {u"font-size:larger", 24},
        {u"font-size:12pt", 16},
        {u"font-size:0", 0},
        {u"font-size:99999px", 10000},
        {u"font-family:monospace", 20 * 13 / 16.0},
        {u"font-family:monospace;font-size:medium", 13},
        {u"font-family:monospace;font-size:1em", 20 * 13 / 16.0},
        {u"font-family:monospace;font-size:20px", 20},
        {u"font-family:Courier, monospace", 20},
        {u"font-family:'monospace'", 20},
    };
    for (const Row& row : rows) {
        std::u16string css = u"body{font-size:20px}#x{";
        css += row.css;
        css += u"}";
        CHECK_MESSAGE(PageOf(css, u"<div id=x>t</div>").Text().fontSize ==
                          doctest::Approx(row.size),
                      Utf16ToUtf8(row.css));
    }
    CHECK(PageOf(u"html{font-size:10px}#x{width:2rem}", u"<div id=x>").Box().width.value == 20);
    CHECK(PageOf(u"html{font-size:2rem}", u"<div id=x>").Text().fontSize == 32);
    CHECK(PageOf(u"pre{font-family:serif}", u"<pre id=x>t").Text().fontSize == 16);
    CssMedium large;
    large.fontSize = 32;
    CHECK(PageOf(u"", u"<small id=x>t", large).Text().fontSize == doctest::Approx(32 / 1.2));
}

TEST_CASE("css: families of fonts") {
    const StyledPage page = WithDeclarations(u"font-family:Times  New\tRoman, \"A, b\", SERIF");
    const CssFontFamilies& families = page.styles.Families(page.Text().families);
    REQUIRE(families.size() == 3);
    CHECK(families[0] == CssFontFamily{u"Times New Roman", false});
    CHECK(families[1] == CssFontFamily{u"A, b", false});
    CHECK(families[2] == CssFontFamily{u"serif", true});
    CHECK(page.styles.Families(0).empty());
}

TEST_CASE("css: line heights") {
    const auto child = [](std::u16string_view css) {
        std::u16string all = u"div{font-size:20px;";
        all += css;
        all += u"}";
        return PageOf(all, u"<div><b id=x style='font-size:10px'>t</b></div>").Text().lineHeight;
    };
    CHECK(child(u"") == CssLength{});
    CHECK(child(u"line-height:1.5") == CssLength{1.5, CssLength::Kind::Number});
    CHECK(child(u"line-height:150%") == CssLength::Pixels(30));
    CHECK(child(u"line-height:1.5em") == CssLength::Pixels(30));
    CHECK(child(u"line-height:2;line-height:normal") == CssLength{});
}

TEST_CASE("css: borders have a width with a style alone") {
    const auto top = [](std::u16string_view css) {
        const StyledPage page = WithDeclarations(css);
        return page.Box().borderWidth[cssTop];
    };
    CHECK(top(u"border-width:5px") == 0);
    CHECK(top(u"border-style:solid") == 3);
    CHECK(top(u"border:thick solid") == 5);
    CHECK(top(u"border:hidden 5px") == 0);
    CHECK(top(u"border:.2px solid") == 1);
    CHECK(top(u"border:1.9px solid") == 1);
    CHECK(top(u"border:5px solid;border-top:dotted") == 3);
    CHECK(top(u"border:solid white;border-width:3px 1px") == 3);
}

TEST_CASE("css: what is out of the flow is a block") {
    const auto box = [](std::u16string_view css) { return WithDeclarations(css).Box(); };
    CHECK(box(u"display:inline;float:left").display == CssDisplay::Block);
    CHECK(box(u"display:inline-table;position:absolute").display == CssDisplay::Table);
    CHECK(box(u"display:list-item;float:left").display == CssDisplay::ListItem);
    CHECK(box(u"display:none;float:left").display == CssDisplay::None);
    CHECK(box(u"float:left;position:absolute").floats == CssFloat::None);
    CHECK(box(u"float:left;position:relative").floats == CssFloat::Left);
    CHECK(box(u"display:flex").display == CssDisplay::Block);
    CHECK(box(u"display:flex").flowRoot);
    CHECK(box(u"display:inline-grid").display == CssDisplay::InlineBlock);
    CHECK(box(u"overflow:hidden").flowRoot);
    CHECK_FALSE(box(u"").flowRoot);
}

TEST_CASE("css: lines on text add up, but not into floats") {
    const StyledPage page = PageOf(
        u"", u"<u><s id=x>a<i id=y style='float:left'>b</i><i id=z style='text-decoration:none'>c");
    CHECK(page.Text(u"x").decorations == (cssUnderline | cssLineThrough));
    CHECK(page.Text(u"y").decorations == cssNoDecoration);
    CHECK(page.Text(u"z").decorations == (cssUnderline | cssLineThrough));
}
