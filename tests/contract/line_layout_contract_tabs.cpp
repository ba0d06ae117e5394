// What every line layout must do with tabs whose text ends at their stop, or stands around it, and
// with leaders.
#include "tests/contract/line_layout_contract.h"

#include <algorithm>

namespace {
struct Sample {
    std::u16string text;
    bool rightToLeft = false;
};

const Sample rightToLeftTitle = {u"\u05D0\u05D1\u05D2\u05D3\t12", true};

ParagraphText WithStops(LineLayout& layout, const Sample& sample, std::vector<TabStop> stops,
                        int width = unlimited) {
    ParagraphText paragraph = LineParagraph(layout, sample.text, width, sample.rightToLeft);
    paragraph.tabStops = std::move(stops);
    return paragraph;
}

std::unique_ptr<TextLines> Broken(LineLayout& layout, const Sample& sample,
                                  std::vector<TabStop> stops, int width = unlimited) {
    return layout.BreakLines(WithStops(layout, sample, std::move(stops), width));
}

// How far the characters reach from the start edge of the line's text.
TextExtent Along(const TextLines& lines, int line, const Sample& sample, TextPos start,
                 TextPos end) {
    const auto extents = Joined(lines.Extents(line, start, end));
    if (extents.empty()) return {-1, -1};
    const double left = extents.front().left, right = extents.back().right,
                 width = lines.Line(line).width;
    return sample.rightToLeft ? TextExtent{width - right, width - left} : TextExtent{left, right};
}

TextPos LengthOf(const Sample& sample) {
    return TextPos(sample.text.size());
}

constexpr TabStop rightStop = {300, TabAlignment::Right, TabLeader::Dots};
} // namespace

TEST_CASE("line layout: text after a right tab ends at the stop") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const Sample& sample : {Sample{u"Title\t12"}, Sample{u"\t12345"}, rightToLeftTitle,
                                     Sample{u"Title\t\u05D0\u05D1 12"}, Sample{u"a b\tc d e"}}) {
            const TextPos tab = TextPos(sample.text.find(u'\t'));
            CAPTURE(tab);
            const auto lines = Broken(layout, sample, {rightStop});
            REQUIRE(lines->Count() == 1);
            const TextExtent after = Along(*lines, 0, sample, tab + 1, LengthOf(sample));
            CHECK(IsWithin(after.right, 300, maxOverhang));
            const double natural = TextWidth(layout, sample.text.substr(std::size_t(tab) + 1));
            CHECK(IsWithin(after.right - after.left, natural, maxOverhang));
            const TextExtent gap = Along(*lines, 0, sample, tab, tab + 1);
            CHECK(IsWithin(gap.right, after.left));
        }
    });
}

TEST_CASE("line layout: text after a centre tab stands around the stop") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const Sample& sample : {Sample{u"a\tseveral"}, rightToLeftTitle}) {
            const TextPos tab = TextPos(sample.text.find(u'\t'));
            const auto lines = Broken(layout, sample, {{200, TabAlignment::Center}});
            const TextExtent after = Along(*lines, 0, sample, tab + 1, LengthOf(sample));
            CHECK(IsWithin((after.left + after.right) / 2, 200, maxOverhang));
        }
    });
}

TEST_CASE("line layout: decimals after a decimal tab begin at the stop") {
    OnEachLineLayout([](LineLayout& layout) {
        struct {
            const char16_t* text;
            TextPos atStop;
        } const cases[] = {{u"\t12.50", 3}, {u"\t-1,234.5", 7}, {u"\t1.234,56", 6},
                           {u"\t7", 2},     {u"\t7 miles", 2},  {u"\tabc", 4},
                           {u"\t1,234", 6}, {u"\t$3,5", 3},     {u"\t1.5\t2.75", 2}};
        for (const auto& each : cases) {
            const TextPos atStop = each.atStop;
            CAPTURE(atStop);
            const auto lines = Broken(layout, {each.text}, {{200, TabAlignment::Decimal}});
            CHECK(IsWithin(lines->CaretX(0, atStop), 200, maxOverhang));
        }
    });
}

TEST_CASE("line layout: a right stop beyond the line is the line's end") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const Sample& sample : {Sample{u"Title\t12"}, rightToLeftTitle}) {
            const TextPos tab = TextPos(sample.text.find(u'\t'));
            for (const int width : {100, 170, 299}) {
                CAPTURE(width);
                ParagraphText paragraph = WithStops(layout, sample, {rightStop}, width);
                paragraph.firstIndent = 20;
                const auto lines = layout.BreakLines(paragraph);
                REQUIRE(lines->Count() == 1);
                const TextExtent after = Along(*lines, 0, sample, tab + 1, LengthOf(sample));
                CHECK(IsWithin(after.right, width - 20, maxOverhang));
                CHECK(after.right <= width - 20 + pixel);
            }
        }
    });
}

