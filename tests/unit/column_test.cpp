// The column that a text stands in, in a view that is wider than it.
#include "tests/unit/pane_bench.h"

#include <doctest/doctest.h>

namespace {
constexpr int letters = 20, column = letters * PaneBench::letter;

struct ColumnBench : PaneBench {
    explicit ColumnBench(int width = 500) : PaneBench(width) { SetMaxLineLength(letters); }
    int Left(TextPos position) { return Pane().CharacterRect(position).left; }
    int ColumnLeft() { return Margin() + (TextWidth() - column) / 2; }
};

const std::u16string words = u"so many words that the line is broken twice or more";

// Breaks lines of its words as a page of `width` columns does.
std::u16string PageOf(int width, int lines) {
    std::u16string page;
    for (int i = 0; i < lines; ++i) {
        std::u16string line;
        while (int(line.size()) + 5 <= width - i % 3)
            line += u"word ";
        page += line.substr(0, line.size() - 1) + u"\n";
    }
    return page;
}
} // namespace

TEST_CASE("column: lines are as long as was asked for, in the middle of the view") {
    ColumnBench bench;
    bench.LoadPlainText(words);
    CHECK(bench.PaintedLines() == std::vector<std::u16string>{u"so many words that",
                                                              u"the line is broken",
                                                              u"twice or more"});
    CHECK(bench.Left(0) == bench.ColumnLeft());
    CHECK(bench.Left(19) == bench.ColumnLeft()); // the second line
    bench.Pane().Click({bench.ColumnLeft() + 5 * PaneBench::letter, 5}, 1, false);
    CHECK(bench.SelStart() == 5);
    bench.Pane().Click({0, PaneBench::lineHeight + 5}, 1, false); // beside it
    CHECK(bench.SelStart() == 19);
    CHECK_FALSE(bench.window.horizontalBar);
    CHECK(bench.window.horizontal.max == 0);
}

TEST_CASE("column: alignment is within it") {
    ColumnBench bench;
    bench.LoadPlainText(u"word");
    bench.SetAlignment(Alignment::Right);
    CHECK(bench.Left(0) == bench.ColumnLeft() + column - 4 * PaneBench::letter);
    bench.SetAlignment(Alignment::Center);
    CHECK(bench.Left(0) == bench.ColumnLeft() + column / 2 - 2 * PaneBench::letter);
}

TEST_CASE("column: a narrow view, lines that do not wrap and no column have all the width") {
    ColumnBench bench(150);
    bench.LoadPlainText(words);
    bench.Painted();
    CHECK(bench.Left(0) == 6);
    bench.window.room.width = 500;
    CHECK(bench.Left(0) == bench.ColumnLeft());
    bench.SetRightMargin(491520);
    CHECK(bench.PaintedLines() == std::vector<std::u16string>{words});
    CHECK(bench.Left(0) == bench.Margin());
    bench.SetRightMargin(0);
    CHECK(bench.PaintedLines().size() == 3);
    bench.SetMaxLineLength(0);
    CHECK(bench.PaintedLines() == std::vector<std::u16string>{words});
    CHECK(bench.Left(0) == bench.Margin());
}

TEST_CASE("column: it grows with the font and the resolution") {
    ColumnBench bench(900);
    bench.LoadPlainText(words);
    const auto before = bench.PaintedLines();
    const int left = bench.Left(0);
    bench.SetFont({u"Fixed", 18, 0});
    CHECK(bench.PaintedLines() == before);
    CHECK(bench.Left(0) == left - column / 4);
    bench.SetFont({u"Fixed", 12, 0});
    CHECK(bench.Left(0) == left);
    bench.window.dpi = 192;
    CHECK(bench.PaintedLines() == before);
    CHECK(bench.Left(0) == bench.Margin() + (900 - 2 * bench.Margin() - 2 * column) / 2);
}

TEST_CASE("column: the line on top stays there when it is switched") {
    ColumnBench bench;
    const std::u16string paragraph = words + u" " + words + u" " + words + u" " + words + u"\n";
    std::u16string text;
    for (int i = 0; i < 200; ++i)
        text += paragraph;
    bench.LoadPlainText(text);
    bench.ScrollLineToTop(100 * TextPos(paragraph.size()) + 30);
    const TextPos top = bench.FirstVisibleChar();
    CHECK(top == 100 * TextPos(paragraph.size()) + 19);
    bench.SetMaxLineLength(0);
    CHECK(bench.LineAround(bench.FirstVisibleChar()).start <= top);
    bench.SetMaxLineLength(letters);
    CHECK(bench.FirstVisibleChar() == top);
}

TEST_CASE("column: in rich text it is as wide as most of its letters make it") {
    ColumnBench bench;
    bench.LoadRichText("{\\rtf1\\fs48 Head\\par\\fs24 so many words that the line is broken}",
                       1252);
    CHECK(bench.PaintedLines() ==
          std::vector<std::u16string>{u"Head", u"so many words that", u"the line is broken"});
    CHECK(bench.Left(5) == bench.ColumnLeft());
}

TEST_CASE("column: pictures and tables that need more have it, all rows of a table alike") {
    ColumnBench bench;
    const std::string picture = "{\\pict\\wmetafile8\\picwgoal4500\\pichgoal300 00}"; // 300 pixels
    bench.LoadRichText("{\\rtf1\\fs24 " + picture + "\\par a" + picture +
                           "\\par\\trowd\\cellx1500\\cellx6000\\intbl a\\cell b\\cell\\row"
                           "\\trowd\\cellx1500\\cellx3000\\intbl c\\cell d\\cell\\row"
                           "\\pard end\\par\\trowd\\cellx1500\\intbl e\\cell\\row\\pard f}",
                       1252);
    const std::u16string text = bench.TextRange(0, 100);
    const auto rect = [&](TextPos at) { return bench.Pane().CharacterRect(at); };
    CHECK(rect(0).width == 300);
    CHECK(rect(0).left == bench.Margin() + (bench.TextWidth() - 300) / 2);
    CHECK(rect(2).left == bench.ColumnLeft()); // with text: in the column
    CHECK(rect(3).width <= column);
    const auto left = [&](char16_t letter) { return rect(TextPos(text.find(letter, 4))).left; };
    CHECK(left(u'a') < bench.ColumnLeft());
    CHECK(left(u'a') == left(u'c'));
    CHECK(left(u'b') == left(u'd'));
    CHECK(left(u'e') >= bench.ColumnLeft());
    CHECK(left(u'f') == bench.ColumnLeft());
}

TEST_CASE("column: lines that were broken for a wider page are not broken again") {
    ColumnBench bench(900);
    bench.LoadPlainText(PageOf(60, 30));
    CHECK(bench.LineAround(0).length == 59);
    CHECK(bench.Left(0) == bench.Margin() + (bench.TextWidth() - 59 * PaneBench::letter) / 2);
    bench.SetUnwrapped(true); // they flow on
    CHECK(bench.LineAround(0).length <= letters);
    CHECK(bench.Left(0) == bench.Margin() + (bench.TextWidth() - column) / 2);
}
