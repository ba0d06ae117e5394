// What every line layout must do with fonts, tabs, boxes and justified lines.
#include "tests/contract/line_layout_contract.h"

#include "common/text.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr char16_t objectReplacement = u'\uFFFC';

// A run of small letters with one of large ones from `start` to `end`.
ParagraphText WithLargeRun(LineLayout& layout, std::u16string text, TextPos start, TextPos end) {
    ParagraphText paragraph = LineParagraph(layout, std::move(text));
    paragraph.runs.push_back({start, layout.Prepare(LineStyle(24))});
    paragraph.runs.push_back({end, paragraph.runs[0].style});
    return paragraph;
}

std::unique_ptr<TextLines> BreakWithTabs(LineLayout& layout, std::u16string text, bool rightToLeft,
                                         int indent = 0) {
    ParagraphText paragraph = LineParagraph(layout, std::move(text), unlimited, rightToLeft);
    paragraph.tabStops = {{200}, {330}};
    paragraph.tabDistance = 150;
    paragraph.firstIndent = indent;
    return layout.BreakLines(paragraph);
}

// How far from the start edge of its text the caret stands.
double FromStart(const TextLines& lines, TextPos position, bool rightToLeft) {
    const double x = lines.CaretX(0, position);
    return rightToLeft ? lines.Line(0).width - x : x;
}
} // namespace

TEST_CASE("line layout: metrics are those of a line of that style") {
    OnEachLineLayout([](LineLayout& layout) {
        const auto style = layout.Prepare(LineStyle());
        const FontMetrics metrics = layout.Metrics(*style);
        const auto lines = layout.BreakLines(LineParagraph(layout, u"abc"));
        CHECK(metrics.spaceWidth > 0);
        CHECK(metrics.leading >= 0);
        CHECK(IsWithin(lines->Line(0).ascent, metrics.ascent));
        CHECK(IsWithin(lines->Line(0).descent, metrics.descent));
        CHECK(IsWithin(TextWidth(layout, std::u16string(20, u' ')), 20 * metrics.spaceWidth,
                       10 * pixel));
    });
}

TEST_CASE("line layout: a larger font raises the lines that it is in") {
    OnEachLineLayout([](LineLayout& layout) {
        const FontMetrics small = layout.Metrics(*layout.Prepare(LineStyle())),
                          large = layout.Metrics(*layout.Prepare(LineStyle(24)));
        CHECK(large.ascent > 1.5 * small.ascent);
        const auto lines = layout.BreakLines(WithLargeRun(layout, u"abc\u2028def\u2028ghi", 5, 6));
        REQUIRE(lines->Count() == 3);
        CHECK(IsWithin(lines->Line(0).ascent, small.ascent));
        CHECK(IsWithin(lines->Line(1).ascent, large.ascent));
        CHECK(IsWithin(lines->Line(1).descent, large.descent));
        CHECK(IsWithin(lines->Line(2).ascent, small.ascent));
        const TextExtent e = lines->CharacterExtent(1, 5);
        CHECK(IsWithin(e.right - e.left, TextWidth(layout, u"e", LineStyle(24))));
        CHECK(TextWidth(layout, u"eeee", LineStyle(24)) > 1.5 * TextWidth(layout, u"eeee"));
    });
}

TEST_CASE("line layout: a control character raises no line and takes no room") {
    OnEachLineLayout([](LineLayout& layout) {
        const TextLine plain = layout.BreakLines(LineParagraph(layout, u"some words"))->Line(0);
        for (const char16_t control : {u'\x01', u'\b', u'\f', u'\x1A', u'\x1B', u'\x7F', u'\x85'}) {
            CAPTURE(int(control));
            const std::u16string text = control + std::u16string(u"some") + control + u" words";
            const auto lines = layout.BreakLines(LineParagraph(layout, text));
            REQUIRE(lines->Count() == 1);
            CHECK(IsWithin(lines->Line(0).ascent, plain.ascent));
            CHECK(IsWithin(lines->Line(0).descent, plain.descent));
            CHECK(IsWithin(lines->Line(0).width, plain.width));
        }
    });
}

TEST_CASE("line layout: an empty line is as high as the font of a run at the text's end") {
    OnEachLineLayout([](LineLayout& layout) {
        const auto large = layout.Prepare(LineStyle(24));
        for (const char16_t* text : {u"abc\u2028", u"abc\u2028\u2028"}) {
            ParagraphText paragraph = LineParagraph(layout, text);
            paragraph.runs.push_back({TextPos(paragraph.text.size()), large});
            const auto lines = layout.BreakLines(paragraph);
            const double ascent = lines->Line(lines->Count() - 1).ascent;
            CHECK(IsWithin(ascent, layout.Metrics(*large).ascent));
        }
    });
}

