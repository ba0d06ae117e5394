// A text pane shows of random texts what laying out each whole paragraph gives.
#include "tests/unit/pane_bench.h"

#include <doctest/doctest.h>

#include <random>

namespace {
using Random = std::mt19937;

int Below(Random& random, int bound) {
    return int(random() % unsigned(bound));
}

std::u16string Word(Random& random) {
    static const std::u16string letters[] = {
        u"abcdefgh",           u"\u0430\u0431\u0432", u"\u05D0\u05D1\u05D2\u05D3",
        u"\u0627\u0628\u062A", u"\u4E2D\u6587",       u"0123.,",
        u"e\u0301a\u0308",     u"\uD55C\uAD6D"};
    const std::u16string& kind = letters[Below(random, int(std::size(letters)))];
    std::u16string word;
    for (int i = 1 + Below(random, 9); i > 0; --i)
        word += kind[std::size_t(Below(random, int(kind.size())))];
    return Below(random, 20) == 0 ? word + u"\U0001F600" : word;
}

std::u16string Book(Random& random) {
    std::u16string text;
    for (int paragraphs = 20 + Below(random, 60); paragraphs > 0; --paragraphs) {
        for (int words = Below(random, 60); words > 0; --words)
            text += Word(random) + (Below(random, 12) == 0 ? u"\t" : u" ");
        text += u"\n";
    }
    return text;
}

// The starts of all lines, from each paragraph laid out whole.
std::vector<TextPos> LineStarts(PaneBench& bench, const std::u16string& text) {
    std::vector<TextPos> starts;
    TextLayouts& layouts = bench.Pane().Layouts();
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(u'\n', from), text.size());
        ParagraphPart part;
        part.start = TextPos(from);
        part.end = TextPos(end);
        part.breakWidth = part.alignWidth = bench.TextWidth();
        const ParagraphLayout paragraph = LayOutParagraph(layouts.Context(), part);
        for (int line = 0; line < paragraph.LineCount(); ++line)
            starts.push_back(paragraph.LineStart(line));
        from = end + 1;
    }
    return starts;
}

TextPos LineWith(const std::vector<TextPos>& starts, TextPos position) {
    return *(std::upper_bound(starts.begin(), starts.end(), position) - 1);
}
} // namespace

TEST_CASE("text pane: random books show the lines of their paragraphs, wherever one goes") {
    for (unsigned seed = 0; seed < 12; ++seed) {
        CAPTURE(seed);
        Random random(seed);
        PaneBench bench(60 + Below(random, 500), 40 + Below(random, 300));
        const std::u16string text = Book(random);
        bench.LoadPlainText(text);
        const auto starts = LineStarts(bench, text);
        const TextPos length = TextPos(text.size());
        for (int i = 0; i < 60; ++i) {
            const TextPos position = Below(random, length + 1);
            CAPTURE(position);
            const TextPos line = LineWith(starts, position);
            REQUIRE(bench.LineAround(position).start == line);
            bench.ScrollLineToTop(position);
            REQUIRE(bench.FirstVisibleChar() == line);
            bench.Select(position, 0);
            const TextPos home = bench.Press(PaneKey::Home);
            REQUIRE(home == line);
            const TextPos end = bench.Press(PaneKey::End);
            REQUIRE(LineWith(starts, end) == line);
        }
    }
}

TEST_CASE("text pane: in random books a click finds the caret where it is drawn") {
    for (unsigned seed = 100; seed < 108; ++seed) {
        CAPTURE(seed);
        Random random(seed);
        PaneBench bench(200 + Below(random, 500), 200);
        const std::u16string text = Book(random);
        bench.LoadPlainText(text);
        for (int i = 0; i < 80; ++i) {
            const TextPos position = Below(random, TextPos(text.size()) + 1);
            CAPTURE(position);
            bench.ScrollLineToTop(position);
            bench.Select(position, 0);
            const Rect caret = bench.Caret();
            REQUIRE(caret.height > 0);
            const TextPos found = bench.Pane().PositionAtPoint({caret.left, caret.top + 5});
            bench.Select(found, 0);
            // Where two directions meet, two places share one caret; within a character none is.
            CHECK(std::abs(bench.Caret().left - caret.left) <= PaneBench::letter);
            CHECK(bench.Caret().top == caret.top);
        }
    }
}

TEST_CASE("text pane: in random books arrows reach every place and end at the ends") {
    for (unsigned seed = 200; seed < 204; ++seed) {
        CAPTURE(seed);
        Random random(seed);
        PaneBench bench(300);
        const std::u16string text = Book(random).substr(0, 1500);
        bench.LoadPlainText(text);
        for (const PaneKey key : {PaneKey::Down, PaneKey::PageDown}) {
            bench.Select(0, 0);
            int steps = 0;
            for (TextPos before = -1; bench.Pane().Caret() != before && steps < 3000; ++steps) {
                before = bench.Pane().Caret();
                REQUIRE(bench.Press(key) >= before);
            }
            CHECK(bench.LineAround(bench.Pane().Caret()).start ==
                  bench.LineAround(bench.TextLength()).start);
        }
    }
}
