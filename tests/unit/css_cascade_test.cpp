// Which declaration wins, and what is inherited.
#include "css_samples.h"

#include <doctest/doctest.h>

namespace {

struct Row {
    std::u16string_view css;
    std::u16string_view attributes; // of the `p` with id x and class c, in a `div` with class d
    int weight;
};

} // namespace

TEST_CASE("css: the cascade goes by origin, importance, specificity and order") {
    const Row rows[] = {
        {u"", u"", 400},
        {u"p{font-weight:100}", u"", 100},
        {u"p{font-weight:100}p{font-weight:200}", u"", 200},
        {u"p{font-weight:100;font-weight:200}", u"", 200},
        {u".c{font-weight:100}p{font-weight:200}", u"", 100},
        {u"#x{font-weight:100}.c.c.c.c{font-weight:200}", u"", 100},
        {u"div p{font-weight:100}p{font-weight:200}", u"", 100},
        {u".c{font-weight:100}html body div p{font-weight:200}", u"", 100},
        {u"[id]{font-weight:100}p{font-weight:200}", u"", 100},
        {u"p:first-child{font-weight:100}p{font-weight:200}", u"", 100},
        {u":where(#x){font-weight:100}p{font-weight:200}", u"", 200},
        {u":is(#x,b){font-weight:100}.c{font-weight:200}", u"", 100},
        {u"p:not(#y){font-weight:100}.c{font-weight:200}", u"", 100},
        {u"*{font-weight:100}p{font-weight:200}", u"", 200},
        {u"p{font-weight:100}", u"style='font-weight:300'", 300},
        {u"#x{font-weight:100}", u"style='font-weight:300'", 300},
        {u"p{font-weight:100!important}", u"style='font-weight:300'", 100},
        {u"p{font-weight:100!important}", u"style='font-weight:300!important'", 300},
        {u"p{font-weight:100!important}#x{font-weight:200}", u"", 100},
        {u"p{font-weight:100!important}#x{font-weight:200!important}", u"", 200},
        {u"p,.c{font-weight:100}div p{font-weight:200}", u"", 100},
        {u".d{font-weight:100}", u"", 100},
        {u".d{font-weight:100}p{font-weight:initial}", u"", 400},
        {u".d{font-weight:100}p{font-weight:200}p{font-weight:inherit}", u"", 100},
        {u".d{font-weight:100}p{font-weight:200}p{font-weight:unset}", u"", 100},
        {u".d{font-weight:100}p{font-weight:200}p{font-weight:revert}", u"", 100},
        {u".d{font-weight:400}p{font-weight:bolder}", u"", 700},
        {u".d{font-weight:700}p{font-weight:bolder}", u"", 900},
        {u".d{font-weight:349}p{font-weight:bolder}", u"", 400},
        {u".d{font-weight:350}p{font-weight:bolder}", u"", 700},
        {u".d{font-weight:550}p{font-weight:bolder}", u"", 900},
        {u".d{font-weight:549}p{font-weight:lighter}", u"", 100},
        {u".d{font-weight:550}p{font-weight:lighter}", u"", 400},
        {u".d{font-weight:750}p{font-weight:lighter}", u"", 700},
        {u".d{font-weight:700}p{font-weight:lighter}", u"", 400},
        {u"p{font-weight:bold}", u"", 700},
        {u"p{font:italic 300 2em serif}", u"", 300},
        {u"p{font-weight:300;font:2em serif}", u"", 400},
    };
    for (const Row& row : rows) {
        std::u16string body = u"<div class=d><p id=x class=c ";
        body += row.attributes;
        body += u">text</p></div>";
        CHECK_MESSAGE(PageOf(row.css, body).Text().fontWeight == row.weight, Utf16ToUtf8(row.css));
    }
}

TEST_CASE("css: what is inherited and what is not") {
    const StyledPage page =
        PageOf(u"div{margin:10px;color:red;display:inline-block;background:blue;border:1px solid}"
               u"#y{margin:inherit;border:inherit;background:inherit;display:inherit}"
               u"#z{all:initial;color:initial}",
               u"<div id=x><p id=y>a</p><span id=z>b</span><span id=s>c</span></div>");
    CHECK(page.Text(u"s").color == CssColor{255, 0, 0});
    CHECK_FALSE(page.Text(u"s").autoColor);
    CHECK(page.Text(u"z").autoColor);
    CHECK(page.Box(u"s").margin[cssTop] == CssLength::Pixels(0));
    CHECK(page.Box(u"s").background.IsTransparent());
    CHECK(page.Box(u"y").margin[cssTop] == CssLength::Pixels(10));
    CHECK(page.Box(u"y").borderWidth[cssLeft] == 1);
    CHECK(page.Box(u"y").borderColor[cssLeft] == CssColor{255, 0, 0});
    CHECK(page.Box(u"y").background == CssColor{0, 0, 255});
    CHECK(page.Box(u"y").display == CssDisplay::InlineBlock);
}

