// What every line layout must answer about carets, characters and words.
#include "tests/contract/line_layout_contract.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr TextPos farAfter = std::numeric_limits<TextPos>::max();

bool IsLeftToRightLetter(char16_t unit) {
    return unit >= u'a' && unit <= u'z';
}

bool IsRightToLeftLetter(char16_t unit) {
    return (unit >= 0x05D0 && unit <= 0x05EA) || (unit >= 0x0620 && unit <= 0x064A);
}

double NearestDistance(const TextLines& lines, int line, const std::vector<TextPos>& places,
                       double x) {
    double nearest = std::numeric_limits<double>::max();
    for (const TextPos place : places)
        nearest = std::min(nearest, std::abs(lines.CaretX(line, place) - x));
    return nearest;
}

int PlacesNear(const TextLines& lines, int line, const std::vector<TextPos>& places, double x) {
    return int(std::count_if(places.begin(), places.end(), [&](TextPos place) {
        return IsWithin(lines.CaretX(line, place), x);
    }));
}

// From the left end of the first line to its right end, by the caret.
std::vector<TextPos> WalkRight(const TextLines& lines) {
    TextPos at = 0;
    for (TextPos left = lines.LeftOf(at); left != at; left = lines.LeftOf(at))
        at = left;
    std::vector<TextPos> walk{at};
    for (TextPos right = lines.RightOf(at); right != at && walk.size() < 1000;
         right = lines.RightOf(at))
        walk.push_back(at = right);
    return walk;
}
} // namespace

TEST_CASE("line layout: the caret's place is found again where the caret stands") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample&, int) {
        for (int line = 0; line < lines.Count(); ++line) {
            const auto places = PlacesIn(lines, line);
            for (const TextPos place : places) {
                CAPTURE(line);
                CAPTURE(place);
                const double x = lines.CaretX(line, place);
                CHECK(x >= -pixel);
                CHECK(x <= lines.Line(line).width + pixel);
                const TextPos found = lines.PositionAt(line, x);
                CHECK(IsWithin(lines.CaretX(line, found), x));
                if (PlacesNear(lines, line, places, x) == 1) CHECK(found == place);
            }
        }
    });
}

TEST_CASE("line layout: of an x the nearest place of the line is found") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample&, int) {
        for (int line = 0; line < lines.Count(); ++line) {
            const auto places = PlacesIn(lines, line);
            const double width = lines.Line(line).width;
            for (const double x :
                 {-50.0, 0.0, width * 0.2, width * 0.45, width * 0.7, width + 50}) {
                CAPTURE(line);
                CAPTURE(x);
                const TextPos found = lines.PositionAt(line, x);
                CHECK(std::find(places.begin(), places.end(), found) != places.end());
                CHECK(std::abs(lines.CaretX(line, found) - x) <=
                      NearestDistance(lines, line, places, x) + pixel);
            }
        }
    });
}

TEST_CASE("line layout: a character is found in its middle, and the caret is where it begins") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample& sample, int) {
        for (int line = 0; line < lines.Count(); ++line) {
            double sum = 0;
            for (const TextPos at : VisibleCharacters(lines, line, sample.text)) {
                CAPTURE(line);
                CAPTURE(at);
                const TextExtent extent = lines.CharacterExtent(line, at);
                CHECK(extent.left >= -pixel);
                CHECK(extent.right <= lines.Line(line).width + pixel);
                sum += extent.right - extent.left;
                const double middle = (extent.left + extent.right) / 2;
                if (extent.right - extent.left > pixel)
                    CHECK(lines.CharacterAt(line, middle) == at);
                const char16_t unit = sample.text[std::size_t(at)];
                if (IsLeftToRightLetter(unit)) CHECK(IsWithin(lines.CaretX(line, at), extent.left));
                if (IsRightToLeftLetter(unit))
                    CHECK(IsWithin(lines.CaretX(line, at), extent.right));
                CHECK(CoverTheSame(Joined(lines.Extents(line, at, lines.NextPosition(at))),
                                   extent.right > extent.left ? std::vector{extent}
                                                              : std::vector<TextExtent>{}));
            }
            const double width = lines.Line(line).width, rounding = pixel + 0.02 * sum;
            CHECK(sum <= width + rounding);
            CHECK(sum >= width - maxOverhang - rounding);
            for (const double x : {-50.0, width + 50}) {
                const TextPos at = lines.CharacterAt(line, x);
                CHECK(at >= lines.Line(line).start);
                CHECK(at <= std::max(lines.Line(line).start, lines.Line(line).end - 1));
                const TextExtent extent = lines.CharacterExtent(line, at);
                if (x < 0) CHECK(IsWithin(extent.left, 0));
                if (x > width) CHECK(extent.right <= width + pixel);
                if (x > width) CHECK(extent.right >= width - maxOverhang - pixel);
            }
        }
    });
}