TEST_CASE("line layout: raised and lowered letters are smaller") {
    OnEachLineLayout([](LineLayout& layout) {
        TextStyle style = LineStyle(24);
        const double normal = TextWidth(layout, u"several", style);
        for (const TextBaseline baseline : {TextBaseline::Superscript, TextBaseline::Subscript}) {
            style.baseline = baseline;
            CHECK(TextWidth(layout, u"several", style) < 0.9 * normal);
            CHECK(TextWidth(layout, u"several", style) > 0.3 * normal);
        }
    });
}

TEST_CASE("line layout: measures grow with the resolution") {
    OnEachLineLayout([](LineLayout& layout) {
        const double before = TextWidth(layout, u"several words in a row");
        const FontMetrics small = layout.Metrics(*layout.Prepare(LineStyle()));
        layout.SetResolution(192);
        const double after = TextWidth(layout, u"several words in a row");
        const FontMetrics large = layout.Metrics(*layout.Prepare(LineStyle()));
        CHECK(IsWithin(after, 2 * before, 0.15 * after)); // hinted advances are whole pixels
        CHECK(IsWithin(large.Height(), 2 * small.Height(), 0.15 * large.Height()));
    });
}

TEST_CASE("line layout: a font that is not installed gives another, the empty one the system's") {
    OnEachLineLayout([](LineLayout& layout) {
        TextStyle style = LineStyle();
        style.font.family = u"No Such Family 471";
        CHECK(TextWidth(layout, u"several", style) > 7);
        CHECK(layout.Metrics(*layout.Prepare(style)).ascent > 0);
    });
}

TEST_CASE("line layout: each kind of family is one that is installed") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const auto kind :
             {GenericFamily::Serif, GenericFamily::SansSerif, GenericFamily::Monospace,
              GenericFamily::Cursive, GenericFamily::Fantasy, GenericFamily::SystemUi}) {
            CAPTURE(int(kind));
            std::u16string family = layout.FamilyOf(kind);
            CHECK(layout.IsInstalled(family));
            for (char16_t& unit : family)
                unit = FoldCase(unit);
            CHECK(layout.IsInstalled(family));
        }
        CHECK(!layout.IsInstalled(u"No Such Family 471"));
        CHECK(!layout.IsInstalled(u""));
        CHECK(!layout.IsInstalled(std::u16string(10'000, u'a')));
    });
}

TEST_CASE("line layout: letters are of the kind of family that was asked for") {
    OnEachLineLayout([](LineLayout& layout) {
        TextStyle style = LineStyle();
        style.font.family = layout.FamilyOf(GenericFamily::Monospace);
        CHECK(IsWithin(TextWidth(layout, u"iiiiiiii", style), TextWidth(layout, u"mmmmmmmm", style),
                       maxOverhang));
        CHECK(layout.FamilyOf(GenericFamily::Serif) != layout.FamilyOf(GenericFamily::SansSerif));
        CHECK(layout.FamilyOf(GenericFamily::Serif) != layout.FamilyOf(GenericFamily::Monospace));
    });
}

TEST_CASE("line layout: a tab reaches to the next stop, after the last to a multiple") {
    OnEachLineLayout([](LineLayout& layout) {
        struct {
            std::u16string text;
            bool rightToLeft;
        } const cases[] = {{u"a\tb\tc\td\t\te", false},
                           {u"\u05D0\t\u05D1\t\u05D2\t\u05D3\t\t\u05D4", true}};
        for (const auto& each : cases) {
            const std::u16string& text = each.text;
            const bool rightToLeft = each.rightToLeft;
            CAPTURE(rightToLeft);
            const auto lines = BreakWithTabs(layout, text, rightToLeft);
            REQUIRE(lines->Count() == 1);
            CHECK(IsWithin(FromStart(*lines, 2, rightToLeft), 200));
            CHECK(IsWithin(FromStart(*lines, 4, rightToLeft), 330));
            CHECK(IsWithin(FromStart(*lines, 6, rightToLeft), 450));
            CHECK(IsWithin(FromStart(*lines, 8, rightToLeft), 600));
            CHECK(IsWithin(FromStart(*lines, 9, rightToLeft), 750)); // from a stop to the next
            const TextExtent tab = lines->CharacterExtent(0, 8);
            CHECK(IsWithin(tab.right - tab.left, 150, 2 * pixel));
            const double middle = (tab.left + tab.right) / 2;
            CHECK(lines->CharacterAt(0, middle) == 8);
        }
    });
}

