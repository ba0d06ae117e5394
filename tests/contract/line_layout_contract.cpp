// What every line layout must do: where lines break, and how large they are.
#include "tests/contract/line_layout_contract.h"

#include <algorithm>

namespace {
std::vector<TextPos> LineStarts(const TextLines& lines) {
    std::vector<TextPos> starts;
    for (int line = 0; line < lines.Count(); ++line)
        starts.push_back(lines.Line(line).start);
    return starts;
}

// Spaces at the end of a paragraph may hang over.
TextPos EndWithoutSpaces(const LineSample& sample) {
    return TextPos(sample.text.find_last_not_of(u' ') + 1);
}

double WidthFromTo(const TextLines& lines, int line, TextPos start, TextPos end) {
    double width = 0;
    for (const TextExtent& each : lines.Extents(line, start, end))
        width += each.right - each.left;
    return width;
}

const std::u16string words = u"some words in a row of several words that fill more lines than one";
} // namespace

TEST_CASE("line layout: lines tile the text") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample& sample, int) {
        REQUIRE(lines.Count() >= 1);
        CHECK(lines.Line(0).start == 0);
        for (int line = 0; line < lines.Count(); ++line) {
            CAPTURE(line);
            const TextLine& each = lines.Line(line);
            CHECK(lines.IsPosition(each.start));
            CHECK(each.ascent > 0);
            CHECK(each.descent >= 0);
            CHECK(each.width >= 0);
            if (IsLastLine(lines, line)) break;
            CHECK(each.end > each.start);
            CHECK(lines.Line(line + 1).start == each.end);
        }
        CHECK(lines.Line(lines.Count() - 1).end == TextPos(sample.text.size()));
    });
}

TEST_CASE("line layout: no line is wider than asked unless one character is") {
    OnEachSampleInLines([](const TextLines& lines, const LineSample& sample, int width) {
        for (int line = 0; line < lines.Count(); ++line) {
            CAPTURE(line);
            auto characters = VisibleCharacters(lines, line, sample.text);
            std::erase_if(characters, [&](TextPos at) { return at >= EndWithoutSpaces(sample); });
            const TextLine& each = lines.Line(line);
            const double visible = IsLastLine(lines, line) ? WidthFromTo(lines, line, each.start,
                                                                         EndWithoutSpaces(sample))
                                                           : each.width;
            CHECK((visible <= width + pixel || characters.size() == 1));
        }
    });
}

TEST_CASE("line layout: lines break between words, and are as full as they can be") {
    OnEachLineLayout([](LineLayout& layout) {
        const double space = TextWidth(layout, u"a a") - 2 * TextWidth(layout, u"a");
        const int width = int(2.5 * TextWidth(layout, u"several"));
        const auto lines = layout.BreakLines(LineParagraph(layout, words, width));
        REQUIRE(lines->Count() > 2);
        for (int line = 0; line + 1 < lines->Count(); ++line) {
            CAPTURE(line);
            const TextPos end = lines->Line(line).end;
            CHECK(words[std::size_t(end - 1)] == u' ');
            const auto wordEnd = std::min(words.find(u' ', std::size_t(end)), words.size());
            const double next =
                TextWidth(layout, words.substr(std::size_t(end), wordEnd - std::size_t(end)));
            CHECK(lines->Line(line).width + space + next > width - pixel);
        }
    });
}

TEST_CASE("line layout: a word that is longer than the line breaks where the line is full") {
    OnEachLineLayout([](LineLayout& layout) {
        const std::u16string word(40, u'x');
        const double letter = TextWidth(layout, word) / 40;
        const int width = int(7.5 * letter);
        const auto lines = layout.BreakLines(LineParagraph(layout, u"a " + word, width));
        // The long word may start after the short one, or in a line of its own.
        for (int line = 1; line + 1 < lines->Count(); ++line)
            CHECK(lines->Line(line).width > width - letter - pixel);
        CHECK(lines->Count() >= 6);
        CHECK(lines->Count() <= 8);
    });
}

TEST_CASE("line layout: a line separator breaks a line, also at the text's end") {
    OnEachLineLayout([](LineLayout& layout) {
        const auto lines = layout.BreakLines(LineParagraph(layout, u"one\u2028\u2028two\u2028"));
        CHECK(LineStarts(*lines) == std::vector<TextPos>{0, 4, 5, 9});
        CHECK(lines->Line(3).end == 9);
        CHECK(IsWithin(lines->Line(0).width, TextWidth(layout, u"one")));
        CHECK(lines->Line(1).width == 0);
        CHECK(lines->Line(3).width == 0);
        CHECK(lines->Line(3).ascent > 0);
    });
}

