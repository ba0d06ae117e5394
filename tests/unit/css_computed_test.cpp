// Computed values: lengths, colours, fonts, borders and what follows from other properties.
#include "css_samples.h"

#include <doctest/doctest.h>

TEST_CASE("css: lengths in all units") {
    struct Row {
        std::u16string_view length;
        double pixels;
    };
    const Row rows[] = {{u"10px", 10},    {u"2em", 40},     {u"2rem", 32},
                        {u"1in", 96},     {u"2.54cm", 96},  {u"25.4mm", 96},
                        {u"101.6q", 96},  {u"72pt", 96},    {u"6pc", 96},
                        {u"1ex", 10},     {u"1ch", 10},     {u"10vw", 80},
                        {u"10vh", 60},    {u"10vmin", 60},  {u"10dvw", 80},
                        {u"10dvh", 60},   {u"10svw", 80},   {u"10svh", 60},
                        {u"10lvw", 80},   {u"10lvh", 60},   {u"10vi", 80},
                        {u"10vb", 60},    {u"10vmax", 80},  {u"0", 0},
                        {u"-1.5EM", -30}, {u"1e3px", 1000}, {u"99999999in", 1'000'000}};
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

TEST_CASE("css: sizes along lines are widths, those of blocks heights") {
    const StyledPage page = PageOf(u"#x{inline-size:1px;min-inline-size:2px;max-inline-size:3px;"
                                   u"block-size:4px;min-block-size:5px;max-block-size:6px}",
                                   u"<div id=x>");
    CHECK(page.Box().width == CssLength::Pixels(1));
    CHECK(page.Box().minWidth == CssLength::Pixels(2));
    CHECK(page.Box().maxWidth == CssLength::Pixels(3));
    CHECK(page.Box().height == CssLength::Pixels(4));
    CHECK(page.Box().minHeight == CssLength::Pixels(5));
    CHECK(page.Box().maxHeight == CssLength::Pixels(6));
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
        {u"hsl(200grad 100% 50%)", {0, 255, 255}},
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
        {u"font-family:monospace", 20}, // of a size that was given in pixels
        {u"font-family:monospace;font-size:medium", 13},
        {u"font-family:monospace;font-size:small", 12},
        {u"font-family:monospace;font-size:x-small", 10},
        {u"font-family:monospace;font-size:xxx-large", 39},
        {u"font-family:monospace;font-size:1em", 20},
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
    // Old pages count sizes of `monospace` otherwise, with <font> above all.
    CHECK(PageOf(u"", u"<tt><font id=x size=2>t").Text().fontSize == 12);
    CHECK(StyledPage(u"<tt><font id=x size=2>t").Text().fontSize == 10);
    CHECK(StyledPage(u"<font id=x size=2>t").Text().fontSize == 13);
    CssMedium large;
    large.fontSize = 32;
    CHECK(PageOf(u"", u"<small id=x>t", large).Text().fontSize == doctest::Approx(32 / 1.2));
}

TEST_CASE("css: a size that was given as a length is that of any family") {
    const auto size = [](const std::u16string& body) { return StyledPage(body).Text().fontSize; };
    CHECK(size(u"<div style='font-size:20px'><pre id=x>") == 20);
    CHECK(size(u"<div style='font-size:15pt'><p><code id=x>") == 20);
    CHECK(size(u"<div style='font-size:20px'><p style='font-size:50%'><tt id=x>") == 10);
    CHECK(size(u"<div style='font-size:200%'><pre id=x>") == 26);
    CHECK(size(u"<div style='font-size:20px'><p style='font-size:medium'><tt id=x>") == 13);
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
