// Bars beside a text that is too long to be laid out as one with them.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
constexpr PageLimits low{2048, 64, 128};

struct Bench : PageSample {
    explicit Bench(const std::u16string& body, double width = 400)
        : PageSample(body, low), lines(Lines(width)) {
        REQUIRE(flow.ZoneCount() > 2);
    }
    // As "0,16"; empty where it is in no line.
    std::string PlaceOf(const std::string& shown) const {
        const auto end = ("|" + lines + "|").find(" " + shown + "|");
        if (end == std::string::npos) return {};
        const auto start = ("|" + lines).rfind('|', end);
        return lines.substr(start, end - 1 - start);
    }

    std::string lines;
};

// A margin of 16 pixels and a line each.
std::u16string Text() {
    std::u16string text = u"<p>first";
    for (int i = 0; i < 198; ++i)
        text += u"<p>some";
    return text + u"<p>last";
}

const std::u16string nav = u"<nav style='width:100px'>bar</nav>";
const std::u16string text = u"<main style='flex:1;display:block'>" + Text() + u"</main>";

std::u16string Flex(const std::u16string& items, const std::u16string& style = {}) {
    return u"<header>head</header><div style='display:flex;" + style + u"'>" + items + u"</div>end";
}
} // namespace

TEST_CASE("page side bars: an item of a row stands beside a long one") {
    for (const Bench& page :
         {Bench(Flex(nav + text)), Bench(Flex(text + nav, u"flex-direction:row-reverse"))}) {
        CHECK(page.PlaceOf("bar") == "0,16");
        CHECK(page.PlaceOf("first") == "100,32");
        CHECK(page.PlaceOf("last") == "100,6400");
        CHECK(page.PlaceOf("end").starts_with("0,64"));
    }
    const Bench after(Flex(text + nav));
    CHECK(after.PlaceOf("bar") == "300,16");
    CHECK(after.PlaceOf("first") == "0,32");
    // Without room for the text beside it, and in a column, they stand below each other.
    const Bench narrow(Flex(nav + text), 200);
    CHECK(narrow.PlaceOf("bar") == "0,16");
    CHECK(narrow.PlaceOf("first") == "0,48");
    const Bench column(Flex(nav + text, u"flex-direction:column"));
    CHECK(column.PlaceOf("bar") == "0,16");
    CHECK(column.PlaceOf("first") == "0,48");
}

TEST_CASE("page side bars: items of a grid stand beside a long one, above it and below it") {
    const std::u16string sheet =
        u"<style>.page{display:grid;grid-template-columns:100px 1fr;"
        u"grid-template-areas:'h h' 'n m' 'f f'}header{grid-area:h}nav{grid-area:n}"
        u"main{grid-area:m;padding:5px}footer{grid-area:f}</style><div class=page>";
    const std::u16string bar = u"<nav>bar</nav>", long_ = u"<main>" + Text() + u"</main>";
    for (const std::u16string& items : {bar + long_, long_ + bar}) {
        std::u16string body = sheet;
        body.append(u"<header>head</header>").append(items).append(u"<footer>foot</footer>");
        const Bench page(body);
        CHECK(page.PlaceOf("head") == "0,0");
        CHECK(page.PlaceOf("bar") == "0,16");
        CHECK(page.PlaceOf("first") == "105,37");
        CHECK(page.PlaceOf("last") == "105,6405");
        CHECK(page.PlaceOf("foot").starts_with("0,64"));
    }
}

TEST_CASE("page side bars: a float after a long one stands beside it") {
    const std::u16string long_ = u"<div style='float:left;width:70%'>" + Text() + u"</div>";
    const Bench right(u"head" + long_ +
                      u"<div style='float:right;width:80px'>bar</div>"
                      u"<div style='clear:both'>end");
    CHECK(right.PlaceOf("bar") == "320,16");
    CHECK(right.PlaceOf("first") == "0,32");
    CHECK(right.PlaceOf("end").starts_with("0,64"));
    CHECK(Bench(long_ + u"<div style='float:left;width:80px'>bar</div>").PlaceOf("bar") == "280,0");
    CHECK(Bench(u"<div style='float:right;width:70%'>" + Text() +
                u"</div><div style='float:left;width:80px;margin-left:-360px'>bar</div>")
              .PlaceOf("bar") == "40,0");
    const Bench manual(u"<div style='float:left;width:100%'><div style='margin-left:100px'>" +
                       Text() +
                       u"</div></div>"
                       u"<div style='float:left;width:80px;margin-left:-100%'>bar</div>");
    CHECK(manual.PlaceOf("bar") == "0,0");
    CHECK(manual.PlaceOf("first") == "100,16");
    // Without room it is where it is written.
    const Bench wide(u"<div style='float:left;width:100%'>" + Text() +
                     u"</div><div style='float:left;width:80px'>bar</div>");
    CHECK(wide.PlaceOf("bar") == "0,6416");
}

TEST_CASE("page side bars: a long float stands at its side") {
    const Bench page(u"<div style='float:right;width:300px'>" + Text() + u"</div>");
    CHECK(page.PlaceOf("first") == "100,16");
    CHECK(page.PlaceOf("last") == "100,6384");
}

TEST_CASE("page side bars: all of many items is there, and a zone is laid out some times at most") {
    std::u16string bars;
    for (int i = 0; i < 12; ++i)
        bars += u"<nav style='width:300px'>bar" + std::u16string(1, char16_t(u'a' + i)) + u"</nav>";
    Bench page(Flex(bars + text, u"flex-wrap:wrap"));
    for (char letter = 'a'; letter < 'a' + 12; ++letter)
        CHECK(!page.PlaceOf(std::string("bar") + letter).empty());
    const int before = page.flow.LayoutsMade();
    page.flow.ForgetLayouts();
    page.flow.LayOut(0);
    CHECK(page.flow.LayoutsMade() - before <= 3);
}