TEST_CASE("line layout: an empty paragraph is one line as high as its font") {
    OnEachLineLayout([](LineLayout& layout) {
        const auto lines = layout.BreakLines(LineParagraph(layout, u""));
        const auto letter = layout.BreakLines(LineParagraph(layout, u"x"));
        REQUIRE(lines->Count() == 1);
        CHECK(lines->Line(0).start == 0);
        CHECK(lines->Line(0).end == 0);
        CHECK(lines->Line(0).width == 0);
        CHECK(IsWithin(lines->Line(0).ascent, letter->Line(0).ascent));
        CHECK(IsWithin(lines->Line(0).descent, letter->Line(0).descent));
        CHECK(lines->CaretX(0, 0) == 0);
        CHECK(lines->PositionAt(0, 100) == 0);
        CHECK(lines->CharacterAt(0, 100) == 0);
        CHECK(lines->Extents(0, 0, 0).empty());
        CHECK(lines->NextPosition(0) == 0);
        CHECK(lines->PreviousPosition(0) == 0);
        CHECK(lines->LeftOf(0) == 0);
        CHECK(lines->RightOf(0) == 0);
        CHECK(lines->NextWord(0) == 0);
        CHECK(lines->PreviousWord(0) == 0);
        CHECK(lines->WordAt(0) == CharSpan{0, 0});
    });
}

TEST_CASE("line layout: an indent narrows the lines that it is for") {
    OnEachLineLayout([](LineLayout& layout) {
        const int indent = int(TextWidth(layout, u"several")), narrow = 3 * indent;
        for (const bool rightToLeft : {false, true}) {
            CAPTURE(rightToLeft);
            ParagraphText paragraph = LineParagraph(layout, words, narrow, rightToLeft);
            const auto plain = LineStarts(*layout.BreakLines(paragraph));
            paragraph.width = narrow + indent;
            paragraph.firstIndent = paragraph.indent = indent;
            CHECK(LineStarts(*layout.BreakLines(paragraph)) == plain);

            paragraph.indent = 0;
            const auto first = layout.BreakLines(paragraph);
            CHECK(first->Line(0).end == plain[1]);
            paragraph.firstIndent = 0;
            paragraph.text = words.substr(std::size_t(plain[1]));
            auto rest = LineStarts(*layout.BreakLines(paragraph));
            for (TextPos& start : rest)
                start += plain[1];
            rest.insert(rest.begin(), 0);
            CHECK(LineStarts(*first) == rest);
        }
    });
}

TEST_CASE("line layout: an indent that leaves no room leaves one character to a line") {
    OnEachLineLayout([](LineLayout& layout) {
        ParagraphText paragraph = LineParagraph(layout, u"abc de", 50);
        paragraph.firstIndent = paragraph.indent = 80;
        const auto lines = layout.BreakLines(paragraph);
        CHECK(LineStarts(*lines) == std::vector<TextPos>{0, 1, 2, 4, 5});
    });
}

TEST_CASE("line layout: spaces at the end of a wrapped line have no width") {
    OnEachLineLayout([](LineLayout& layout) {
        struct {
            std::u16string word;
            bool rightToLeft;
        } const cases[] = {{u"several", false}, {u"\u05E9\u05DC\u05D5\u05DD\u05E9\u05DC", true}};
        for (const auto& each : cases) {
            const std::u16string& word = each.word;
            const bool rightToLeft = each.rightToLeft;
            CAPTURE(rightToLeft);
            const double wordWidth = TextWidth(layout, word);
            std::u16string words = word;
            words.append(u"      ").append(word);
            const auto lines =
                layout.BreakLines(LineParagraph(layout, words, int(wordWidth * 1.2), rightToLeft));
            REQUIRE(lines->Count() == 2);
            const TextPos length = TextPos(word.size());
            CHECK(lines->Line(0).end == length + 6);
            CHECK(IsWithin(lines->Line(0).width, wordWidth));
            const double end = rightToLeft ? 0 : lines->Line(0).width;
            for (TextPos at = length; at < length + 6; ++at) {
                CHECK(IsWithin(lines->CaretX(0, at), end));
                const TextExtent extent = lines->CharacterExtent(0, at);
                CHECK(extent.left == extent.right);
            }
            CHECK(lines->Extents(0, length, length + 6).empty());
        }
    });
}

TEST_CASE("line layout: spaces at the end of the last line have their width") {
    OnEachLineLayout([](LineLayout& layout) {
        const double word = TextWidth(layout, u"ab"), spaces = TextWidth(layout, u"ab   ");
        CHECK(IsWithin(spaces - word, 3 * (TextWidth(layout, u"a b") - word), 3 * pixel));
        CHECK(spaces > word + 3);
    });
}
