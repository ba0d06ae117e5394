// Lines of a page between floats, on the headless line layout: each letter is 8 pixels wide and a
// line 16 high.
#include "platform/none/none_line_layout.h"
#include "view/page/inline_layout.h"
#include "view/page/line_box.h"

#include <doctest/doctest.h>

#include <cmath>

namespace {
constexpr double letter = 8, lineHeight = 16;

StyleHandle Style(LineLayout& layout, double points = 12) {
    TextStyle style;
    style.font.points = points;
    return layout.Prepare(style);
}

struct Page {
    NoneLineLayout system;
    FloatContext floats;
    InlineContent content;

    explicit Page(std::u16string text) {
        content.text.text = std::move(text);
        content.strut = Style(system);
        content.text.runs = {{0, content.strut}};
        content.runs = {{0, content.strut, {}, 0}};
    }

    InlineLayout LayOut(double letters, double top = 0) {
        return LayOutInline(system, content, {0, letters * letter}, top, floats);
    }

    // The lines with the letters that each is indented by: "0:text|4:text".
    std::u16string Lines(double letters) {
        std::u16string shown;
        for (const InlineLine& line : LayOut(letters).lines) {
            const std::string indent = std::to_string(int(line.left / letter));
            shown += (shown.empty() ? u"" : u"|") + std::u16string(indent.begin(), indent.end()) +
                     u":" +
                     content.text.text.substr(std::size_t(line.start),
                                              std::size_t(line.end - line.start));
        }
        return shown;
    }

    void AddFloat(TextPos at, FloatSide side, double letters, double lines) {
        content.floats.push_back({at, side, letters * letter, lines * lineHeight});
    }
};
} // namespace

TEST_CASE("inline layout: lines break at the room's width") {
    CHECK(Page(u"one two three").Lines(8) == u"0:one two |0:three");
    CHECK(Page(u"one\u2028two").Lines(8) == u"0:one\u2028|0:two");
}

TEST_CASE("inline layout: a text without units has no line") {
    Page page(u"");
    const InlineLayout layout = page.LayOut(10, 30);
    CHECK(layout.lines.empty());
    CHECK(layout.bottom == 30);
}

TEST_CASE("inline layout: alignment") {
    Page page(u"one two three");
    page.content.alignment = Alignment::Right;
    CHECK(page.Lines(9) == u"2:one two |4:three");
    page.content.alignment = Alignment::Center;
    CHECK(page.Lines(9) == u"1:one two |2:three");
    page.content.alignment = Alignment::Justified;
    CHECK(page.Lines(9) == u"0:one two |0:three");
    page.content.text.rightToLeft = true;
    CHECK(page.Lines(9) == u"0:one two |4:three");
}

TEST_CASE("inline layout: the first line is indented, or hangs out") {
    Page page(u"one two three");
    page.content.textIndent = 2 * letter;
    CHECK(page.Lines(8) == u"2:one |0:two |0:three");
    page.content.textIndent = -2 * letter;
    CHECK(page.Lines(8) == u"-2:one two |0:three");
}

TEST_CASE("inline layout: lines stand beside a float and below it") {
    Page page(u"aa bb cc dd ee ff gg");
    page.AddFloat(0, FloatSide::Left, 4, 2);
    CHECK(page.Lines(10) == u"4:aa bb |4:cc dd |0:ee ff gg");
}

TEST_CASE("inline layout: a float to the right narrows its lines") {
    Page page(u"aa bb cc dd ee ff gg");
    page.AddFloat(0, FloatSide::Right, 4, 1);
    CHECK(page.Lines(10) == u"0:aa bb |0:cc dd ee |0:ff gg");
}

TEST_CASE("inline layout: a float within a line stands beside that line if it fits") {
    Page page(u"aa bb cc dd ee ff gg");
    page.AddFloat(3, FloatSide::Left, 4, 1);
    CHECK(page.Lines(10) == u"4:aa bb |0:cc dd ee |0:ff gg");
}

TEST_CASE("inline layout: a float that does not fit stands below its line") {
    Page page(u"aa bb cc dd ee ff gg");
    page.AddFloat(6, FloatSide::Left, 5, 1);
    const InlineLayout layout = page.LayOut(10);
    REQUIRE(layout.floats.size() == 1);
    CHECK(layout.floats[0].top == lineHeight);
    CHECK(Page(page.content.text.text).Lines(10) == u"0:aa bb cc |0:dd ee ff |0:gg");
}

TEST_CASE("inline layout: a word that is too long for the room beside a float goes below it") {
    Page page(u"abcdefgh ij");
    page.AddFloat(0, FloatSide::Left, 4, 3);
    const InlineLayout layout = page.LayOut(10);
    REQUIRE(layout.lines.size() == 2);
    CHECK(layout.lines[0].left == 0);
    CHECK(layout.lines[0].top == 3 * lineHeight);
}

TEST_CASE("inline layout: floats of blocks before narrow the lines, too") {
    Page page(u"aa bb cc dd");
    page.floats.Add(FloatSide::Left, 4 * letter, lineHeight, 0, {0, 10 * letter});
    CHECK(page.Lines(10) == u"4:aa bb |0:cc dd");
}