TEST_CASE("line layout: tab stops are from the start edge, not from the indent") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const bool rightToLeft : {false, true}) {
            CAPTURE(rightToLeft);
            const std::u16string text = rightToLeft ? u"\t\u05D0\t\u05D1" : u"\ta\tb";
            const auto lines = BreakWithTabs(layout, text, rightToLeft, 50);
            CHECK(IsWithin(FromStart(*lines, 1, rightToLeft), 150));
            CHECK(IsWithin(FromStart(*lines, 3, rightToLeft), 280));
            const auto atStop = BreakWithTabs(layout, u"\t\t" + text.substr(1, 1), rightToLeft);
            CHECK(IsWithin(FromStart(*atStop, 2, rightToLeft), 330));
            const auto after = BreakWithTabs(layout, text, rightToLeft, 220);
            CHECK(IsWithin(FromStart(*after, 1, rightToLeft), 110));
        }
    });
}

TEST_CASE("line layout: no line breaks between a box and a word joiner") {
    OnEachLineLayout([](LineLayout& layout) {
        const std::u16string text = u"abc " + (objectReplacement + std::u16string(u"\u2060abc"));
        const double word = TextWidth(layout, u"abc");
        ParagraphText paragraph =
            LineParagraph(layout, text + u"\u2060" + objectReplacement, int(4 * word), false);
        const int box = int(word);
        paragraph.boxes = {{4, box}, {10, box}};
        const auto lines = layout.BreakLines(paragraph);
        REQUIRE(lines->Count() == 2);
        CHECK(lines->Line(1).start == 4);
    });
}

TEST_CASE("line layout: no line breaks after a space before a word joiner") {
    OnEachLineLayout([](LineLayout& layout) {
        const std::u16string text = u"aa bb \u2060cc dd";
        const int width = int(TextWidth(layout, u"aa bb cc")) - 2;
        CHECK(layout.BreakLines(LineParagraph(layout, text, width))->Line(0).end == 3);
        const std::u16string boxes = u"aa b \u2060" + std::u16string(2, objectReplacement);
        ParagraphText paragraph = LineParagraph(layout, boxes, width);
        paragraph.boxes = {{6, width / 2}, {7, width / 4}};
        CHECK(layout.BreakLines(paragraph)->Line(0).end == 3);
    });
}

TEST_CASE("line layout: a box has its width, and lines may break beside it") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const bool rightToLeft : {false, true}) {
            CAPTURE(rightToLeft);
            const std::u16string word = rightToLeft ? u"\u05D0\u05D1\u05D2" : u"abc";
            const double wordWidth = TextWidth(layout, word);
            const int box = int(2 * wordWidth);
            ParagraphText paragraph = LineParagraph(layout, (word + objectReplacement).append(word),
                                                    unlimited, rightToLeft);
            paragraph.boxes = {{3, box}};
            auto lines = layout.BreakLines(paragraph);
            REQUIRE(lines->Count() == 1);
            CHECK(IsWithin(lines->Line(0).width, box + 2 * wordWidth, 2 * pixel));
            const TextExtent extent = lines->CharacterExtent(0, 3);
            CHECK(IsWithin(extent.right - extent.left, box));
            CHECK(IsWithin(extent.left, wordWidth, 2 * pixel));
            CHECK(lines->CharacterAt(0, (extent.left + extent.right) / 2) == 3);
            CHECK(lines->NextPosition(3) == 4);
            CHECK(lines->PreviousPosition(4) == 3);

            paragraph.width = box + 1; // alone in its line
            lines = layout.BreakLines(paragraph);
            REQUIRE(lines->Count() == 3);
            CHECK(lines->Line(1).start == 3);
            CHECK(lines->Line(1).end == 4);
            CHECK(IsWithin(lines->Line(1).width, box));
            const double ascent = layout.Metrics(*paragraph.runs[0].style).ascent;
            CHECK(lines->Line(1).ascent <= ascent + pixel); // the box does not count
        }
    });
}

TEST_CASE("line layout: beside a box a line breaks as between words") {
    OnEachLineLayout([](LineLayout& layout) {
        const int box = 100, before = int(std::ceil(TextWidth(layout, u"xx abc")));
        ParagraphText paragraph = LineParagraph(layout, u"xx abc\uFFFCdef", before + box / 2);
        paragraph.boxes = {{6, box}};
        CHECK(layout.BreakLines(paragraph)->Line(0).end == 6);
        paragraph.width = before + box + 2;
        CHECK(layout.BreakLines(paragraph)->Line(0).end == 7);
    });
}

