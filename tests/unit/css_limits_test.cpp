// What sheets that mean harm cost: tests counted, memory measured, never the time.
#include "allocations.h"
#include "css_samples.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_parser.h"

#include <doctest/doctest.h>

namespace {

std::u16string Repeat(std::u16string_view piece, std::size_t times) {
    std::u16string all;
    all.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all += piece;
    return all;
}

std::uint64_t StepsOf(std::u16string_view css, std::u16string_view body) {
    const std::uint64_t without = PageOf(u"", body).styles.Steps();
    return PageOf(css, body).styles.Steps() - without;
}

} // namespace

TEST_CASE("css: no selector is tried more than once at an element") {
    // 400 levels, each with three siblings: what goes back and forth takes powers of that.
    const std::u16string deep = Repeat(u"<div class=a><i class=a></i><i></i><div class=a>", 200);
    constexpr std::uint64_t elements = 800;
    const std::u16string_view selectors[] = {
        u".a .a .a .a .a .a .a .a .a .a .b",   u"div div div div div div div > b",
        u".a > .a .a > .a .a > .a .a > .a .b", u".a ~ .a ~ .a ~ .a ~ .a .b",
        u".a + i ~ .a .a + i ~ .a .a > .b",    u":is(.a .a .a) :is(.a .a .a) .b",
        u":not(:not(:not(.a .a .a))) .b"};
    for (const std::u16string_view selector : selectors) {
        std::u16string css(selector);
        css += u"{color:red}";
        const std::uint64_t compounds = 12;
        CHECK_MESSAGE(StepsOf(css, deep) <= elements * compounds, Utf16ToUtf8(selector));
    }
}