TEST_CASE("inline layout: a line is as high as its largest font and its line height") {
    Page page(u"aa bb");
    const StyleHandle large = Style(page.system, 24);
    page.content.text.runs.push_back({3, large});
    page.content.runs.push_back({3, large, {}, 0});
    CHECK(page.LayOut(3).lines[0].height == 16);
    CHECK(page.LayOut(3).lines[1].height == 32);
    CHECK(page.LayOut(9).lines[0].height == 32);
    CHECK(page.LayOut(9).lines[0].baseline == std::round(0.8 * 32));
    page.content.runs[1].lineHeight = 20; // 6 pixels less on both sides
    CHECK(page.LayOut(9).lines[0].height == std::round(0.8 * 32) - 6 + 3);
    page.content.strutLineHeight = 40;
    CHECK(page.LayOut(3).lines[0].height == 40);
}

TEST_CASE("inline layout: raised text makes its line higher") {
    Page page(u"aabb");
    page.content.runs.push_back({2, page.content.strut, {}, 5});
    const InlineLine line = page.LayOut(9).lines[0];
    CHECK(line.height == 21);
    CHECK(line.baseline == std::round(0.8 * 16) + 5);
}

TEST_CASE("inline layout: pictures stand on the baseline, at the top, the middle or the bottom") {
    const struct {
        VerticalAlign align;
        double top, height;
    } cases[] = {{VerticalAlign::Baseline, 0, 43},
                 {VerticalAlign::Top, 0, 40},
                 {VerticalAlign::Bottom, 0, 40},
                 {VerticalAlign::Middle, 0, 40}};
    for (const auto& [align, top, height] : cases) {
        Page page(u"a\uFFFCb");
        page.content.text.boxes = {{1, 30}};
        page.content.atoms = {{1, 30, 40, 0, align, 0}};
        const InlineLayout layout = page.LayOut(20);
        REQUIRE(layout.lines.size() == 1);
        CHECK(layout.lines[0].height == doctest::Approx(height));
        CHECK(layout.atoms[0].top == doctest::Approx(top));
        CHECK(layout.atoms[0].left == letter);
    }
}

TEST_CASE("inline layout: pictures of different alignment share a line") {
    Page page(u"\uFFFC\uFFFC");
    page.content.text.boxes = {{0, 10}, {1, 10}};
    page.content.atoms = {{0, 10, 50, 0, VerticalAlign::Baseline, 0},
                          {1, 10, 20, 0, VerticalAlign::Bottom, 0}};
    const InlineLayout layout = page.LayOut(20);
    CHECK(layout.lines[0].height == 53);
    CHECK(layout.atoms[0].top == 0);
    CHECK(layout.atoms[1].top == 33);
}

TEST_CASE("inline layout: what does not wrap is one line") {
    Page page(u"one two three");
    page.content.wraps = false;
    CHECK(page.Lines(4) == u"0:one two three");
}

TEST_CASE("inline layout: every unit is in one line, whatever floats there are") {
    std::u16string text;
    for (int i = 0; i < 300; ++i)
        text += std::u16string(std::size_t(i % 7 + 1), u'a') + u' ';
    for (int step = 3; step < 40; ++step) {
        Page page(text);
        for (TextPos at = 0; at < TextPos(text.size()); at += step * 5)
            page.AddFloat(at, at % 2 == 0 ? FloatSide::Left : FloatSide::Right, at % 9 + 1,
                          at % 4 + 1);
        const InlineLayout layout = page.LayOut(12);
        CHECK(layout.floats.size() == page.content.floats.size());
        TextPos at = 0;
        double top = 0;
        for (const InlineLine& line : layout.lines) {
            CHECK(line.start == at);
            CHECK(line.end > at);
            CHECK(line.top >= top);
            at = line.end;
            top = line.top + line.height;
        }
        CHECK(at == TextPos(text.size()));
        CHECK(layout.bottom == top);
    }
}

TEST_CASE("inline extent: the longest word, and all in one line") {
    Page page(u"one three two");
    CHECK(ExtentOf(page.system, page.content).min == 5 * letter);
    CHECK(ExtentOf(page.system, page.content).max == 13 * letter);
    page.content.textIndent = 2 * letter;
    CHECK(ExtentOf(page.system, page.content).min == 7 * letter);
    page.content.wraps = false;
    CHECK(ExtentOf(page.system, page.content).min == 15 * letter);
    Page empty(u"");
    CHECK(ExtentOf(empty.system, empty.content).max == 0);
    Page lines(u"one\u2028three");
    CHECK(ExtentOf(lines.system, lines.content).max == 5 * letter);
}

TEST_CASE("inline extent: of a long text by slices") {
    std::u16string text;
    for (int i = 0; i < 2000; ++i)
        text += u"abcde ";
    Page page(text);
    const WidthExtent extent = ExtentOf(page.system, page.content);
    CHECK(extent.min == 5 * letter);
    CHECK(extent.max > 11'900 * letter);
    CHECK(extent.max <= 12'000 * letter);
}
