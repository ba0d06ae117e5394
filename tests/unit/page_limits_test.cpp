// Pages that are too long for parts of them to be laid out in one go. Work is counted in the texts
// that the system is given to break.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace {
std::u16string Repeated(std::u16string_view text, int times) {
    std::u16string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

// As lines stand with such limits.
std::string Lines(const std::u16string& body, const PageLimits& limits, double width = 400) {
    return PageSample(body, limits).Lines(width);
}

// So that a line or two, or a row or two, are too long.
constexpr PageLimits low{512, 64, 128}, someLines{512, 256, 128};

// The texts given to the system for one of the page's zones.
int TextsOfZone(PageSample& page, std::size_t zone) {
    const int before = page.system.paragraphs;
    page.flow.LayOut(zone);
    return page.system.paragraphs - before;
}

struct Work {
    std::size_t zones = 0;
    int most = 0; // texts of a zone
};
Work WorkOf(const std::u16string& body) {
    PageSample page(body);
    page.flow.SetWidth(400);
    Work work{page.flow.ZoneCount(), 0};
    for (const std::size_t zone : {std::size_t{0}, work.zones / 2, work.zones - 1})
        work.most = std::max(work.most, TextsOfZone(page, zone));
    return work;
}
} // namespace

TEST_CASE("page limits: a long text goes on in a new line after a space") {
    const std::u16string text = Repeated(u"seven.. ", 12);
    CHECK(Lines(u"<p>" + text, {}) == "0,16 seven.. seven.. seven.. seven.. seven.. seven..|"
                                      "0,32 seven.. seven.. seven.. seven.. seven.. seven..");
    CHECK(Lines(u"<p>" + text, low) ==
          "0,16 seven.. seven.. seven.. seven.. seven.. seven..|0,32 seven.. seven..|"
          "0,48 seven.. seven.. seven.. seven..");
    CHECK(Lines(u"<p style='text-indent:16px'>" + text + u"<p>x", low, 4000) ==
          "16,16 " +
              std::string("seven.. seven.. seven.. seven.. seven.. seven.. seven.. seven..") +
              "|0,32 seven.. seven.. seven.. seven..|0,64 x");
}

TEST_CASE("page limits: where lines end anyway, a long text is as it would be without limits") {
    const std::u16string pages[] = {u"<pre>" + Repeated(u"some line\n", 40) + u"</pre>x",
                                    u"<pre>" + Repeated(u"<b>some</b> line\n\n", 40) + u"</pre>x",
                                    u"<p>" + Repeated(u"some line<br>", 40) + u"<p>x",
                                    u"<p>" + Repeated(u"some <i>line<br></i>", 40) + u"<p>x",
                                    u"<ol><li>" + Repeated(u"some line<br><br>", 40) +
                                        u"<li>x</ol>"};
    for (const std::u16string& body : pages) {
        PageSample page(body, someLines);
        CHECK(page.Lines(400) == Lines(body, {}));
        CHECK(page.flow.ZoneCount() > 2);
    }
}

TEST_CASE("page limits: a long word is divided between characters") {
    PageSample page(u"<p>" + Repeated(u"e\u0301\U0001F600", 60), low);
    std::size_t units = 0;
    for (PageBoxId id = rootPageBox; id < page.boxes.End(); ++id) {
        if (page.boxes[id].kind != PageBoxKind::Lines) continue;
        const auto content = page.text.TextOf(id).content;
        const std::u16string& text = content->text.text;
        CHECK((text.front() == u'e' || text.front() == u'\xD83D'));
        units += text.size();
        REQUIRE(content->origins.size() == 1);
        const InlineOrigin& origin = content->origins.front();
        CHECK(page.boxes.BoxOf(origin.node, origin.unit) == id);
        CHECK(page.boxes.BoxOf(origin.node, origin.unit + text.size() - 1) == id);
    }
    CHECK(units == 60 * 4);
}

TEST_CASE("page limits: a table in parts has the columns and rows that it has in one") {
    std::u16string rows;
    for (int i = 0; i < 12; ++i)
        rows += u"<tr><td>" + Repeated(u"w", i == 0 ? 9 : 1 + i % 5) + u"<td>right";
    const std::u16string table = u"<table border=3 cellspacing=2>" + rows + u"</table>x";
    PageSample page(table, low);
    CHECK(page.Boxes().find("Table(RowGroup(Row(Cell(") != std::string::npos);
    CHECK(page.Lines(400) == Lines(table, {}));
    CHECK(page.flow.ZoneCount() > 4);
    const std::u16string around = u"<div style='padding:7px'><p>a" + table + u"</div><p>b";
    CHECK(Lines(around, low) == Lines(around, {}));
}

TEST_CASE("page limits: a table in parts has room for columns of a few rows in the middle") {
    for (const std::u16string cell : {u"<td>third", u"<td colspan=2>third"}) {
        const std::u16string rows = Repeated(u"<tr><td>a<td>b", 60);
        std::u16string table = u"<table cellpadding=0>";
        table.append(rows).append(u"<tr><td>a<td>b").append(cell).append(rows).append(u"</table>");
        const std::string lines = Lines(table, low);
        CHECK(lines.find(" third|") != std::string::npos);
    }
}