TEST_CASE("css: siblings are not searched") {
    const std::u16string many = Repeat(u"<p>t", 20'000);
    CHECK(StepsOf(u"h1 ~ p{color:red}p + h2{color:red}", many) <= 40'010);
    CHECK(StepsOf(u"p:nth-child(3n){color:red}p:nth-last-of-type(2){color:blue}", many) <= 100'000);
}

TEST_CASE("css: elements meet the rules of their own names only") {
    std::u16string css;
    for (int i = 0; i < 20'000; ++i) {
        const std::u16string number = Utf8ToUtf16(std::to_string(i));
        css.append(u".c").append(number).append(u"{color:red}#i");
        css.append(number).append(u" b{color:red}");
    }
    CHECK(StepsOf(css, Repeat(u"<p class=c7>t", 1000)) <= 10'010);
}

TEST_CASE("css: rules of names that the page has not are passed over") {
    std::u16string css;
    for (int i = 0; i < 20'000; ++i) {
        const std::u16string number = Utf8ToUtf16(std::to_string(i));
        css.append(u".some-name-").append(number).append(u" p{color:red}");
        css.append(u".c #name-").append(number).append(u" b{color:red}");
    }
    const HtmlTree tree = ReadHtml(u"<!DOCTYPE html><p class=c>t");
    AllocationCounter counter;
    const CssSheet sheet = ReadCss(css);
    CHECK(counter.Counts().count < 4 * sheet.rules.size());
    AllocationCounter plainCounter;
    StylePage(tree, {}, {});
    const std::size_t without = plainCounter.Counts().allBytes;
    AllocationCounter stylingCounter;
    StylePage(tree, {&sheet, 1}, {});
    CHECK(stylingCounter.Counts().allBytes < without + 50'000);
}

TEST_CASE("css: names of rules are those of the page in any case where that is in quirks mode") {
    const auto left = [](const std::u16string& start) {
        const HtmlTree tree = ReadHtml(start + u"<p class='Note x' id=First>t");
        const CssSheet sheet = ReadCss(u".nOTE{margin-left:3px}#fIRST{margin-right:4px}");
        const CssPageStyles styles = StylePage(tree, {&sheet, 1}, {});
        const CssBoxStyle& box = *styles.Of(tree[tree.Body()].firstChild).box;
        return box.margin[cssLeft].value + box.margin[cssRight].value;
    };
    CHECK(left(u"") == 7);
    CHECK(left(u"<!DOCTYPE html>") == 0);
}

TEST_CASE("css: a page that asks for too much is not styled to its end") {
    // 20,000 rules for each of 20,000 elements.
    const std::u16string css = Repeat(u"*{margin-left:3px}", 20'000);
    const StyledPage page =
        PageOf(css, u"<p id=first>t" + Repeat(u"<p>t", 20'000) + u"<p id=x>last");
    CHECK(page.styles.Steps() < maxCssSteps + maxCssSteps / 10);
    CHECK(page.Box(u"first").margin[cssLeft] == CssLength::Pixels(3));
    CHECK(page.Box().margin[cssLeft] == CssLength::Pixels(0));
    CHECK(page.Box().display == CssDisplay::Block); // by the default sheet
}

// Rules with many declarations: their number is what takes the time.
TEST_CASE("css: declarations count as what they cost") {
    std::u16string body;
    for (int i = 0; i < 400; ++i)
        body += u"<p style='top:" + Utf8ToUtf16(std::to_string(i)) + u"px'>t";
    const std::uint64_t one = StepsOf(Repeat(u"p{top:0}", 4'000), body),
                        ten = StepsOf(Repeat(u"p{" + Repeat(u"top:0;", 10) + u"}", 4'000), body);
    CHECK(ten > 2 * one);
}

// A search for "aa...ab" in "aa...a" compares all of the one at each place of the other.
TEST_CASE("css: parts of attributes are searched within a bound") {
    const std::u16string title = Repeat(u"a", 60'000), part = Repeat(u"a", 1'000);
    const std::u16string body = u"<p id=x title=" + title + u">";
    constexpr std::uint64_t unitsOfStep = 16;
    CHECK(StepsOf(u"[title*=" + part + u"b]{color:red}", body) >= 60'000 * 1'000 / unitsOfStep);
    const auto left = [&](std::u16string_view what) {
        std::u16string css = u"[title*=";
        css += what;
        css += u"]{margin-left:3px}";
        return PageOf(css, body).Box().margin[cssLeft].value;
    };
    CHECK(left(part) == 3);
    CHECK(left(title) == 0); // nobody writes so much
    CHECK(left(u"'" + part + u"' i") == 3);
    CHECK(left(u"'" + title + u"' i") == 0);
}

TEST_CASE("css: sheets cost memory in proportion to their length") {
    struct Nasty {
        std::u16string_view start, piece;
    };
    const Nasty nasty[] = {
        {u"", u"a{top:0}"},
        {u"", u"a"},
        {u"", u"("},
        {u"", u"{"},
        {u"", u"}"},
        {u"", u"@media{"},
        {u"", u"@media(min-width:1px){a{top:0}"},
        {u"", u"a,"},
        {u"", u"a>"},
        {u"", u":not("},
        {u"", u"a{"},
        {u"a{", u"top:0;"},
        {u"a{", u"margin:0;"},
        {u"a{", u"border:0;"},
        {u"a{content:", u"'x'"},
        {u"a{", u"content:'x';"},
        {u"a{", u"font-family:a,b,c;"},
        {u"a{font-family:", u"a,"},
        {u"a{background:", u"a("},
        {u"", u"\\41 "},
        {u"", u"'\\41 ' "},
        {u"", u"url(\\41) "},
        {u"", u"/**/"},
        {u"", u"/*"},
        {u"", u"@import 'a';"},
        {u"", u".a.b.c{top:0}"},
        {u"", u"a{top:0}:is(a,b){left:0}"},
        {u"", u"[a=b]{top:0}"},
        {u"a:nth-child(", u"9"},
        {u"a{top:", u"9"},
        {u"a{top:.", u"9"},
        {u"<!--", u"-->"},
    };
    constexpr std::size_t units = 1'000'000;
    for (const Nasty& one : nasty) {
        std::u16string css(one.start);
        css += Repeat(one.piece, units / one.piece.size());
        AllocationCounter counter;
        const CssSheet sheet = ReadCss(css);
        const AllocationCounts cost = counter.Counts();
        CHECK_MESSAGE(cost.peakBytes < 80 * units, Utf16ToUtf8(one.piece));
        CHECK(sheet.rules.size() <= maxCssRules);
        CHECK(sheet.block.declarations.size() <= maxCssDeclarations);
    }
}

TEST_CASE("css: 130,000 paragraphs cost a number each") {
    const std::u16string html =
        u"<!DOCTYPE html><style>p{margin:1px}.a{color:red}</style>" +
        Repeat(u"<p class=a>text <i>it</i><p style='margin:2px'>text", 65'000);
    const HtmlTree tree = ReadHtml(html);
    const CssSheet sheet = ReadCss(u"p{margin:1px}.a{color:red}p + p i{color:blue}");
    AllocationCounter counter;
    const CssPageStyles styles = StylePage(tree, {&sheet, 1}, {});
    CHECK(counter.Counts().peakBytes < tree.NodeCount() * 4 + 200'000);
    CHECK(styles.Count() < 12);
}

TEST_CASE("css: long attributes are read once, or not to their end") {
    // The parser opens the font again in each paragraph, with the same long attributes.
    const std::u16string style = u"font-family:" + Repeat(u"a,", 500'000) + u"b";
    const StyledPage page(u"<!DOCTYPE html><font style='" + style + u"' class='" +
                          Repeat(u"x ", 500'000) + u"' face='" + Repeat(u"a,", 500'000) +
                          u"b' color='" + Repeat(u" ", 500'000) + u"red'>" +
                          Repeat(u"<p>text", 5000));
    CHECK(page.styles.Steps() < maxCssSteps + 4'000'000);
    CHECK(page.styles.Count() < 10);
}

TEST_CASE("css: variables are resolved within a bound, and kept once") {
    std::u16string sheet = u"*{";
    for (int i = 0; i < 200; ++i)
        sheet += u"--v" + Utf8ToUtf16(std::to_string(i)) + u":" + Repeat(u"x ", 2000) + u";";
    // Styles that differ, so that each element has its variables resolved.
    const auto stepsWith = [&](int elements) {
        std::u16string body;
        for (int i = 0; i < elements; ++i)
            body += u"<p style='width:" + Utf8ToUtf16(std::to_string(i)) + u"px'>text";
        return StyledPage(u"<!DOCTYPE html><style>" + sheet + u"}</style>" + body).styles.Steps();
    };
    const std::uint64_t unitsOfVariables = 200 * 4000;
    CHECK(stepsWith(20) - stepsWith(10) >= 10 * unitsOfVariables);
    CHECK(stepsWith(500) < maxCssSteps + 4'000'000);

    // The same variables at each of many elements cost their memory once.
    std::u16string same = u"<!DOCTYPE html><style>:root{--a:" + Repeat(u"x", 4000) + u"}" +
                          u"i{font-size:7px}p{width:var(--w)}</style>";
    for (int i = 0; i < 4000; ++i)
        same += u"<p style='--w:1px;height:" + Utf8ToUtf16(std::to_string(i)) + u"px'><i></i>";
    const StyledPage small(same + u"<p id=x style='--w:9px'>");
    CHECK(small.Box().width == CssLength::Pixels(9));
}

TEST_CASE("css: a list of fonts for each element is found by its names") {
    std::u16string html = u"<!DOCTYPE html>";
    for (int i = 0; i < 30'000; ++i)
        html += u"<p style='font-family:a" + Utf8ToUtf16(std::to_string(i)) + u"'>text";
    const StyledPage page(html + u"<p id=x style='font-family:a29999'>text");
    CHECK(page.Text().families == 0); // beyond the limit: the reader's own
    CHECK(page.styles.Count() < maxCssLists + 10);
}

TEST_CASE("css: a window of another size asks for other styles where it was asked for") {
    CHECK(PageOf(u"@media (min-width:1px){p{color:red}}", u"<p>t").styles.DependsOnViewport());
    CHECK(PageOf(u"p{width:1vw}", u"<p>t").styles.DependsOnViewport());
    CHECK_FALSE(PageOf(u"p{width:1%}b{width:1vw}", u"<p>t").styles.DependsOnViewport());
}