TEST_CASE("css: every display is inherited as it is") {
    for (const std::u16string_view display :
         {u"inline", u"block", u"list-item", u"inline-block", u"table", u"inline-table",
          u"table-row", u"table-cell", u"flex", u"inline-flex", u"grid", u"inline-grid"}) {
        std::u16string css = u"div{float:none;display:";
        css += display;
        css += u"}#x{display:";
        // Items of flex containers and grids are blocks.
        css += display.ends_with(u"flex") || display.ends_with(u"grid") ? u"block" : display;
        css += u"}#y{display:inherit}";
        const StyledPage page = PageOf(css, u"<div><p id=x>a</p><p id=y>b</p></div>");
        CHECK_MESSAGE(page.Box(u"y").display == page.Box(u"x").display, Utf16ToUtf8(display));
    }
}

TEST_CASE("css: revert goes back to the default sheet") {
    const StyledPage page =
        PageOf(u"p{display:inline;margin:0}p{display:revert;margin:revert}", u"<p id=x>text");
    CHECK(page.Box().display == CssDisplay::Block);
    CHECK(page.Box().margin[cssTop] == CssLength::Pixels(16));
}

TEST_CASE("css: start and end are sides by the direction") {
    const auto page = [](std::u16string_view css) {
        return PageOf(css, u"<div id=x>text</div>").Box();
    };
    const CssLength three = CssLength::Pixels(3), four = CssLength::Pixels(4);
    CHECK(page(u"div{margin-inline-start:3px}").margin[cssLeft] == three);
    CHECK(page(u"div{margin-inline-start:3px;direction:rtl}").margin[cssRight] == three);
    CHECK(page(u"div{margin-inline-start:3px;margin-left:4px}").margin[cssLeft] == four);
    CHECK(page(u"div{margin-left:4px;margin-inline-start:3px}").margin[cssLeft] == three);
    CHECK(page(u"div{margin-left:4px!important;margin-inline-start:3px}").margin[cssLeft] == four);
    CHECK(page(u"div{padding-inline:3px 4px}").padding[cssRight] == four);
    const CssBoxStyle quote = page(u"div{border-inline-start:4px solid red;direction:rtl}");
    CHECK(quote.borderWidth == CssSides<float>{0, 4, 0, 0});
    CHECK(quote.borderColor[cssRight] == CssColor{255, 0, 0});
    CHECK(page(u"div{border-inline-end:4px solid}").borderWidth[cssRight] == 4);
    CHECK(page(u"div{border-block:1px dotted}").borderWidth == CssSides<float>{1, 0, 1, 0});
    CHECK(page(u"div{border-style:solid;border-inline-width:2px 4px}").borderWidth[cssLeft] == 2);
    CHECK(page(u"div{inset-inline:3px 4px;direction:rtl}").inset[cssLeft] == four);
}

TEST_CASE("css: content before and after an element") {
    const StyledPage page =
        PageOf(u"#x::before{content:'a' attr(title);color:red}#x:after{content:url(b.png)}"
               u"#y::before{content:none}#z::before{content:'x';display:none}#z::after{color:red}",
               u"<p id=x title=t>text</p><p id=y>text</p><p id=z>text</p><q id=q>text</q>");
    const CssStyle before = page.styles.Before(page.Id(u"x"));
    REQUIRE(before.box != nullptr);
    CHECK(before.inherited->color == CssColor{255, 0, 0});
    CHECK(before.box->display == CssDisplay::Inline);
    const CssContent& content = page.styles.Content(before.box->content);
    REQUIRE(content.size() == 2);
    CHECK(content[0].text == u"a");
    CHECK(content[1].kind == CssContentItem::Kind::Attribute);
    CHECK(content[1].text == u"title");
    const CssStyle after = page.styles.After(page.Id(u"x"));
    REQUIRE(after.box != nullptr);
    CHECK(page.styles.Content(after.box->content)[0].text == u"b.png");
    CHECK(page.styles.Before(page.Id(u"y")).box == nullptr);
    CHECK(page.styles.Before(page.Id(u"z")).box == nullptr);
    CHECK(page.styles.After(page.Id(u"z")).box == nullptr);
    CHECK(page.styles.Content(page.styles.Before(page.Id(u"q")).box->content)[0].kind ==
          CssContentItem::Kind::OpenQuote);
}

TEST_CASE("css: what is not displayed is not styled any further") {
    const StyledPage page =
        PageOf(u"#x{display:none}b{color:red}", u"<div id=x><b id=y>t</b></div><b id=z>t</b>");
    CHECK(page.Box(u"x").display == CssDisplay::None);
    CHECK(page.styles.NumberOf(page.Id(u"y")) == 0);
    CHECK(page.Text(u"z").color == CssColor{255, 0, 0});
}

TEST_CASE("css: equal elements share their style") {
    std::u16string body;
    for (int i = 0; i < 1000; ++i)
        body += i % 2 ? u"<p class=a>text <i>it</i></p>" : u"<p style='margin:1px'>t</p>";
    const StyledPage page = PageOf(u"p{margin:1px}.a{color:red}", body);
    CHECK(page.styles.Count() < 12);
    CHECK_FALSE(page.styles.DependsOnViewport());
}
