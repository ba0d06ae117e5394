// Custom properties and what is reckoned up.
#include "formats/css/css_limits.h"
#include "tests/unit/css_samples.h"

#include <doctest/doctest.h>

namespace {
CssLength Px(float pixels) {
    return CssLength::Pixels(pixels);
}
CssLength Width(std::u16string_view css, std::u16string_view body = u"<div id=x>") {
    return PageOf(css, body).Box().width;
}
} // namespace

TEST_CASE("css: variables stand for values") {
    CHECK(Width(u":root{--w:50px} div{width:var(--w)}") == Px(50));
    CHECK(Width(u"div{width:var(--w)} :root{--w:50px}") == Px(50));
    CHECK(Width(u"div{--w:50px;width:var( --w )}") == Px(50));
    CHECK(Width(u"div{--W:50px;--w:10px;width:var(--W)}") == Px(50));
    CHECK(Width(u"", u"<div style='--w:50px'><p id=x style='width:var(--w)'>") == Px(50));
    CHECK(PageOf(u"div{--a:1px 2px;margin:var(--a) 3px}", u"<div id=x>").Box().margin[cssLeft] ==
          Px(2));
    CHECK(PageOf(u"div{--b:#f00;border:1px solid var(--b)}", u"<div id=x>")
              .Box()
              .borderColor[cssTop] == CssColor{255, 0, 0});
}

TEST_CASE("css: variables inherit, and go by the cascade") {
    const std::u16string_view body = u"<div><p><b id=x></div>";
    CHECK(Width(u"div{--w:50px} b{width:var(--w)}", body) == Px(50));
    CHECK(Width(u"div{--w:50px} p{--w:20px} b{width:var(--w)}", body) == Px(20));
    CHECK(Width(u"p{--w:20px} body p{--w:30px} b{width:var(--w)}", body) == Px(30));
    CHECK(Width(u"p{--w:20px!important} body p{--w:30px} b{width:var(--w)}", body) == Px(20));
    CHECK(Width(u"div{--w:50px} p{--w:initial} b{width:var(--w,7px)}", body) == Px(7));
    CHECK(Width(u"div{--w:50px} p{--w:inherit} b{width:var(--w,7px)}", body) == Px(50));
    // Two with the same style but for their variables.
    const StyledPage page = PageOf(u".a{--w:1px} .b{--w:2px} p{width:var(--w)}",
                                   u"<div class=a><p id=a></div><div class=b><p id=b></div>");
    CHECK(page.Box(u"a").width == Px(1));
    CHECK(page.Box(u"b").width == Px(2));
}

TEST_CASE("css: variables of variables, and without a value") {
    CHECK(Width(u"div{--a:var(--b);--b:9px;width:var(--a)}") == Px(9));
    CHECK(Width(u"div{--a:var(--b);--b:var(--a);width:5px;width:var(--a)}").IsAuto());
    CHECK(Width(u"div{width:5px;width:var(--none)}").IsAuto()); // not what stands before
    CHECK(Width(u"div{width:var(--none,5px)}") == Px(5));
    CHECK(Width(u"div{--a:4px;width:var(--none,var(--a))}") == Px(4));
    CHECK(Width(u"div{--a:red;width:var(--a)}").IsAuto());
    CHECK(PageOf(u"body{color:red} div{color:var(--a)}", u"<div id=x>").Text().color ==
          CssColor{255, 0, 0}); // unset inherits
    // Each has twice the one before.
    std::u16string css = u"div{--a0:1px ";
    for (char16_t i = 0; i < 20; ++i)
        css += std::u16string(u";--") + char16_t(u'b' + i) + u"0:var(--" + char16_t(u'a' + i) +
               u"0)var(--" + char16_t(u'a' + i) + u"0)";
    CHECK(Width(css + u";width:var(--u0)}").IsAuto());
}

TEST_CASE("css: what stands beside a variable makes no token with it") {
    CHECK(Width(u"div{--n:1;width:5px;width:var(--n)px}").IsAuto());
    CHECK(Width(u"div{--n:1;width:5px;width:1/**/px}") == Px(5));
    CHECK(Width(u"div{--n:2;width:calc(3px*var(--n))}") == Px(6));
    CHECK(Width(u"div{--n:2;width:calc(var(--n)*3px)}") == Px(6));
    CHECK(Width(u"div{--n:1/**/px;width:var(--n)}").IsAuto());
    CHECK(PageOf(u"div{--a:1px;margin:var(--a)var(--a)}", u"<div id=x>").Box().margin[cssLeft] ==
          Px(1));
}

TEST_CASE("css: sums of lengths") {
    CHECK(Width(u"div{width:calc(1px + 2px * 3)}") == Px(7));
    CHECK(Width(u"div{width:calc((1px + 2px) * 3)}") == Px(9));
    CHECK(Width(u"div{width:calc(2 * (10px - 4px) / 3)}") == Px(4));
    CHECK(Width(u"div{font-size:10px;width:calc(2em + 1px)}") == Px(21));
    CHECK(Width(u"div{width:calc(50% / 2)}") == CssLength::Percent(25));
    CHECK(Width(u":root{--s:2em} div{font-size:10px;width:calc(var(--s) * 2)}") == Px(40));
    CHECK(Width(u"div{width:calc(100% - 4px)}").Of(100) == 96);
    CHECK(Width(u"div{width:calc(1000% + 4px)}").Of(100) > 300);
    CHECK(Width(u"div{width:min(30px, 20px, 40px)}") == Px(20));
    CHECK(Width(u"div{width:max(30px, 2px)}") == Px(30));
    CHECK(Width(u"div{width:clamp(10px, 5px, 20px)}") == Px(10));
    CHECK(Width(u"div{width:min(100%, 300px)}") == Px(300)); // in a window of 800
    CHECK(PageOf(u"div{font-size:calc(1rem + 50%)}", u"<div id=x>").Text().fontSize == 24);
    CHECK(PageOf(u"div{font-size:10px;line-height:calc(1 + .5)}", u"<div id=x>")
              .Text()
              .lineHeight.value == 1.5f);
    CHECK(PageOf(u"div{margin:0 calc(1px + 1px)}", u"<div id=x>").Box().margin[cssLeft] == Px(2));
}

