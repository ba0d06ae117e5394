// Texts that are very costly to shape: layouts stay within bounds, and the text is unchanged.
#include "common/string_text.h"
#include "tests/contract/qt/text_view_bench.h"
#include "view/layout_cost.h"
#include "view/reading_units.h"

#include <doctest/doctest.h>

#include <QTextBoundaryFinder>

#include <algorithm>
#include <random>
#include <set>
#include <tuple>

namespace {
constexpr int times = 200'000;

struct DenseText {
    const char* name;
    std::u16string text;
};

std::vector<DenseText> DenseTexts() {
    return {
        {"marks", u"a" + RepeatedText(u"\u0301", times)},
        {"marks of two units", u"a" + RepeatedText(u"\U0001E130", times / 2)},
        {"variation selectors", u"a" + RepeatedText(u"\uFE0F", times)},
        {"joined emoji", RepeatedText(u"\U0001F468\u200D", times / 3)},
        {"leading jamo", RepeatedText(u"\u1100", times)},
        {"stacked consonants", RepeatedText(u"\u0915\u094D", times / 2)},
        {"blanks without width", RepeatedText(u"\u200B", times)},
        {"soft hyphens", RepeatedText(u"\u00AD", times)},
        {"overrides of direction", RepeatedText(u"\u202E", times)},
        {"isolates", RepeatedText(u"\u2067", times)},
        {"tabs", RepeatedText(u"\t", times)},
        {"words with tabs", RepeatedText(u"ab\t", times / 3)},
        {"one word", RepeatedText(u"x", times)},
        {"lines within a paragraph", RepeatedText(u"\u2028", times)},
        {"characters of no font", RepeatedText(u"\uE123", times)},
    };
}

// A rich text with one paragraph of many runs.
std::string RichTextOfRuns(int count, const std::function<std::string(int)>& run) {
    std::string rtf = "{\\rtf1\\ansi{\\fonttbl";
    for (int i = 0; i < 1000; ++i)
        rtf += "{\\f" + std::to_string(i) + " Font" + std::to_string(i) + ";}";
    rtf += "}";
    for (int i = 0; i < count; ++i)
        rtf += run(i);
    return rtf + "}";
}

// Layouts for pages at the start, in the middle and at the end.
int LayoutsOfThreePages(QtViewBench& bench) {
    const int before = bench.view.LayoutsMade();
    bench.Widget().grab();
    bench.Press(Qt::Key_End, Qt::ControlModifier);
    bench.Widget().grab();
    bench.view.ScrollLineToTop(bench.view.TextLength() / 2);
    bench.Widget().grab();
    return bench.view.LayoutsMade() - before;
}

std::size_t UnitsShaped(const BlockLayout& layout) {
    std::size_t units = 0;
    for (const ParagraphLayout& paragraph : layout.paragraphs)
        for (const LayoutSegment& segment : Segments(paragraph))
            units += std::size_t(segment.text->text().size());
    return units;
}

qsizetype LongestGrapheme(const QString& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype maxLength = 0;
    for (qsizetype from = 0, to = finder.toNextBoundary(); to >= 0;
         from = to, to = finder.toNextBoundary())
        maxLength = std::max(maxLength, to - from);
    return maxLength;
}

// Layouts at the start, in the middle and at the end.
std::vector<TextLayouts::Layout> SomeLayouts(QtViewBench& bench) {
    TextLayouts& layouts = bench.Widget().Pane().Layouts();
    const TextPos length = bench.view.TextLength();
    return {layouts.At(0), layouts.At(length / 2), layouts.At(length)};
}
} // namespace

