#include "paper.h"

#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "view/html/page_cuts.h"
#include "view/html/print_html.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace {
constexpr int headAndFoot = 2 * 11; // pixels of a sheet: two lines of 8 points each

// Pictures are remembered where they are drawn.
class FramedPictures : public NoPictures {
  public:
    bool Draw(Canvas&, const Picture&, const Rect& box) override {
        drawn.push_back(box);
        return true;
    }
    std::vector<Rect> drawn;
};

class RememberedStyles : public NoneLineLayout {
  public:
    StyleHandle Prepare(const TextStyle& style) override {
        styles.push_back(style);
        return NoneLineLayout::Prepare(style);
    }
    std::vector<TextStyle> styles;
};

struct Job {
    explicit Job(std::string_view body)
        : page(u"/book/page.htm", "<!DOCTYPE html><body>" + std::string(body), 1252),
          files(disk, page) {
        AddPicture(1, 1);
    }
    void AddPicture(int width, int height) {
        std::string png = std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);
        for (const int size : {width, height})
            png += {0, 0, char(size >> 8), char(size)};
        disk.AddFile(u"/book/a.png", png);
    }
    PrintEnd Print() {
        return PrintHtml({page, files, sheets, zoom, u"The Title", pageRanges}, lines, pictures,
                         paper);
    }
    // Between head and foot, in order.
    std::vector<std::u16string> Body(std::size_t sheet) const {
        auto texts = paper.Texts(sheet);
        texts.erase(texts.begin(), texts.begin() + 2);
        return texts;
    }
    NoneClock clock;
    NoneFiles disk{clock};
    LoadedPage page;
    PageFiles files;
    std::vector<std::u16string> sheets;
    int zoom = 100;
    PageRanges pageRanges;
    RememberedStyles lines;
    FramedPictures pictures;
    Paper paper;
};

std::string Paragraphs(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "<p>line " + std::to_string(i) + "</p>";
    return text;
}

std::u16string Digits(int number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

const NoneDrawing* Find(const NoneCanvas& canvas, std::u16string_view text) {
    const auto& all = canvas.drawings;
    const auto found = std::ranges::find(all, text, &NoneDrawing::text);
    return found == all.end() ? nullptr : &*found;
}
} // namespace

TEST_CASE("print html: every line once, in order, with the title above and the number below") {
    Job job(Paragraphs(60));
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.paper.pages.size() > 3);
    int line = 0;
    for (std::size_t sheet = 0; sheet < job.paper.pages.size(); ++sheet) {
        CHECK(job.paper.Texts(sheet)[0] == u"The Title");
        CHECK(job.paper.Texts(sheet)[1] == Digits(int(sheet) + 1));
        for (const std::u16string& text : job.Body(sheet))
            CHECK(text == u"line " + Digits(line++));
    }
    CHECK(line == 60);
}

TEST_CASE("print html: no line is cut, and a sheet does not begin with space") {
    Job job(Paragraphs(60));
    REQUIRE(job.Print() == PrintEnd::Done);
    std::vector<int> first;
    for (const NoneCanvas& sheet : job.paper.pages) {
        for (const NoneDrawing& drawing : sheet.drawings)
            CHECK(drawing.baseline <= 300);
        first.push_back(sheet.drawings.at(2).baseline);
    }
    for (std::size_t i = 2; i < first.size(); ++i)
        CHECK(first[i] == first[1]);
    CHECK(first[1] < first[0]); // above the first paragraph of all is its margin
}

TEST_CASE("print html: a paragraph that is longer than a sheet goes on over the next ones") {
    std::string words = "<p>";
    for (int i = 0; i < 3000; ++i)
        words += "word ";
    Job job(words + "end</p>");
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(job.paper.pages.size() > 10);
    CHECK(job.Body(job.paper.pages.size() - 1).back().ends_with(u"end"));
}

TEST_CASE("print html: the chosen pages alone; given up; failed") {
    Job job(Paragraphs(60));
    job.pageRanges = {[](int page) { return page == 2; }, 2};
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.paper.pages.size() == 1);
    CHECK(job.paper.Texts(0)[1] == u"2");
    Job given(Paragraphs(60));
    given.paper.endAfter = 0;
    CHECK(given.Print() == PrintEnd::GivenUp);
    CHECK(given.paper.pages.empty());
    Job failed(Paragraphs(60));
    failed.paper.failAt = 1;
    CHECK(failed.Print() == PrintEnd::Failed);
}