TEST_CASE("page limits: a table is divided where no cell spans rows, unless it never ends") {
    const std::u16string spanning = u"<tr><td rowspan=3>a<td>b<tr><td>c<tr><td>d";
    const std::u16string table = u"<table>" + Repeated(spanning, 8) + u"</table>";
    CHECK(PageSample(table, low).flow.ZoneCount() > 4);
    CHECK(Lines(table, low) == Lines(table, {}));
    const std::u16string endless = u"<table><tr><td rowspan=999>a" + Repeated(u"<tr><td>b", 60);
    CHECK(PageSample(endless, low).flow.ZoneCount() > 4);
}

TEST_CASE("page limits: a table with a row that is too long is blocks one below the other") {
    const std::u16string text = Repeated(u"<p>some words", 40);
    PageSample page(u"<table><tr><td>side<td>" + text + u"</table>", low);
    CHECK(page.Boxes().find("Table") == std::string::npos);
    CHECK(page.Lines(400).starts_with("1,1 side|1,35 some words|1,67 some words|"));
    CHECK(page.flow.ZoneCount() == 41);
}

TEST_CASE(
    "page limits: blocks that would stand by themselves are of the flow if they are too long") {
    const std::u16string text = Repeated(u"<p>some words", 40);
    for (const char16_t* style : {u"overflow:auto", u"float:left", u"position:absolute",
                                  u"display:inline-block", u"height:9px"}) {
        PageSample page(u"<div style='" + std::u16string(style) + u"'>" + text + u"</div><p>x",
                        low);
        CHECK(page.flow.ZoneCount() == 41);
        CHECK(page.Lines(400).ends_with("|0,1264 some words|0,1296 x"));
    }
}