TEST_CASE("css: lengths that are rounded") {
    CHECK(Width(u"div{width:round(12px, 5px)}") == Px(10));
    CHECK(Width(u"div{width:round(nearest, 12.5px, 5px)}") == Px(15));
    CHECK(Width(u"div{width:round(up, 11px, 5px)}") == Px(15));
    CHECK(Width(u"div{width:round(down, 14px, 5px)}") == Px(10));
    CHECK(Width(u"div{width:calc(20px + round(to-zero, -14px, 5px))}") == Px(10));
    CHECK(Width(u"div{width:mod(17px, 5px)}") == Px(2));
    CHECK(Width(u"div{width:mod(-3px, 5px)}") == Px(2));
    CHECK(Width(u"div{width:calc(10px + rem(-3px, 5px))}") == Px(7));
    CHECK(Width(u"div{width:calc(round(2.6) * 1px)}") == Px(3));
    CHECK(Width(u"div{width:round(33%, 100px)}") == Px(300)); // in a window of 800
    CHECK(Width(u"div{width:round(7px, 0px)}") == Px(0));
    for (const std::u16string_view wrong :
         {u"round(7px)", u"round(sideways, 7px, 2px)", u"mod(7px)", u"rem(7px, 2)", u"round()",
          u"mod(up, 7px, 2px)"})
        CHECK(Width(std::u16string(u"div{width:5px;width:") + std::u16string(wrong) + u"}") ==
              Px(5));
}

TEST_CASE("css: lengths in lines") {
    CHECK(Width(u"div{font-size:10px;line-height:1.5;width:2lh}") == Px(30));
    CHECK(Width(u":root{line-height:20px}div{line-height:3;width:2rlh}") == Px(40));
    CHECK(Width(u":root{line-height:20px;width:1rlh}div{width:inherit}body{width:inherit}") ==
          Px(20));
    // A line height in lines is of those around.
    CHECK(PageOf(u"body{line-height:20px}div{line-height:2lh}", u"<div id=x>").Text().lineHeight ==
          Px(40));
    CHECK(Width(u"div{font-size:10px;line-height:normal;width:2lh}") == Px(23));
    CHECK(Width(u"div{font-size:10px;width:4ex}") == Px(20));
}

TEST_CASE("css: sums that make no sense") {
    for (const std::u16string_view wrong :
         {u"calc(1px + 2)", u"calc(1px * 2px)", u"calc(1 / 2px)", u"calc(1px 2px)", u"calc()",
          u"calc(1px +)", u"min()", u"clamp(1px, 2px)", u"calc(2)", u"calc(red)", u"calc(1px+2px)"})
        CHECK(Width(std::u16string(u"div{width:5px;width:") + std::u16string(wrong) + u"}") ==
              Px(5));
    CHECK(Width(u"div{width:calc(1px / 0)}") == Px(0));
    CHECK(PageOf(u"div{border:calc(1px - 5px) solid}", u"<div id=x>").Box().borderWidth[cssTop] ==
          0);
    std::u16string deep = u"div{width:5px;width:";
    for (int i = 0; i < 1000; ++i)
        deep += u"calc(";
    CHECK(Width(deep + u"1px") == Px(5));
    std::u16string endless = u"div{width:5px;width:calc(0px";
    for (int i = 0; i < 1000; ++i)
        endless += u" + 1px";
    CHECK(Width(endless + u")}") == Px(5));
}

TEST_CASE("css: rules for what is supported") {
    const auto holds = [](std::u16string_view condition) {
        std::u16string css = u"@supports ";
        css += condition;
        css += u"{div{width:5px}}";
        return Width(css) == Px(5);
    };
    CHECK(holds(u"(display:grid)"));
    CHECK(holds(u"not (initial-letter:3)"));
    CHECK(holds(u"(float:left) and (not (initial-letter:3))"));
    CHECK(holds(u"(initial-letter:3) or (width:calc(1px + 1%))"));
    CHECK(holds(u"((--a:b))"));
    CHECK(holds(u"selector(p:first-child)"));
    CHECK_FALSE(holds(u"(display:nonsense)"));
    CHECK_FALSE(holds(u"(initial-letter:3)"));
    CHECK_FALSE(holds(u"not (float:left)"));
    CHECK_FALSE(holds(u"float:left"));
    const auto nested = [](std::size_t depth) {
        return std::u16string(depth, u'(') + u"float:left" + std::u16string(depth, u')');
    };
    CHECK(holds(nested(1 + maxCssSelectorDepth)));
    CHECK_FALSE(holds(nested(2 + maxCssSelectorDepth)));
    CHECK(Width(u"@layer base{div{width:5px}}") == Px(5));
}