TEST_CASE("print html: an empty page is one sheet") {
    Job job("");
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(job.paper.pages.size() == 1);
}

TEST_CASE("print html: a picture stands on one sheet, and one larger than that becomes smaller") {
    Job job(Paragraphs(3) + "<p><img src=a.png></p>" + Paragraphs(3));
    job.AddPicture(100, 200);
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.pictures.drawn.size() == 1);
    CHECK(job.pictures.drawn[0].height == 200);
    CHECK(Bottom(job.pictures.drawn[0]) <= 300 - headAndFoot);
    CHECK(job.Body(0).size() == 3);

    Job large("<img src=a.png>");
    large.AddPicture(1000, 1000);
    REQUIRE(large.Print() == PrintEnd::Done);
    REQUIRE(large.pictures.drawn.size() >= 1);
    CHECK(large.pictures.drawn[0].width <= 300);
    CHECK(large.pictures.drawn[0].width == large.pictures.drawn[0].height);
}

TEST_CASE("print html: a row of a table stands on one sheet, and the table on several") {
    std::string table = "<table>";
    for (int row = 0; row < 12; ++row)
        table += "<tr><td>first<br>second<br>third<td>x" + std::to_string(row);
    Job job(table + "</table>");
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.paper.pages.size() > 2);
    for (std::size_t sheet = 0; sheet < job.paper.pages.size(); ++sheet) {
        const auto texts = job.Body(sheet);
        CHECK(std::ranges::count(texts, u"first") == std::ranges::count(texts, u"third"));
    }
    CHECK(job.Body(0).size() >= 8); // and no sheet is left half empty
}

TEST_CASE("print html: each sheet of a table begins with its head") {
    std::string rows;
    for (int i = 0; i < 40; ++i)
        rows += "<tr><td>row " + std::to_string(i);
    Job job("<table><thead><tr><th>head</thead>" + rows + "</table><p>after");
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(job.paper.pages.size() > 2);
    std::vector<std::u16string> all;
    for (std::size_t sheet = 0; sheet < job.paper.pages.size(); ++sheet) {
        const auto body = job.Body(sheet);
        CHECK(body.front() == u"head");
        all.insert(all.end(), body.begin() + 1, body.end());
    }
    REQUIRE(all.size() == 41);
    for (int i = 0; i < 40; ++i)
        CHECK(all[std::size_t(i)] == u"row " + Digits(i));
}

TEST_CASE("print html: what is wider than the paper makes all of it smaller") {
    const std::string wide = "<table border=1 width=700><tr><td>wide</table>";
    Job job(Paragraphs(1)), smaller(Paragraphs(1) + wide);
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(smaller.Print() == PrintEnd::Done);
    const NoneDrawing *as = Find(job.paper.pages[0], u"line 0"),
                      *less = Find(smaller.paper.pages[0], u"line 0");
    REQUIRE(as);
    REQUIRE(less);
    CHECK(less->baseline < as->baseline);
}

TEST_CASE("print html: lines that do not wrap on the screen do so on paper") {
    Job job("<pre>" + std::string(30, 'a') + " " + std::string(30, 'b') + "</pre>");
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(Find(job.paper.pages[0], std::u16string(30, u'b')));
}

TEST_CASE("print html: letters on dark boxes are black on white, and no box is filled") {
    Job job("<p style='background:#000080;color:#ffffff'>bright <b style='color:#800000'>red</b>");
    REQUIRE(job.Print() == PrintEnd::Done);
    for (const NoneDrawing& drawing : job.paper.pages[0].drawings)
        CHECK(drawing.kind == NoneDrawing::Kind::Text);
    bool red = false;
    for (const TextStyle& style : job.lines.styles) {
        CHECK(style.color.value_or(0) != 0xFFFFFF);
        CHECK_FALSE(style.background);
        red = red || style.color == 0x000080; // blue, green, red
    }
    CHECK(red);
}

