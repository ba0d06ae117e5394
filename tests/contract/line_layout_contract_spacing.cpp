// What every line layout must do with letters and words that are set apart.
#include "tests/contract/line_layout_contract.h"

namespace {
TextStyle Spaced(double letters, double words = 0) {
    TextStyle style = LineStyle();
    style.letterSpacing = letters;
    style.wordSpacing = words;
    return style;
}

double WidthOf(const TextExtent& extent) {
    return extent.right - extent.left;
}
} // namespace

TEST_CASE("line layout: letters are set apart by the pixels asked for, at each resolution") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const int dpi : {96, 120, 192}) {
            CAPTURE(dpi);
            layout.SetResolution(dpi);
            for (const std::u16string& text :
                 {std::u16string(u"several"),
                  std::u16string(u"\u05E9\u05DC\u05D5\u05DD\u05E2\u05D5\u05DD"),
                  std::u16string(u"\u4E2D\u6587\u6587\u5B57\u4E2D\u6587\u6587")}) {
                const double plain = TextWidth(layout, text);
                CHECK(IsWithin(TextWidth(layout, text, Spaced(5)), plain + 35, 2 * pixel));
                CHECK(IsWithin(TextWidth(layout, text, Spaced(-2)), plain - 14, 2 * pixel));
                CHECK(IsWithin(TextWidth(layout, text, Spaced(0.5)), plain + 3.5, 2 * pixel));
            }
        }
    });
}

TEST_CASE("line layout: each letter that is set apart is wider, with its marks") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const bool rightToLeft : {false, true}) {
            CAPTURE(rightToLeft);
            const std::u16string text =
                rightToLeft ? u"\u05D1\u05B8\u05D0 \u05D1\u05D0" : u"ba\u0301 ab";
            ParagraphText paragraph = LineParagraph(layout, text, unlimited, rightToLeft);
            const auto plain = layout.BreakLines(paragraph);
            paragraph.runs[0].style = layout.Prepare(Spaced(6));
            const auto spaced = layout.BreakLines(paragraph);
            for (TextPos at = 0; at < TextPos(text.size()); at = spaced->NextPosition(at)) {
                CAPTURE(at);
                const TextExtent extent = spaced->CharacterExtent(0, at);
                const double wider = WidthOf(extent) - WidthOf(plain->CharacterExtent(0, at));
                const bool hasMark = spaced->NextPosition(at) > at + 1;
                CHECK((IsWithin(wider, 6) || (hasMark && IsWithin(wider, 12))));
                CHECK(spaced->CharacterAt(0, (extent.left + extent.right) / 2) == at);
                CHECK(IsWithin(spaced->CaretX(0, at), rightToLeft ? extent.right : extent.left));
            }
        }
    });
}

TEST_CASE("line layout: words are set apart at their spaces, also at one that does not break") {
    OnEachLineLayout([](LineLayout& layout) {
        const double plain = TextWidth(layout, u"a b\u00A0c d");
        CHECK(IsWithin(TextWidth(layout, u"a b\u00A0c d", Spaced(0, 9)), plain + 27));
        CHECK(IsWithin(TextWidth(layout, u"a b\u00A0c d", Spaced(0, -1)), plain - 3));
        CHECK(IsWithin(TextWidth(layout, u"a b\u00A0c d", Spaced(2, 9)), plain + 41));
        CHECK(IsWithin(TextWidth(layout, u"abcd", Spaced(0, 9)), TextWidth(layout, u"abcd")));
    });
}

TEST_CASE("line layout: letters are set apart in their run alone, and boxes are not") {
    OnEachLineLayout([](LineLayout& layout) {
        ParagraphText paragraph = LineParagraph(layout, u"abc\uFFFCdef");
        paragraph.boxes = {{3, 40}};
        const auto plain = layout.BreakLines(paragraph);
        const StyleHandle normal = paragraph.runs[0].style;
        paragraph.runs = {{0, normal}, {2, layout.Prepare(Spaced(8))}, {5, normal}};
        const auto spaced = layout.BreakLines(paragraph);
        for (TextPos at = 0; at < 7; ++at) {
            CAPTURE(at);
            const bool wider = at == 2 || at == 4;
            CHECK(IsWithin(WidthOf(spaced->CharacterExtent(0, at)),
                           WidthOf(plain->CharacterExtent(0, at)) + (wider ? 8 : 0)));
        }
        CHECK(IsWithin(spaced->Line(0).width, plain->Line(0).width + 16));
    });
}

TEST_CASE("line layout: a box keeps its width at each resolution") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const int dpi : {96, 144, 192, 288}) {
            CAPTURE(dpi);
            layout.SetResolution(dpi);
            ParagraphText paragraph = LineParagraph(layout, u"a\uFFFCb");
            paragraph.boxes = {{1, 120}};
            CHECK(IsWithin(WidthOf(layout.BreakLines(paragraph)->CharacterExtent(0, 1)), 120));
        }
    });
}

TEST_CASE("line layout: lines of letters that are set apart break where they are full") {
    OnEachLineLayout([](LineLayout& layout) {
        const double word = TextWidth(layout, u"aaaa", Spaced(10));
        ParagraphText paragraph = LineParagraph(layout, u"aaaa aaaa aaaa", int(1.9 * word));
        CHECK(layout.BreakLines(paragraph)->Count() < 3);
        paragraph.runs[0].style = layout.Prepare(Spaced(10));
        CHECK(layout.BreakLines(paragraph)->Count() == 3);
    });
}

TEST_CASE("line layout: text set apart fills a justified line") {
    OnEachLineLayout([](LineLayout& layout) {
        const std::u16string text = u"some words in a row of several words";
        ParagraphText paragraph = LineParagraph(layout, text, 150);
        paragraph.runs[0].style = layout.Prepare(Spaced(3, 5));
        paragraph.justified = true;
        const auto lines = layout.BreakLines(paragraph);
        REQUIRE(lines->Count() > 2);
        CHECK(lines->Line(0).justified);
        CHECK(IsWithin(lines->Line(0).width, 150));
        const TextPos end = lines->Line(0).end;
        CHECK(IsWithin(lines->CharacterExtent(0, end - 2).right, 150, 2 * pixel));
    });
}

TEST_CASE("line layout: raised text is as large as other text, and the line as high") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const double raise : {12.0, -12.0}) {
            TextStyle style = LineStyle();
            style.raise = raise;
            CHECK(IsWithin(TextWidth(layout, u"several", style), TextWidth(layout, u"several")));
            ParagraphText paragraph = LineParagraph(layout, u"several words");
            const TextLine plain = layout.BreakLines(paragraph)->Line(0);
            paragraph.runs.push_back({3, layout.Prepare(style)});
            const TextLine raised = layout.BreakLines(paragraph)->Line(0);
            CHECK(IsWithin(raised.width, plain.width));
            CHECK(raised.ascent == plain.ascent);
            CHECK(raised.descent == plain.descent);
        }
    });
}