TEST_CASE("line layout: a line breaks in front of a right tab, not after it") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const Sample& sample :
             {Sample{u"several words in a title\t12"}, Sample{u"1.2\tseveral words in a title\t12"},
              Sample{u"\u05D0\u05D1\u05D2 \u05D0\u05D1\u05D2\u05D3\t12", true}}) {
            const TextPos tab = TextPos(sample.text.rfind(u'\t')), end = LengthOf(sample);
            const auto title = int(Broken(layout, sample, {{30}})->CaretX(0, tab));
            int alone = 0;
            for (int width = title + 60; width > std::max(title / 2, 60); width -= 3) {
                CAPTURE(width);
                const auto lines = Broken(layout, sample, {{30}, rightStop}, width);
                const int last = lines->Count() - 1;
                const TextLine& line = lines->Line(last);
                CHECK(line.start <= tab);
                alone += line.start == tab;
                const TextExtent number = Along(*lines, last, sample, tab + 1, end);
                CHECK(IsWithin(number.right, std::min(width, 300), maxOverhang));
                const TextExtent gap = Along(*lines, last, sample, tab, tab + 1);
                CHECK(gap.right - gap.left >= 2); // a space's
            }
            CHECK(alone > 0);
        }
    });
}

TEST_CASE("line layout: text that is too long for a stop goes on beyond it") {
    OnEachLineLayout([](LineLayout& layout) {
        const std::u16string text = u"several\tseveral words";
        const int stop = int(TextWidth(layout, u"several several"));
        const auto lines = Broken(layout, {text}, {{stop, TabAlignment::Right}});
        REQUIRE(lines->Count() == 1);
        const TextExtent gap = lines->CharacterExtent(0, 7);
        CHECK(IsWithin(gap.right - gap.left, TextWidth(layout, u" "), 2 * pixel));
        CHECK(lines->Line(0).width > stop + 10);
        // What is long beyond the line continues in the next one.
        const auto wrapped = Broken(layout, {u"\t" + text.substr(8) + u" in a row of words"},
                                    {{stop, TabAlignment::Right}}, stop);
        REQUIRE(wrapped->Count() > 1);
        CHECK(wrapped->CharacterExtent(0, 0).right < stop / 2);
        CHECK(wrapped->Line(0).width <= stop + pixel);
        CHECK(wrapped->Line(0).end > 8);
    });
}

TEST_CASE("line layout: stops of all kinds follow each other in a line") {
    OnEachLineLayout([](LineLayout& layout) {
        const Sample sample = {u"1.2\tTitle\tmiddle\t9.75\t12\tz"};
        const auto lines = Broken(layout, sample,
                                  {{40},
                                   {200, TabAlignment::Center},
                                   {300, TabAlignment::Decimal},
                                   {400, TabAlignment::Right, TabLeader::Hyphens},
                                   {440}});
        REQUIRE(lines->Count() == 1);
        CHECK(IsWithin(lines->CaretX(0, 4), 40));
        const TextExtent middle = Along(*lines, 0, sample, 10, 16);
        CHECK(IsWithin((middle.left + middle.right) / 2, 200, maxOverhang));
        CHECK(IsWithin(lines->CaretX(0, 18), 300, maxOverhang));
        CHECK(IsWithin(lines->CaretX(0, 24), 400, maxOverhang));
        CHECK(IsWithin(lines->CaretX(0, 25), 440));
    });
}

TEST_CASE("line layout: each line of a paragraph has its own right tabs") {
    OnEachLineLayout([](LineLayout& layout) {
        const Sample sample = {u"One\t1\u2028Two\t22\u2028Three\t333"};
        const auto lines = Broken(layout, sample, {rightStop}, 250);
        REQUIRE(lines->Count() == 3);
        for (int line = 0; line < 3; ++line) {
            CAPTURE(line);
            const TextPos end = lines->Line(line).end - (line < 2 ? 1 : 0);
            CHECK(IsWithin(lines->CharacterExtent(line, end - 1).right, 250, maxOverhang));
        }
    });
}

TEST_CASE("line layout: the mouse and the caret find a right tab and what stands at it") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const Sample& sample :
             {Sample{u"Title\t12"}, Sample{u"\u05D0\u05D1\u05D2\u05D3\t\u05D4\u05D5", true}}) {
            const TextPos tab = TextPos(sample.text.find(u'\t'));
            const auto lines = Broken(layout, sample, {rightStop}, 250);
            const TextExtent gap = lines->CharacterExtent(0, tab);
            CHECK(gap.right - gap.left > 100);
            CHECK(lines->CharacterAt(0, (gap.left + gap.right) / 2) == tab);
            CHECK(lines->PositionAt(0, gap.left + 2) == (sample.rightToLeft ? tab + 1 : tab));
            CHECK(lines->NextPosition(tab) == tab + 1);
            CHECK((sample.rightToLeft ? lines->LeftOf(tab - 1) : lines->RightOf(tab - 1)) == tab);
            const auto whole = lines->Extents(0, 0, LengthOf(sample));
            CHECK(Joined(whole).size() == 1); // a selection has no hole
        }
    });
}

TEST_CASE("line layout: a paragraph with a right tab is not justified in that line alone") {
    OnEachLineLayout([](LineLayout& layout) {
        ParagraphText paragraph = WithStops(
            layout, {u"a b\tc d several several several several several"}, {rightStop}, 140);
        paragraph.justified = true;
        const auto lines = layout.BreakLines(paragraph);
        REQUIRE(lines->Count() > 2);
        CHECK_FALSE(lines->Line(0).justified);
        CHECK(lines->Line(1).justified);
    });
}
