// Borders and shading of paragraphs, and vertical alignment in cells, in the text view.
#include "tests/contract/qt/text_view_bench.h"

#include <doctest/doctest.h>

#include <QImage>

namespace {
constexpr const char* head = "{\\rtf1{\\colortbl;\\red255;\\blue255;\\green255;}";

void Load(QtViewBench& bench, const std::string& rtf) {
    bench.view.SetAutoColor(true);
    bench.view.LoadRichText(head + rtf + "}", 1252);
}

// The heights of the rows of pixels with at least `count` pixels of a colour, as [first, last]
// stretches.
std::vector<std::pair<int, int>> RowsOf(QtViewBench& bench, QColor color, int count) {
    const QImage image = bench.Widget().viewport()->grab().toImage();
    std::vector<std::pair<int, int>> rows;
    for (int y = 0; y < image.height(); ++y) {
        int found = 0;
        for (int x = 0; x < image.width(); ++x)
            found += image.pixelColor(x, y) == color;
        if (found < count) continue;
        if (rows.empty() || rows.back().second != y - 1) rows.emplace_back(y, y);
        rows.back().second = y;
    }
    return rows;
}

QRect CaretAt(QtViewBench& bench, TextPos position) {
    bench.view.Select(position, 0);
    return bench.Widget().CaretRect();
}
} // namespace

TEST_CASE("qt text view: a border below a paragraph is a rule as wide as the text") {
    QtViewBench bench(500, 200);
    Load(bench, "one\\par\\pard\\brdrb\\brdrs\\brdrw30\\brsp60\\brdrcf1 two\\par\\pard three");
    const auto rules = RowsOf(bench, Qt::red, bench.TextWidth());
    REQUIRE(rules.size() == 1);
    CHECK(rules[0].second - rules[0].first + 1 == 2); // 30 twips
    CHECK(rules[0].first >= CaretAt(bench, 5).bottom());
    CHECK(rules[0].second < CaretAt(bench, 9).top());
}

TEST_CASE("qt text view: neighbours with the same borders are one box") {
    const auto lines = [](const std::string& rtf) {
        QtViewBench bench(500, 300);
        Load(bench, rtf);
        return RowsOf(bench, Qt::red, bench.TextWidth() - 1).size();
    };
    const std::string box = "\\pard\\box\\brdrs\\brdrw15\\brsp40\\brdrcf1 ";
    const std::string between = "\\brdrbtw\\brdrs\\brdrw15\\brdrcf1 ";
    CHECK(lines(box + "a\\par b\\par c\\par\\pard d") == 2);
    CHECK(lines(box + between + "a\\par b\\par c\\par\\pard d") == 4);
    CHECK(lines(box + "a\\par\\pard b\\par" + box + "c\\par\\pard d") == 4);
    CHECK(lines(box + "a\\par\\li300 b\\par\\pard c") == 2); // the second is narrower
    CHECK(lines("x\\par" + box + "a\\par") == 2);            // nothing boxed after the last break
    CHECK(lines(box + "a\\par\\pard\\trowd\\cellx900\\intbl b\\cell\\row" + box + "c\\par") == 4);
}

TEST_CASE("qt text view: boxed text stands clear of its borders, in either direction") {
    QtViewBench bench(500, 200);
    Load(bench, "a\\par\\pard\\box\\brdrs\\brdrw30\\brsp150\\brdrcf1 b\\par\\pard c");
    CHECK(CaretAt(bench, 2).x() == CaretAt(bench, 0).x() + 2 + 10);
    CHECK(CaretAt(bench, 4).x() == CaretAt(bench, 0).x());
    const int plain = CaretAt(bench, 4).y() - CaretAt(bench, 2).y();
    Load(bench, "a\\par b\\par c");
    CHECK(plain == CaretAt(bench, 4).y() - CaretAt(bench, 2).y() + 2 + 10);

    Load(bench, "\\rtlpar a\\par\\pard\\rtlpar\\box\\brdrs\\brdrw30\\brsp150\\brdrcf1 b\\par");
    CHECK(CaretAt(bench, 3).x() < CaretAt(bench, 1).x());
    CHECK(RowsOf(bench, Qt::red, bench.TextWidth()).size() == 2);
}

TEST_CASE("qt text view: shading fills the paragraph, and its text stays legible") {
    QtViewBench bench(500, 200);
    Load(bench, "a\\par\\pard\\cbpat2 b\\par c\\par\\pard d");
    const auto filled = RowsOf(bench, Qt::blue, bench.TextWidth() / 2);
    REQUIRE(filled.size() == 1); // with no gap between them
    CHECK(filled[0].first <= CaretAt(bench, 2).top());
    CHECK(filled[0].second >= CaretAt(bench, 4).bottom());
    CHECK(filled[0].second < CaretAt(bench, 6).bottom());
    bench.view.SetAutoColor(false);
    bench.view.SetTextColor(0xFF0000); // blue on blue
    const QImage shown = bench.Widget().viewport()->grab().toImage();
    int letters = 0;
    for (int y = filled[0].first; y <= filled[0].second; ++y)
        for (int x = shown.width() / 4; x-- > 10;)
            letters += shown.pixelColor(x, y) != QColor(Qt::blue);
    CHECK(letters > 10);
}

TEST_CASE("qt text view: the text of a cell stands at its top, its middle or its bottom") {
    QtViewBench bench(500, 300);
    const auto tops = [&](const std::string& words) {
        Load(bench, "\\trowd" + words +
                        "\\cellx3000\\cellx6000\\pard\\intbl a\\cell "
                        "1\\par 2\\par 3\\par 4\\cell\\row\\pard b");
        return CaretAt(bench, 0).y();
    };
    const int top = tops("");
    const int first = CaretAt(bench, 2).y(), last = CaretAt(bench, 8).y();
    CHECK(top == first);
    CHECK(tops("\\clvertalt") == first);
    CHECK(tops("\\clvertalb") == last);
    CHECK(std::abs(tops("\\clvertalc") - (first + last) / 2) <= 1);
}

TEST_CASE("qt text view: a drop cap is a large letter at the beginning of its paragraph") {
    QtViewBench bench(500, 300);
    Load(bench, "\\fs24{\\pard\\dropcapli3\\dropcapt1\\fs120 I\\par}\\pard t was a dark night\\par"
                "\\pard after");
    CHECK(bench.view.TextRange(0, 6) == u"It was");
    CHECK(CaretAt(bench, 1).height() > 0);
    CHECK(CaretAt(bench, 2).x() > CaretAt(bench, 0).x() + 20);
    const auto line = bench.view.LineAround(0);
    CHECK(line.start == 0);
    CHECK(line.length == 19);
}