TEST_CASE("line layout: extents of a line cover it, of neighbours as much as of both together") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample&, int) {
        for (int line = 0; line < lines.Count(); ++line) {
            CAPTURE(line);
            const TextLine& each = lines.Line(line);
            const auto all = lines.Extents(line, each.start, each.end);
            for (const TextExtent& extent : all)
                CHECK(extent.right > extent.left);
            if (each.width > pixel) {
                const auto joined = Joined(all);
                REQUIRE(joined.size() == 1);
                CHECK(IsWithin(joined[0].left, 0));
                CHECK(joined[0].right <= each.width + pixel);
                CHECK(joined[0].right >= each.width - maxOverhang - pixel);
            }
            const auto places = PlacesIn(lines, line);
            const TextPos from = places[places.size() / 4], middle = places[places.size() / 2],
                          to = places[places.size() - places.size() / 4 - 1];
            auto parts = lines.Extents(line, from, middle);
            const auto rest = lines.Extents(line, middle, to);
            parts.insert(parts.end(), rest.begin(), rest.end());
            CHECK(CoverTheSame(Joined(parts), Joined(lines.Extents(line, from, to))));
        }
    });
}

TEST_CASE("line layout: text of one direction is one stretch, of two it is more") {
    OnEachLineLayout([](LineLayout& layout) {
        const auto latin = layout.BreakLines(LineParagraph(layout, u"some words"));
        CHECK(latin->Extents(0, 2, 7).size() == 1);
        const auto hebrew = layout.BreakLines(
            LineParagraph(layout, u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC", unlimited, true));
        CHECK(hebrew->Extents(0, 1, 6).size() == 1);
        // From the first half of a Latin word to the first half of a Hebrew one, which is its
        // right.
        const auto both =
            layout.BreakLines(LineParagraph(layout, u"some \u05E9\u05DC\u05D5\u05DD"));
        const auto extents = Joined(both->Extents(0, 2, 7));
        REQUIRE(extents.size() == 2);
        CHECK(IsWithin(extents[0].left, both->CaretX(0, 2)));
        CHECK(IsWithin(extents[0].right, TextWidth(layout, u"some ")));
        CHECK(IsWithin(extents[1].left, both->CaretX(0, 7)));
        CHECK(IsWithin(extents[1].right, both->Line(0).width));
    });
}

TEST_CASE("line layout: positions outside a line are moved into it") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample&, int) {
        for (int line = 0; line < lines.Count(); ++line) {
            CAPTURE(line);
            const TextLine& each = lines.Line(line);
            CHECK(lines.CaretX(line, -5) == lines.CaretX(line, each.start));
            CHECK(lines.CaretX(line, farAfter) == lines.CaretX(line, each.end));
            CHECK(CoverTheSame(Joined(lines.Extents(line, -5, farAfter)),
                               Joined(lines.Extents(line, each.start, each.end))));
            CHECK(lines.Extents(line, farAfter, farAfter).empty());
        }
    });
}

TEST_CASE("line layout: the caret visits the same places in both directions") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample& sample, int) {
        const TextPos length = TextPos(sample.text.size());
        std::vector<TextPos> forward{0}, backward{length};
        while (lines.NextPosition(forward.back()) > forward.back())
            forward.push_back(lines.NextPosition(forward.back()));
        while (lines.PreviousPosition(backward.back()) < backward.back())
            backward.push_back(lines.PreviousPosition(backward.back()));
        CHECK(forward.back() == length);
        std::reverse(backward.begin(), backward.end());
        CHECK(forward == backward);
        for (TextPos at = 0; at <= length; ++at)
            CHECK(lines.IsPosition(at) == std::binary_search(forward.begin(), forward.end(), at));
    });
}