TEST_CASE("qt text view: a dense text is laid out in small parts, wrapped or not") {
    for (const DenseText& dense : DenseTexts())
        for (const int margin : {0, 491520})
            for (const int width : {120, 500}) {
                INFO(std::string(dense.name), ", width ", width, ", margin ", margin);
                QtViewBench bench(width, 400);
                bench.view.LoadPlainText(dense.text);
                bench.view.SetRightMargin(margin);
                CHECK(LayoutsOfThreePages(bench) < 3 * 400 / 10); // the lines of three screens
                for (const auto& layout : SomeLayouts(bench)) {
                    CHECK(layout->block.end - layout->block.start <= 2 * pieceLength);
                    CHECK(UnitsShaped(*layout) <= 4 * 2 * std::size_t(densePiece) + 1024);
                }
            }
}

TEST_CASE("qt text view: no endless cluster reaches the shaper") {
    for (const DenseText& dense : DenseTexts()) {
        INFO(std::string(dense.name));
        QtViewBench bench;
        bench.view.LoadPlainText(dense.text);
        for (const auto& layout : SomeLayouts(bench))
            for (const ParagraphLayout& paragraph : layout->paragraphs)
                for (const LayoutSegment& segment : Segments(paragraph))
                    CHECK(LongestGrapheme(segment.text->text()) <= maxClusterLength + 2);
    }
}

TEST_CASE("qt text view: a dense text keeps its places, its copies and its lines") {
    for (const DenseText& dense : DenseTexts()) {
        INFO(std::string(dense.name));
        QtViewBench bench;
        const std::u16string text = u"first\n" + dense.text + u" needle";
        bench.view.LoadPlainText(text);
        const auto needle = TextPos(text.find(u"needle"));
        CHECK(bench.view.TextLength() == TextPos(text.size()));
        CHECK(bench.view.Find(u"needle", 0, {}) == needle);
        bench.view.Select(0, TextPos(text.size()));
        CHECK((bench.view.TextRange(bench.view.SelStart(), bench.view.SelLength()) == text));
        TextPos at = 0;
        for (int i = 0; i < 300 && at < TextPos(text.size()); ++i) {
            const LineSpan line = bench.view.LineAround(at);
            REQUIRE(line.start == at);
            const TextPos end = line.start + line.length;
            at = end < TextPos(text.size()) && text[std::size_t(end)] == u'\n' ? end + 1 : end;
            const bool torn =
                at < TextPos(text.size()) && QChar::isLowSurrogate(text[std::size_t(at)]);
            CHECK_FALSE(torn);
            if (line.length == 0 && at == line.start) break;
        }
        bench.view.ScrollLineToTop(needle);
        CHECK(bench.view.FirstVisibleChar() == bench.view.LineAround(needle).start);
    }
}

TEST_CASE("qt text view: the caret does not come between the units of a character left out") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"a" + RepeatedText(u"\U0001E130", 5000));
    bench.view.Select(0, 0);
    for (int i = 0; i < 200; ++i) {
        bench.Press(Qt::Key_Right);
        CHECK((bench.view.SelStart() == 0 || bench.view.SelStart() % 2 == 1));
    }
    CHECK(bench.view.SelStart() > maxClusterLength);
}

TEST_CASE(
    "qt text view: accessible paragraphs of a dense text are the same pieces as of any text") {
    for (const DenseText& dense : DenseTexts()) {
        INFO(std::string(dense.name));
        QtViewBench bench;
        bench.view.LoadPlainText(dense.text);
        ReadingUnits units(bench.Widget().Pane());
        const StringText text(dense.text);
        for (const TextPos place : {0, 30'000, 60'000}) {
            const TextBlock block = BlockAt(text, {}, place);
            const TextSpan unit = units.At(place, ReadingUnit::Paragraph);
            CHECK(unit.start == block.start);
            CHECK(unit.end == block.end);
            CHECK(unit.end - unit.start > 2 * densePiece);
        }
        const TextSpan letter = units.At(0, ReadingUnit::Character);
        const std::u16string shown = ReadableText(bench.Widget().Pane(), letter);
        std::u16string expected = dense.text.substr(0, std::size_t(letter.end));
        std::ranges::replace(expected, u'\u2028', u'\n');
        CHECK((shown == expected));
    }
}