TEST_CASE("print html: the size is the reader's") {
    Job job(Paragraphs(60)), large(Paragraphs(60));
    large.zoom = 200;
    REQUIRE(job.Print() == PrintEnd::Done);
    REQUIRE(large.Print() == PrintEnd::Done);
    CHECK(large.paper.pages.size() > job.paper.pages.size() * 3 / 2);
}

TEST_CASE("print html: cuts are moved up, from span to span") {
    using enum SolidSpan::Kind;
    const std::vector<SolidSpan> spans = {{0, 100, Line}, {90, 200, Part}, {180, 260, Line}};
    CHECK(CutBetween(spans, Part, 0, 300) == 300);
    CHECK(CutBetween(spans, Part, 0, 220) == 0);
    CHECK(CutBetween(spans, Line, 0, 220) == 180);
    CHECK(CutBetween(spans, Line, 0, 150) == 150);
    CHECK(CutBetween(spans, Line, 50, 80) == 50);
}

namespace {
// On which sheet a text stands; -1 for none.
int SheetOf(const Job& job, std::u16string_view text) {
    for (std::size_t sheet = 0; sheet < job.paper.pages.size(); ++sheet)
        if (Find(job.paper.pages[sheet], text)) return int(sheet);
    return -1;
}

std::string Breaks(int count, char letter) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += std::string(1, letter) + std::to_string(i) + "<br>";
    return text;
}
} // namespace

TEST_CASE("print html: a heading stands on the sheet of what follows it") {
    for (int above = 1; above < 20; ++above) {
        Job job("<p style='margin:0'>" + Breaks(above, 'a') +
                "</p><h3 style='margin:0;font-size:16px'>heading</h3><p style='margin:0'>" +
                Breaks(3, 'b'));
        REQUIRE(job.Print() == PrintEnd::Done);
        CHECK(SheetOf(job, u"heading") == SheetOf(job, u"b0"));
        CHECK(SheetOf(job, u"a0") == 0);
    }
}

TEST_CASE("print html: a heading does not stand with the space below it alone") {
    for (int above = 1; above < 20; ++above) {
        Job job("<p style='margin:0'>" + Breaks(above, 'a') +
                "</p><h3 style='margin:0 0 20px;font-size:16px'>heading</h3>"
                "<div style='float:left'>" +
                Breaks(3, 'b') + "</div><p style='margin:0'>" + Breaks(3, 'c'));
        REQUIRE(job.Print() == PrintEnd::Done);
        CHECK(SheetOf(job, u"heading") == SheetOf(job, u"b0"));
    }
}

TEST_CASE("print html: no line of a paragraph stands alone") {
    for (int above = 1; above < 20; ++above) {
        Job job("<p style='margin:0'>" + Breaks(above, 'a') + "</p><p style='margin:0'>" +
                Breaks(5, 'b'));
        REQUIRE(job.Print() == PrintEnd::Done);
        CHECK(SheetOf(job, u"b0") == SheetOf(job, u"b1"));
        CHECK(SheetOf(job, u"b3") == SheetOf(job, u"b4"));
    }
}

TEST_CASE("print html: sheets begin and end where styles say so") {
    Job job("<p>one<div style='page-break-before:always'><p>two</div><p style='break-after:page'>"
            "three<p>four");
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(job.paper.pages.size() == 3);
    CHECK(SheetOf(job, u"one") == 0);
    CHECK(SheetOf(job, u"two") == 1);
    CHECK(SheetOf(job, u"three") == 1);
    CHECK(SheetOf(job, u"four") == 2);
    Job first("<div style='page-break-before:always'>one</div>"); // no empty sheet before it
    REQUIRE(first.Print() == PrintEnd::Done);
    CHECK(first.paper.pages.size() == 1);
}

TEST_CASE("print html: rules for paper apply, and none for screens") {
    Job job("<p class=s>screen<p class=p>paper<p>and what stands on both of them");
    job.sheets = {u"@media print{.s{display:none}}@media screen{.p{display:none}}"};
    REQUIRE(job.Print() == PrintEnd::Done);
    CHECK(SheetOf(job, u"screen") == -1);
    CHECK(SheetOf(job, u"paper") == 0);
}