TEST_CASE("page limits: floats without text end below each other at last") {
    const Work work = WorkOf(Repeated(u"<div><i style='float:left'>x</i></div>", 20'000));
    CHECK(work.zones > 10);
    CHECK(work.most < 3 * 1024 + 100);
    const Work inOne = WorkOf(u"<p>" + Repeated(u"<i style='float:left'>x</i>", 20'000));
    CHECK(inOne.zones > 4);
    CHECK(inOne.most < 3 * 4096 + 100);
}

TEST_CASE("page limits: what is shown of a page takes bounded work") {
    const Work text = WorkOf(u"<p>" + Repeated(u"some words ", 200'000));
    CHECK(text.zones > 60);
    CHECK(text.most <= 4);
    const Work rows = WorkOf(u"<table>" + Repeated(u"<tr><td>a<td>b", 50'000));
    CHECK(rows.zones > 60);
    CHECK(rows.most < 10'000);
    const Work cells = WorkOf(u"<table>" + Repeated(u"<tr>" + Repeated(u"<td>a", 300), 300));
    CHECK(cells.zones > 40);
    CHECK(cells.most < 12'000);
    const Work blocks =
        WorkOf(u"<p>" + Repeated(u"<b style='display:inline-block'>x</b> ", 20'000));
    CHECK(blocks.zones > 100);
    CHECK(blocks.most < 400);
}

TEST_CASE("page limits: lines without a height do not bring all of a page to one place") {
    PageSample page(u"<p style='line-height:0'>" + Repeated(u"some words ", 200'000));
    page.flow.SetWidth(400);
    const auto zones = page.flow.ZoneCount();
    double height = 0;
    std::size_t shown = 0;
    for (; shown < zones && height < 800; ++shown)
        height += page.flow.HeightOf(shown);
    CHECK(shown < zones / 2);
    const int texts = page.system.paragraphs;
    for (std::size_t zone = 0; zone < shown; ++zone)
        page.flow.LayOut(zone);
    CHECK(page.system.paragraphs == texts); // all of them were kept
    PageSample usual(u"<p>" + Repeated(u"some words ", 200'000));
    usual.flow.SetWidth(30'000);
    CHECK(std::fmod(usual.flow.HeightOf(1), 16) == 0); // its lines have it as they are
}

TEST_CASE("page limits: zones that stay laid out are few where they are long") {
    PageSample page(u"<p>" + Repeated(u"some words ", 200'000));
    page.flow.SetWidth(400);
    const auto zones = page.flow.ZoneCount();
    for (std::size_t zone = 0; zone < zones; ++zone)
        page.flow.LayOut(zone);
    CHECK(TextsOfZone(page, zones - 2) == 0);
    CHECK(TextsOfZone(page, zones - 30) > 0);
}

TEST_CASE("page limits: of styles without number not all stay prepared") {
    PageSample page(u"<p>text");
    const CssInheritedStyle& style = *page.boxes[rootPageBox].text;
    std::vector<std::weak_ptr<const PreparedStyle>> styles;
    styles.reserve(20'000);
    for (int i = 0; i < 20'000; ++i)
        styles.push_back(page.fonts.Of(style, {double(i), false, std::nullopt}));
    CHECK(std::ranges::count_if(styles, [](const auto& each) { return !each.expired(); }) < 10'000);
    CHECK(page.fonts.Of(style) == page.fonts.Of(style));
}

TEST_CASE("page limits: marks without end on a letter are not all shaped") {
    PageSample page(u"<p>a" + Repeated(u"\u0301", 1000));
    const std::u16string text = page.text.TextOf(3).content->text.text;
    CHECK(text.size() == 1001);
    CHECK(std::count(text.begin(), text.end(), u'\u0301') < 40);
}

TEST_CASE("page limits: text that systems take long for is in small parts, wherever it stands") {
    const auto longest = [](const std::u16string& text) {
        PageSample page(u"<p>" + text);
        std::uint32_t units = 0;
        for (PageBoxId id = rootPageBox; id < page.boxes.End(); ++id)
            units = std::max(units, page.boxes[id].units);
        return units;
    };
    const std::u16string words = Repeated(u"some words ", 1000);
    CHECK(longest(words) > 10'000);
    CHECK(longest(Repeated(u"\u202B\u202C", 10'000)) <= 2048);
    CHECK(longest(Repeated(u"\u2067a\u2069", 10'000)) <= 2048);
    CHECK(longest(Repeated(u"\U0001D49C", 10'000)) <= 2048);
    CHECK(longest(std::u16string(20'000, u'a')) <= 2048 + 512);
    CHECK(longest(words + Repeated(u"\u2067a\u2069", 1000)) > 10'000);
    PageSample page(u"<p>" + Repeated(words, 3) + Repeated(u"\u2067a\u2069", 10'000));
    CHECK(page.boxes[page.boxes.End() - 1].units <= 2048);
}

TEST_CASE("page limits: cells without a table that are too many for one are blocks, all of them") {
    const std::u16string cells = Repeated(u"<div style='display:table-cell'>some words</div>", 4);
    CHECK(PageSample(cells).Boxes().find("Table") != std::string::npos);
    CHECK(PageSample(cells, low).Boxes().find("Table") != std::string::npos);
    CHECK(PageSample(Repeated(cells, 10), low).Boxes().find("Table") == std::string::npos);
    const std::u16string columns = u"<div style='display:table-column'></div>";
    CHECK(PageSample(columns + u"a" + columns + cells).Boxes().find("Table") != std::string::npos);
    CHECK(PageSample(Repeated(columns, 4) + u"a").Boxes().find("Table") == std::string::npos);
}

TEST_CASE("page limits: blocks in lines that hold much are not all in the same lines") {
    const std::u16string nested =
        Repeated(u"<i style='display:inline-block'>x ", 400) + Repeated(u"</i>", 400);
    const Work work = WorkOf(Repeated(nested, 60));
    CHECK(work.zones > 3);
    CHECK(work.most < 60'000);
}

TEST_CASE("page limits: boxes out of the flow without end come to stand in it") {
    PageSample page(u"<p>text" + Repeated(u"<div style='position:absolute'>x</div>", 60'000));
    page.flow.SetWidth(400);
    CHECK(TextsOfZone(page, page.flow.ZoneCount() - 1) < 1000);
    for (std::size_t zone = 0; zone < page.flow.ZoneCount(); ++zone)
        page.flow.LayOut(zone);
    CHECK(page.flow.Heights().Total() > 50'000 * 16);
}

TEST_CASE(
    "page limits: boxes beside earlier text are few, and not laid out with all that is theirs") {
    const std::u16string box = u"<p style='position:absolute;top:0;left:0;width:9px'>x</p>";
    PageSample page(u"<div style='margin-left:60px'>" + Repeated(u"<p>text", 1000) + u"</div>" +
                    Repeated(u"<p>y" + box, 50'000));
    page.flow.SetWidth(400);
    const std::size_t last = page.flow.ZoneCount() - 1;
    CHECK(TextsOfZone(page, last) < 1000);
    CHECK(TextsOfZone(page, 0) < 1000);
    CHECK(page.flow.LayoutsMade() <= 2);
    // Each in a container of its own.
    const std::u16string each = u"<div style='position:relative'>" + Repeated(u"<p>text", 40) + box;
    PageSample nested(Repeated(each, 400));
    nested.flow.SetWidth(400);
    TextsOfZone(nested, nested.flow.ZoneCount() / 2);
    CHECK(nested.flow.LayoutsMade() < 40);
}

TEST_CASE("page limits: rows in rows, all too long, take bounded work in each part") {
    const std::u16string row = u"<div style='display:flex'><nav style='width:9px'>x</nav>"
                               u"<main style='flex:1'>";
    PageSample page(Repeated(row, 200) + Repeated(u"<p>text", 1000), low);
    page.flow.SetWidth(4000);
    const std::size_t zones = page.flow.ZoneCount();
    CHECK(zones > 10);
    CHECK(TextsOfZone(page, zones / 2) < 3000);
    CHECK(TextsOfZone(page, zones - 1) < 3000);
    CHECK(page.flow.LayoutsMade() < 10);
}
