// What a page that means harm costs: memory and work in proportion to its size, whatever is nested
// in what.
#include "allocations.h"
#include "common/text.h"
#include "common/utf.h"
#include "formats/html/html_limits.h"
#include "formats/html/html_reader.h"
#include "formats/html/html_tree_builder.h"
#include "tests/html_tree_check.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace std::string_view_literals;

namespace {

std::u16string Repeat(std::u16string_view start, std::u16string_view piece, std::size_t units) {
    std::u16string page(start);
    while (page.size() < units)
        page += piece;
    return page;
}

struct Cost {
    std::uint64_t steps = 0;
    AllocationCounts memory;
    std::size_t nodes = 0;
};

Cost CostOfReading(std::u16string page) {
    const AllocationCounter counter;
    HtmlTree tree;
    HtmlTreeBuilder builder(tree, std::move(page));
    builder.Build();
    const Cost cost{builder.Steps(), counter.Counts(), tree.NodeCount()};
    CHECK(html_tree_check::FirstFault(tree) == "");
    return cost;
}

struct NastyPage {
    std::u16string_view start, piece;
};

const NastyPage nastyPages[] = {
    {u"", u"<div>"},
    {u"", u"<p>"},
    {u"", u"<b>"},
    {u"", u"<p>x"},
    {u"", u"<b><p>"},
    {u"", u"<b><p></b>"},
    {u"", u"<b><i><p></b>"},
    {u"", u"<a><div>"},
    {u"", u"<a href=x>y<p>"},
    {u"", u"<nobr><p>"},
    {u"", u"</b>"},
    {u"", u"</p>"},
    {u"", u"</br>"},
    {u"", u"<table>"},
    {u"", u"<table><td>"},
    {u"", u"<table>x"},
    {u"", u"<table><b>x"},
    {u"<table>", u"<tr>x"},
    {u"<table>", u"x<tr>"},
    {u"<table>", u"<b>"},
    {u"<table><td>", u"<table></table>"},
    {u"", u"<ul><li>"},
    {u"<ul>", u"<li>"},
    {u"", u"<dl><dd>"},
    {u"", u"<svg>"},
    {u"<svg>", u"<g>"},
    {u"<svg>", u"<g></x>"},
    {u"", u"<svg><foreignObject>"},
    {u"", u"<math><mi>"},
    {u"<svg><![CDATA[", u"x\0"sv},
    {u"", u"<template>"},
    {u"", u"<template><tr>"},
    {u"", u"<select><object>"},
    {u"", u"<select><option><selectedcontent>"},
    {u"", u"<button>"},
    {u"", u"<object><b>"},
    {u"", u"<form><div></form>"},
    {u"", u"<ruby><rt>"},
    {u"", u"<body a>"},
    {u"", u"<h1>"},
    {u"", u"&amp;"},
    {u"", u"x&amp;y</z>"},
    {u"", u"&#"},
    {u"<p title='", u"&amp;"},
    {u"", u"<!--"},
    {u"<!--", u"--!"},
    {u"", u"<!-- x -->"},
    {u"", u"<!doctype"},
    {u"<script>", u"<!--<script>"},
    {u"<title>", u"</titl"},
    {u"<title>", u"&amp;"},
    {u"<a ", u"x=y "},
    {u"", u"<a b=1 c=2 d=3>"},
    {u"", u"\0"sv},
    {u"<frameset>", u"<frameset>"},
    {u"<pre>", u"\n"},
};

// What stands deep below the piece that is repeated.
std::u16string Below(std::u16string_view deep, std::u16string_view piece, std::size_t units) {
    return Repeat(Repeat(u"", deep, units / 2), piece, units);
}

constexpr std::size_t nastyUnits = 200'000;
constexpr std::size_t constantCost = 16'000'000;
constexpr std::size_t bytesPerUnit = 110;
constexpr std::uint64_t stepsPerUnit = 130;

// Twice the size shows what a unit costs without the constants.
template <typename MakePage>
void CheckCost(MakePage makePage) {
    const Cost one = CostOfReading(makePage(nastyUnits));
    const Cost two = CostOfReading(makePage(2 * nastyUnits));
    CHECK(one.memory.peakBytes <= bytesPerUnit * nastyUnits + constantCost);
    CHECK(two.memory.peakBytes <= 2 * bytesPerUnit * nastyUnits + constantCost);
    CHECK(one.steps <= stepsPerUnit * nastyUnits);
    CHECK(two.steps <= 3 * std::max<std::uint64_t>(one.steps, 10'000));
    CHECK(two.memory.count <= 3 * std::max<std::size_t>(one.memory.count, 10'000));
}

} // namespace

TEST_CASE("html limits: memory and work are in proportion to the page") {
    for (const NastyPage& c : nastyPages) {
        CAPTURE(std::string(c.start.begin(), c.start.end()));
        CAPTURE(std::string(c.piece.begin(), c.piece.end()));
        CheckCost([&](std::size_t units) { return Repeat(c.start, c.piece, units); });
    }
}

// Whether a formatting element is one of the last three again is asked of all that are open.
TEST_CASE("html limits: formatting elements with many attributes") {
    std::u16string attributes;
    for (char16_t first = u'a'; first < u'h'; ++first)
        for (char16_t second = u'a'; second <= u'z'; ++second)
            attributes += {u' ', first, second};
    const auto page = [&](bool differ, std::size_t units) {
        std::u16string all;
        for (int i = 0; all.size() < units; ++i) {
            all += u"<font" + attributes;
            if (differ) all += u" zz=" + Utf8ToUtf16(std::to_string(i));
            all += u">x";
        }
        return all;
    };
    CheckCost([&](std::size_t units) { return page(true, units); });
    CheckCost([&](std::size_t units) { return page(false, units); });
}

TEST_CASE("html limits: whatever is nested costs no more for what stands in it") {
    const std::u16string_view pieces[] = {
        u"<div></div>", u"<p></p>",   u"<li></li>",         u"<b></b>", u"<b><p></b></p>",
        u"</x>",        u"</b>",      u"<table></table>",   u"x",       u"<a></a>",
        u"<nobr>",      u"</form>",   u"<form></form>",     u"</h1>",   u"<svg></svg>",
        u"</svg>",      u"<br></br>", u"<select></select>", u"<hr>",    u"<template></template>",
    };
    const std::u16string_view nests[] = {u"<div>",     u"<span>",   u"<b><div>", u"<object><div>",
                                         u"<ul><div>", u"<svg><g>", u"<a><div>", u"<table><td>"};
    for (const std::u16string_view nest : nests)
        for (const std::u16string_view piece : pieces) {
            CAPTURE(std::string(nest.begin(), nest.end()));
            CAPTURE(std::string(piece.begin(), piece.end()));
            CheckCost([&](std::size_t units) { return Below(nest, piece, units); });
        }
}

TEST_CASE("html limits: formatting elements that all differ") {
    CheckCost([](std::size_t units) {
        std::u16string page;
        for (int i = 0; page.size() < units; ++i)
            page += u"<b id=" + NumberText(i) + u"><p>";
        return page;
    });
}

TEST_CASE("html limits: names of elements and attributes that all differ") {
    CheckCost([](std::size_t units) {
        std::u16string page;
        for (int i = 0; page.size() < units; ++i) {
            const std::u16string name = NumberText(i);
            page.append(u"<x").append(name).append(u" y").append(name);
            page.append(u"></x").append(name).append(u">");
        }
        return page;
    });
}

TEST_CASE("html limits: a million nested elements are as deep as browsers make them") {
    const HtmlTree tree = ReadHtml(Repeat(u"", u"<div>", 5'000'000) + u"deep");
    CHECK(html_tree_check::FirstFault(tree) == "");
    CHECK(tree.NodeCount() > 1'000'000);
    CHECK(html_tree_check::Depth(tree) == maxHtmlDepth);
}

TEST_CASE("html limits: elements beyond the depth stay as empty ones before what was in them") {
    std::u16string page = u"<body>" + Repeat(u"", u"<i>", 3 * maxHtmlDepth) + u"one<b>two</b>three";
    const HtmlTree tree = ReadHtml(page);
    std::u16string text;
    for (HtmlNodeId id = tree.Body(); id != noHtmlNode; id = tree.Next(id, tree.Body()))
        text += tree[id].IsText() ? tree[id].Text() : u"";
    CHECK(text == u"onetwothree");
}

TEST_CASE("html limits: an attribute of 10 MB costs no memory of its own") {
    std::u16string page = u"<p title='" + std::u16string(5'000'000, u'x') + u"'>text";
    const AllocationCounter counter;
    const HtmlTree tree = ReadHtml(std::move(page));
    CHECK(counter.Counts().peakBytes < 8'000'000); // room for the nodes of a page of this length
    const HtmlNode& p = tree[tree[tree.Body()].firstChild];
    REQUIRE(p.Attribute(HtmlName::Title) != nullptr);
    CHECK(p.Attribute(HtmlName::Title)->length == 5'000'000);
}

TEST_CASE("html limits: a longer attribute is cut") {
    const HtmlTree tree =
        ReadHtml(u"<p title='" + std::u16string(maxHtmlAttributeLength + 9, u'x') + u"'>text");
    const HtmlNode& p = tree[tree[tree.Body()].firstChild];
    REQUIRE(p.Attribute(HtmlName::Title) != nullptr);
    CHECK(p.Attribute(HtmlName::Title)->length == maxHtmlAttributeLength);
}

TEST_CASE("html limits: beyond the last node tags are skipped and the text stays") {
    std::u16string page = u"<title>t</title>" + Repeat(u"", u"<br>", 4 * maxHtmlNodes);
    page += u"<p>one<script>no</script><table><td>two</p>";
    const HtmlTree tree = ReadHtml(page);
    CHECK(html_tree_check::FirstFault(tree) == "");
    CHECK(tree.NodeCount() < maxHtmlNodes + 1000);
    const HtmlNode& last = tree[tree[tree.Body()].lastChild];
    CHECK(last.Text() == u"onenotwo");
}

TEST_CASE("html limits: names beyond the last are one name") {
    std::u16string page;
    for (std::size_t i = 0; i < maxHtmlNames + 10; ++i)
        page += u"<x" + NumberText(static_cast<std::int64_t>(i)) + u" a>";
    const HtmlTree tree = ReadHtml(page + u"text");
    CHECK(html_tree_check::FirstFault(tree) == "");
    CHECK(tree.Names().Count() == maxHtmlNames + 1);
    HtmlNodeId last = tree.Body();
    for (HtmlNodeId id = last; id != noHtmlNode; id = tree.Next(id))
        if (tree[id].IsElement()) last = id;
    CHECK(tree[last].name == HtmlName(maxHtmlNames));
}

TEST_CASE("html limits: attributes beyond the last are left out") {
    std::u16string page = u"<p";
    for (std::size_t i = 0; i < maxHtmlAttributes + 10; ++i)
        page += u" x" + NumberText(static_cast<std::int64_t>(i));
    const HtmlTree tree = ReadHtml(page + u">text");
    CHECK(tree[tree[tree.Body()].firstChild].Attributes().size() == maxHtmlAttributes);
}