TEST_CASE("line layout: justified lines fill the width, all but the last") {
    OnEachLineLayout([](LineLayout& layout) {
        struct {
            std::u16string text;
            bool rightToLeft;
        } const cases[] = {
            {u"some words in a row of several words that fill more lines than one", false},
            {Repeated(u"\u05E9\u05DC \u05D5\u05DD\u05E2 ", 8) + u"\u05E9\u05DC", true}};
        for (const auto& each : cases) {
            const std::u16string& text = each.text;
            const bool rightToLeft = each.rightToLeft;
            CAPTURE(rightToLeft);
            const int indent = 7, room = int(TextWidth(layout, text) / 3.5);
            ParagraphText paragraph = LineParagraph(layout, text, room + indent, rightToLeft);
            paragraph.firstIndent = paragraph.indent = indent;
            const auto natural = layout.BreakLines(paragraph);
            paragraph.justified = true;
            const auto lines = layout.BreakLines(paragraph);
            REQUIRE(lines->Count() == natural->Count());
            REQUIRE(lines->Count() > 2);
            for (int line = 0; line + 1 < lines->Count(); ++line) {
                CAPTURE(line);
                CHECK(lines->Line(line).end == natural->Line(line).end);
                CHECK(lines->Line(line).justified);
                CHECK(IsWithin(lines->Line(line).width, room));
                const double end = lines->CaretX(line, lines->Line(line).end - 1);
                CHECK(IsWithin(end, rightToLeft ? 0 : room)); // a space
            }
            const int last = lines->Count() - 1;
            CHECK_FALSE(lines->Line(last).justified);
            CHECK(IsWithin(lines->Line(last).width, natural->Line(last).width));
        }
    });
}

// Also where the next word would fit but for a part of a pixel.
TEST_CASE("line layout: justified lines end near the edge at any width") {
    OnEachLineLayout([](LineLayout& layout) {
        TextStyle style = LineStyle();
        style.font.exactSize = true;
        const std::u16string text =
            u"some words in a row of several words that fill more lines than one, and go on";
        const int all = int(TextWidth(layout, text, style));
        for (int width = all / 4; width < all - 1; ++width) {
            ParagraphText paragraph = LineParagraph(layout, text, width);
            paragraph.runs[0].style = layout.Prepare(style);
            paragraph.justified = true;
            const auto lines = layout.BreakLines(paragraph);
            CAPTURE(width);
            REQUIRE(lines->Line(0).justified);
            const TextPos end = lines->Line(0).end; // after a space
            const double right = lines->CharacterExtent(0, end - 2).right;
            CHECK(right > width - 4 * pixel);
            CHECK(right < width + 4 * pixel); // Qt makes room for the ink of the last letter
        }
    });
}

TEST_CASE("line layout: a word alone in a justified line is not spread") {
    OnEachLineLayout([](LineLayout& layout) {
        TextStyle plain = LineStyle(), bold = LineStyle();
        plain.font.exactSize = bold.font.exactSize = true;
        bold.font.bold = true;
        const int word = int(TextWidth(layout, u"understander", bold));
        for (int width = word; width < word + 20; ++width) {
            ParagraphText paragraph =
                LineParagraph(layout, u"under\u00ADstander under\u00ADstander", width);
            paragraph.runs = {{0, layout.Prepare(plain)}, {5, layout.Prepare(bold)}};
            const double natural = layout.BreakLines(paragraph)->CharacterExtent(0, 12).right;
            paragraph.justified = true;
            CAPTURE(width);
            const auto lines = layout.BreakLines(paragraph);
            CHECK(lines->CharacterExtent(0, 12).right < natural + 3 * pixel);
        }
    });
}

TEST_CASE("line layout: a line without spaces, with a tab or before a break is not justified") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const char16_t* text :
             {u"several several", u"a\tb several several", u"a b c\u2028several several"}) {
            ParagraphText paragraph =
                LineParagraph(layout, text, int(2 * TextWidth(layout, u"several")));
            paragraph.tabStops = {{int(TextWidth(layout, u"abc"))}};
            const auto natural = layout.BreakLines(paragraph);
            paragraph.justified = true;
            const auto lines = layout.BreakLines(paragraph);
            REQUIRE(lines->Count() == natural->Count());
            REQUIRE(lines->Count() > 1);
            CHECK_FALSE(lines->Line(0).justified);
            CHECK(IsWithin(lines->Line(0).width, natural->Line(0).width));
        }
    });
}
