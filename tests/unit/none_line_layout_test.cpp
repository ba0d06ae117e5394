// What the headless line layout adds to its port: exact measures, and a record.
#include "platform/none/none_canvas.h"
#include "platform/none/none_line_layout.h"
#include "tests/unit/show_text.h"

namespace {
constexpr int letter = 8; // pixels, of 12 points at 96 per inch

ParagraphText Paragraph(LineLayout& layout, std::u16string text, int width = 1000) {
    ParagraphText paragraph;
    paragraph.text = std::move(text);
    TextStyle style;
    style.font.points = 12;
    paragraph.runs = {{0, layout.Prepare(style)}};
    paragraph.width = width;
    return paragraph;
}

// The text with its line breaks, where lines have room for so many letters.
std::u16string InLines(const std::u16string& text, int letters) {
    NoneLineLayout layout;
    const auto lines = layout.BreakLines(Paragraph(layout, text, letters * letter));
    std::u16string broken;
    for (int i = 0; i < lines->Count(); ++i) {
        const TextLine& line = lines->Line(i);
        broken += (i > 0 ? u"|" : u"") +
                  text.substr(std::size_t(line.start), std::size_t(line.end - line.start));
    }
    return broken;
}

double WidthOf(const std::u16string& text) {
    NoneLineLayout layout;
    return layout.BreakLines(Paragraph(layout, text))->Line(0).width;
}
} // namespace

TEST_CASE("headless line layout: letters are half as wide as high") {
    CHECK(WidthOf(u"abc") == 3 * letter);
    CHECK(WidthOf(u"\u4E2D\u6587") == 4 * letter);
    CHECK(WidthOf(u"e\u0301\u200E\u00AD\u05E9\u05C1") == 2 * letter);
    CHECK(WidthOf(u"\U0001D11E\U0001F468\u200D\U0001F467") == 3 * letter);
    CHECK(WidthOf(u"\u1112\u1161\u11AB") == 2 * letter);
    NoneLineLayout layout;
    const auto line = layout.BreakLines(Paragraph(layout, u"a"))->Line(0);
    CHECK(line.ascent + line.descent == doctest::Approx(2 * letter));
}

TEST_CASE("headless line layout: lines are filled to the last letter") {
    CHECK(InLines(u"one two three", 7) == u"one two |three");
    CHECK(InLines(u"one two three", 6) == u"one |two |three");
    CHECK(InLines(u"abcdefgh", 3) == u"abc|def|gh");
    CHECK(InLines(u"a bcdefgh", 3) == u"a |bcd|efg|h");
    CHECK(InLines(u"well-known", 6) == u"well-|known");
    CHECK(InLines(u"\u4E2D\u6587\u3002", 4) == u"\u4E2D|\u6587\u3002");
    CHECK(InLines(u"one      two", 3) == u"one      |two");
    CHECK(InLines(u"one\u2028 two\u2028", 9) == u"one\u2028| two\u2028|");
}

TEST_CASE("headless line layout: a soft hyphen is seen where a line breaks after it") {
    CHECK(InLines(u"co\u00ADop", 3) == u"co\u00AD|op");
    CHECK(InLines(u"a co\u00ADop", 4) == u"a |co\u00ADop"); // no room for the hyphen
    NoneLineLayout layout;
    const auto lines = layout.BreakLines(Paragraph(layout, u"co\u00ADop", 3 * letter));
    CHECK(lines->Line(0).width == 3 * letter);
    CHECK(lines->CharacterExtent(0, 2).right == 3 * letter);
    CHECK(lines->CaretX(0, 2) == 2 * letter);
}

TEST_CASE("headless line layout: tabs end where the line does") {
    CHECK(InLines(u"a\tb", 4) == u"a\t|b");
    CHECK(InLines(u"abcd\tb", 4) == u"abcd|\t|b");
    CHECK(InLines(u"\t\t\tx", 2) == u"\t|\t|\t|x");
    NoneLineLayout layout;
    const auto lines = layout.BreakLines(Paragraph(layout, u"a\t", 4 * letter));
    CHECK(lines->Line(0).width == 4 * letter);
}