TEST_CASE("qt text view: runs, pictures and small capitals are laid out in small parts, too") {
    const std::vector<std::function<std::string(int)>> runs{
        [](int) { return std::string("{\\b x}y"); },
        [](int i) {
            return "\\f" + std::to_string(i % 1000) + "\\fs" + std::to_string(8 + i % 900) + " x";
        },
        [](int) { return std::string("{\\super x}{\\sub y}"); },
        [](int) { return std::string("{\\pict\\pngblip\\picwgoal200\\pichgoal200 00}"); },
        [](int) { return std::string("{\\scaps aB}"); },
        [](int) { return std::string("\\tab x"); },
    };
    for (const auto& run : runs) {
        CAPTURE(run(0));
        QtViewBench bench;
        bench.view.LoadRichText(RichTextOfRuns(60'000, run), 1252);
        for (const auto& layout : SomeLayouts(bench))
            CHECK(layout->block.end - layout->block.start <= 2 * densePiece + 256);
    }
}

TEST_CASE("qt text view: a text is shown in a bounded number of fonts") {
    QtViewBench bench;
    bench.view.LoadRichText(RichTextOfRuns(60'000,
                                           [](int i) {
                                               return "\\f" + std::to_string(i % 1000) + "\\fs" +
                                                      std::to_string(8 + i * 7 % 900) + " x";
                                           }),
                            1252);
    using Key = std::tuple<QString, double, bool, bool>;
    std::set<Key> fonts;
    for (TextPos at = 0; at < bench.view.TextLength(); at += 1000)
        for (const ParagraphLayout& paragraph : bench.Widget().Pane().Layouts().At(at)->paragraphs)
            for (const LayoutSegment& segment : Segments(paragraph))
                for (const auto& range : segment.text->formats()) {
                    const QFont font = range.format.font();
                    fonts.insert({font.family(), font.pointSizeF(), font.bold(), font.italic()});
                }
    CHECK(fonts.size() < 350);
    CHECK(fonts.size() > 100);
}

TEST_CASE("qt text view: a row of thousands of cells or tabs is shown as paragraphs") {
    const auto row = [](const std::string& cells, int count) {
        std::string rtf = "{\\rtf1\\ansi\\trowd";
        for (int i = 0; i < count; ++i)
            rtf += "\\cellx" + std::to_string(100 * (i + 1));
        return rtf + " \\intbl " + cells + "\\row\\pard end\\par}";
    };
    std::string tabs;
    for (int i = 0; i < 30'000; ++i)
        tabs += "\\tab ";
    for (const std::string& rtf : {row(tabs + "\\cell x\\cell", 2)}) {
        QtViewBench bench;
        bench.view.LoadRichText(rtf, 1252);
        for (const auto& layout : SomeLayouts(bench)) {
            CHECK(layout->cells.empty());
            CHECK(layout->block.end - layout->block.start <= 2 * densePiece + 256);
        }
    }
}

TEST_CASE("qt text view: the parts of dense text tile it and are the same from wherever") {
    std::mt19937 random(7); // NOLINT
    std::u16string units;
    while (units.size() < 300'000) {
        const int kind = int(random() % 4), length = 1 + int(random() % 9000);
        for (int i = 0; i < length; ++i)
            units += kind == 0   ? u'\t'
                     : kind == 1 ? u'\u0301'
                     : kind == 2 ? (random() % 6 == 0 ? u' ' : u'x')
                                 : (random() % 300 == 0 ? u'\n' : u'y');
    }
    const StringText text(units);
    const Document document;
    for (TextPos start = 0;;) {
        const TextBlock block = LayoutBlockAt(text, document, start);
        REQUIRE(block.start == start);
        const TextPos inside = start + TextPos(random() % unsigned(block.end - start));
        for (const TextPos place : {inside, block.end - 1}) {
            CHECK(LayoutBlockAt(text, document, place).start == block.start);
            CHECK(LayoutBlockAt(text, document, place).end == block.end);
        }
        if (IsLastBlock(text, block)) break;
        start = block.end;
    }
}
