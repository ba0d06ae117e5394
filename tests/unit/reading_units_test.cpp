// The units of a text for screen readers, and where they are on the screen, without a toolkit.
#include "tests/unit/pane_bench.h"
#include "view/reading_units.h"
#include "view/shown_lines.h"

#include <doctest/doctest.h>

#include <climits>

namespace {
std::vector<std::u16string> All(PaneBench& bench, ReadingUnit unit) {
    ReadingUnits units(bench.Pane());
    std::vector<std::u16string> all;
    const TextPos length = bench.Pane().Source().Length();
    for (TextPos at = 0; at < length; at = units.Next(at, unit))
        all.push_back(ReadableText(bench.Pane(), units.At(at, unit)));
    return all;
}

using Texts = std::vector<std::u16string>;
} // namespace

TEST_CASE("reading units: characters, words, lines and paragraphs tile a text") {
    PaneBench bench(12 + 8 * 8, 51); // eight letters wide, three lines high
    bench.LoadPlainText(u"e\u0301a, two  words\n\nLast");
    CHECK(All(bench, ReadingUnit::Word) ==
          Texts{u"e\u0301a", u", ", u"two  ", u"words\n", u"\n", u"Last"});
    CHECK(All(bench, ReadingUnit::Line) == Texts{u"e\u0301a, two  ", u"words\n", u"\n", u"Last"});
    CHECK(All(bench, ReadingUnit::Paragraph) == Texts{u"e\u0301a, two  words\n", u"\n", u"Last"});
    CHECK(All(bench, ReadingUnit::Page) == Texts{u"e\u0301a, two  words\n\n", u"Last"});
    CHECK(All(bench, ReadingUnit::Document).size() == 1);
    CHECK(All(bench, ReadingUnit::Character).size() == 20);
    CHECK(All(bench, ReadingUnit::Character).front() == u"e\u0301");
}

TEST_CASE("reading units: a move ends at the text's ends and after a long way") {
    PaneBench bench;
    bench.LoadPlainText(u"one two\n");
    ReadingUnits units(bench.Pane());
    CHECK(units.MoveBy(0, ReadingUnit::Word, 9).units == 2);
    CHECK(units.MoveBy(0, ReadingUnit::Word, 9).position == 8);
    CHECK(units.MoveBy(5, ReadingUnit::Word, -9).units == -2);
    CHECK(units.Exists(8, ReadingUnit::Line));
    CHECK_FALSE(units.Exists(8, ReadingUnit::Word));

    bench.LoadPlainText(std::u16string(1'000'000, u'\n'));
    ReadingUnits longer(bench.Pane());
    CHECK(longer.MoveBy(0, ReadingUnit::Character, 500'000).position == maxReadingReach);
    CHECK(longer.MoveBy(0, ReadingUnit::Character, INT_MAX).position == 1'000'000);
    CHECK(longer.MoveBy(1'000'000, ReadingUnit::Character, INT_MIN).units == -1'000'000);
    const int before = bench.LayoutsMade();
    CHECK(longer.MoveBy(0, ReadingUnit::Line, 500'000).units < 10'000);
    CHECK(bench.LayoutsMade() - before < 20'000);
}

TEST_CASE("reading units: the boxes of what is in view") {
    PaneBench bench(400, 51);
    bench.LoadPlainText(u"one\ntwo\nthree\nfour");
    CHECK(ShownSpan(bench.Pane()).start == 0);
    CHECK(ShownSpan(bench.Pane()).end == 14);
    const std::vector<Rect> boxes = ShownBoxes(bench.Pane(), {1, 18});
    REQUIRE(boxes.size() == 3);
    const Rect first = bench.Pane().CharacterRect(1), third = bench.Pane().CharacterRect(8);
    CHECK(boxes[0] == Rect{first.left, first.top, 16, first.height});
    CHECK(boxes[2] == Rect{third.left, third.top, 40, third.height});
}

TEST_CASE("reading units: a copy of the view's look") {
    PaneBench bench;
    bench.LoadRichText("{\\rtf1 a{\\b b}\\par\\qr c}", 1252);
    CHECK(bench.Pane().CharacterFormatAt(1).style.font.bold);
    CHECK(bench.Pane().CharacterFormatAt(1).span.start == 1);
    CHECK(bench.Pane().CharacterFormatAt(1).span.end == 2);
    CHECK_FALSE(bench.Pane().CharacterFormatAt(0).style.font.bold);
    CHECK(bench.Pane().ParagraphFormatAt(0).alignment == Alignment::Left);
    CHECK(bench.Pane().ParagraphFormatAt(4).alignment == Alignment::Right);
}