TEST_CASE("headless line layout: spaces at the text's end take the room that is left") {
    NoneLineLayout layout;
    const auto lines = layout.BreakLines(Paragraph(layout, u"ab    ", 4 * letter));
    REQUIRE(lines->Count() == 1);
    CHECK(lines->Line(0).width == 4 * letter);
    CHECK(lines->CaretX(0, 3) == 3 * letter);
    CHECK(lines->CaretX(0, 6) == 4 * letter);
}

TEST_CASE("headless line layout: steps between directions follow what is seen") {
    NoneLineLayout layout;
    // Seen as: a b DCB(right to left) c, where each Hebrew letter's caret is to its right.
    const auto lines = layout.BreakLines(Paragraph(layout, u"ab\u05D0\u05D1\u05D2c"));
    TextPos at = 0;
    std::vector<TextPos> seen;
    for (int i = 0; i < 7; ++i, at = lines->RightOf(at))
        seen.push_back(at);
    CHECK(seen == std::vector<TextPos>{0, 1, 4, 3, 2, 5, 6});
    CHECK(lines->CaretX(0, 2) == 5 * letter);
    CHECK(lines->CaretX(0, 4) == 3 * letter);
    CHECK(lines->CharacterAt(0, 2.5 * letter) == 4);
}

TEST_CASE("headless line layout: remembers what it was asked") {
    NoneLineLayout layout;
    const ParagraphText paragraph = Paragraph(layout, u"abc");
    layout.BreakLines(paragraph);
    CHECK(layout.prepared == 1);
    CHECK(layout.paragraphs == 1);
    CHECK(layout.staleStyles == 0);
    layout.SetResolution(120);
    layout.BreakLines(paragraph);
    CHECK(layout.staleStyles == 1);
}

TEST_CASE("headless canvas: keeps what is drawn, in order") {
    NoneLineLayout layout;
    ParagraphText paragraph = Paragraph(layout, u"abcd ef", 5 * letter);
    TextStyle marked;
    marked.font.points = 12;
    marked.background = 0x00FFFF;
    paragraph.runs.push_back({1, layout.Prepare(marked)});
    paragraph.runs.push_back({3, paragraph.runs[0].style});
    const auto lines = layout.BreakLines(paragraph);
    NoneCanvas canvas;
    canvas.TintRect({1, 2, 3, 4}, 0xFF);
    LinePaint paint;
    paint.text = 0x123456;
    paint.clip = {0, 0, 110, 100};
    const Rect without[] = {{100, 30, 8, 16}};
    paint.without = without;
    lines->Draw(canvas, 0, 100, 43, paint);
    REQUIRE(canvas.drawings.size() == 3); // the second letter with a background is clipped away
    CHECK(canvas.drawings[0].kind == NoneDrawing::Kind::Tint);
    CHECK(canvas.drawings[1].kind == NoneDrawing::Kind::Fill);
    CHECK(canvas.drawings[1].rect == Rect{108, 30, 2, 17});
    CHECK(canvas.drawings[1].color == 0x00FFFF);
    CHECK(canvas.drawings[2].kind == NoneDrawing::Kind::Text);
    CHECK(canvas.drawings[2].text == u"abcd");
    CHECK(canvas.drawings[2].left == 100);
    CHECK(canvas.drawings[2].baseline == 43);
    CHECK(canvas.drawings[2].color == 0x123456);
    CHECK(canvas.drawings[2].without == std::vector<Rect>{{100, 30, 8, 16}});

    canvas.drawings.clear();
    paint.oneColor = true;
    lines->Draw(canvas, 0, 100, 43, paint);
    REQUIRE(canvas.drawings.size() == 1); // the text, without backgrounds
    CHECK(canvas.drawings[0].oneColor);
}