TEST_CASE("line layout: no place is within a surrogate pair, or between a letter and its marks") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const char16_t* character :
             {u"x", u"\U0001D11E", u"\U00020000", u"e\u0301", u"a\u0302\u0323",
              u"\u05E9\u05C1\u05B8", u"\u0628\u064E\u0651", u"\u0E2A\u0E31", u"\u0915\u093F"}) {
            const std::u16string one = character;
            const TextPos length = TextPos(one.size());
            const auto lines = layout.BreakLines(LineParagraph(layout, one + one));
            CHECK(lines->NextPosition(0) == length);
            CHECK(lines->NextPosition(length) == 2 * length);
            CHECK(lines->PreviousPosition(2 * length) == length);
            CHECK(lines->PreviousPosition(length) == 0);
        }
    });
}

TEST_CASE("line layout: steps to the left and right go through all places of a line") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample&, int) {
        if (lines.Count() > 1) return;
        const std::vector<TextPos> walk = WalkRight(lines);
        for (std::size_t i = 1; i < walk.size(); ++i) {
            CAPTURE(i);
            CHECK(lines.CaretX(0, walk[i]) >= lines.CaretX(0, walk[i - 1]) - pixel);
            CHECK(lines.LeftOf(walk[i]) == walk[i - 1]);
        }
        auto visited = walk;
        std::sort(visited.begin(), visited.end());
        CHECK(visited == PlacesIn(lines, 0));
    });
}

TEST_CASE("line layout: in text of one direction, steps go on from line to line") {
    OnEachLineLayout([](LineLayout& layout) {
        struct {
            std::u16string text;
            bool rightToLeft;
        } const cases[] = {
            {u"some words  in a row of several\u2028words", false},
            {u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5  \u05DC\u05DD \u05E9\u05DC \u05D5\u05DD",
             true}};
        for (const auto& [text, rightToLeft] : cases) {
            const auto lines = layout.BreakLines(
                LineParagraph(layout, text, int(TextWidth(layout, text) / 2), rightToLeft));
            REQUIRE(lines->Count() > 1);
            for (TextPos at = 0; at <= TextPos(text.size()); ++at) {
                CAPTURE(at);
                const TextPos left = lines->LeftOf(at), right = lines->RightOf(at);
                CHECK((rightToLeft ? left : right) == lines->NextPosition(at));
                CHECK((rightToLeft ? right : left) == lines->PreviousPosition(at));
            }
        }
    });
}

TEST_CASE("line layout: words start after spaces") {
    OnEachLineLayout([](LineLayout& layout) {
        struct {
            std::u16string text;
            bool rightToLeft;
        } const cases[] = {
            {u"one two  three", false},
            {u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5  \u05D6\u05D7\u05D8\u05D9\u05DB", true}};
        for (const auto& each : cases) {
            CAPTURE(each.rightToLeft);
            const auto lines =
                layout.BreakLines(LineParagraph(layout, each.text, unlimited, each.rightToLeft));
            const TextPos starts[] = {0, 4, 9, 14};
            for (TextPos at = 0; at < 14; ++at) {
                CAPTURE(at);
                CHECK(lines->NextWord(at) == *std::upper_bound(starts, starts + 4, at));
                if (at > 0)
                    CHECK(lines->PreviousWord(at) ==
                          *(std::lower_bound(starts, starts + 4, at) - 1));
            }
            CHECK(lines->NextWord(14) == 14);
            CHECK(lines->PreviousWord(14) == 9);
            CHECK(lines->PreviousWord(0) == 0);
            for (const CharSpan word : {CharSpan{0, 3}, CharSpan{4, 3}, CharSpan{9, 5}})
                for (TextPos at = word.start; at < word.start + word.length; ++at)
                    CHECK(lines->WordAt(at) == word);
            CHECK(lines->WordAt(3) == CharSpan{3, 1});
            CHECK(lines->WordAt(14) == CharSpan{9, 5}); // the last word of the text
        }
    });
}

TEST_CASE("line layout: words and the stretches between them tile the text") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample& sample, int width) {
        if (width != unlimited) return;
        TextPos at = 0;
        const TextPos length = TextPos(sample.text.size());
        while (at < length) {
            const CharSpan word = lines.WordAt(at);
            CAPTURE(at);
            REQUIRE(word.start == at);
            REQUIRE(word.length > 0);
            CHECK(lines.IsPosition(at + word.length));
            CHECK(lines.WordAt(lines.PreviousPosition(at + word.length)) == word);
            at += word.length;
        }
        CHECK(at == length);
    });
}
