// What style costs: of a book, of a large page, and of sheets that mean harm.
//
//   css_bench [folder of books]        War and Peace as a page is looked for there
#include "bench/bench_folder.h"
#include "bench/stopwatch.h"
#include "formats/css/css_page_sheets.h"
#include "formats/css/css_page_styles.h"
#include "formats/css/css_parser.h"
#include "formats/html/html_decode.h"
#include "formats/html/html_reader.h"

#include <ctime>
#include <filesystem>

namespace {

constexpr int windowsLatin = 1252;

std::u16string Repeat(std::u16string_view piece, std::size_t times) {
    std::u16string all;
    all.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all += piece;
    return all;
}

std::u16string SheetOf(const HtmlTree& tree) {
    std::u16string css;
    for (const CssPageSheet& sheet : FindCssSheets(tree, {}))
        css += sheet.text;
    return css;
}

void BenchPage(const char* title, std::u16string html) {
    TableHead(title, "its tree");
    const double reading = Time([&] { Keep(ReadHtml(html)); });
    const HtmlTree tree = ReadHtml(std::move(html));
    const std::u16string css = SheetOf(tree);
    const CssSheet sheet = ReadCss(css);
    Row("text to tree (the peer)", reading, reading);
    Row("its sheets", Time([&] { Keep(ReadCss(css)); }), reading);
    Row("its styles", Time([&] { Keep(StylePage(tree, {&sheet, 1}, {})); }), reading);
    const CssPageStyles styles = StylePage(tree, {&sheet, 1}, {});
    Note(std::to_string(tree.NodeCount()) + " nodes, " + std::to_string(styles.Steps()) +
         " steps, " + std::to_string(styles.Count()) + " styles");
}

// Milliseconds of the processor, once: these are long, and the machine may have other work.
template <typename Work>
double ProcessorTime(Work work) {
    const std::clock_t start = std::clock();
    work();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// A sheet's reading, and its use on a page of 10,000 paragraphs in 100 levels.
void BenchHostile(const char* what, const std::u16string& css) {
    const HtmlTree tree = ReadHtml(u"<!DOCTYPE html>" + Repeat(u"<div class=a>", 100) +
                                   Repeat(u"<p class=b>text <b>bold</b>", 10'000));
    const double reading = ProcessorTime([&] { Keep(ReadCss(css)); });
    const CssSheet sheet = ReadCss(css);
    const double styling = ProcessorTime([&] { Keep(StylePage(tree, {&sheet, 1}, {})); });
    std::printf("%-52s %10.0f  %.0f\n", what, reading, styling);
}

void BenchHostileSheets() {
    std::printf("\n%-52s %10s  ms of styles\n", "Sheets that mean harm", "ms to read");
    BenchHostile("10 MB of rules", Repeat(u"a{top:0;left:1px}", 10'000'000 / 17));
    BenchHostile("10 MB of brackets", Repeat(u"(", 10'000'000));
    BenchHostile("10 MB of escapes", Repeat(u"\\41 ", 10'000'000 / 4));
    std::u16string rules;
    for (int i = 0; i < 100'000; ++i)
        rules += u".c" + Utf8ToUtf16(std::to_string(i)) + u" p{color:red}";
    BenchHostile("100,000 rules of different classes", rules);
    BenchHostile("100,000 rules of all elements", Repeat(u"*{top:0}", 100'000));
    BenchHostile("10,000 selectors that go back and forth",
                 Repeat(u".a div .a > div .a ~ .a .a > .a .b + .b b{top:0}", 10'000));
}

} // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = argc > 1 ? argv[1] : "../shared/books";
    const std::string bytes = ReadFile(folder / "htm/War and Peace.htm");
    if (bytes.empty())
        Note("left out: no such book in " + folder.string());
    else
        BenchPage("War and Peace as a page", DecodeHtml(bytes, 0, windowsLatin).text);
    std::u16string paragraph =
        u"<p class=a>Some <i>words</i> of a" + Repeat(u" paragraph that is as long as in books", 9);
    BenchPage("50 MB in 130,000 paragraphs",
              u"<!DOCTYPE html><style>p{margin:0;text-indent:1em}.a{text-align:justify}"
              u"p + p i{color:gray}h1,h2{text-align:center}.b:first-child{margin:1em}</style>" +
                  Repeat(paragraph, 130'000));
    BenchHostileSheets();
    return 0;
}
