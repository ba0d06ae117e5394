// Any paragraph at any width is laid out whole by the headless line layout.
#include "platform/none/none_line_layout.h"
#include "tests/unit/show_text.h"

#include <algorithm>
#include <random>

namespace {
constexpr int paragraphs = 3000;

class Random {
  public:
    explicit Random(unsigned seed) : engine_(seed) {}
    // From 0 up to the bound, which is not reached. Not by a distribution, which differs by
    // library.
    int Below(int bound) { return int(engine_() % unsigned(bound)); }
    bool OneIn(int times) { return Below(times) == 0; }

  private:
    std::mt19937 engine_;
};

std::u16string RandomText(Random& random) {
    constexpr const char16_t* parts[] = {
        u"a",      u"word",   u" ",          u" ",          u"  ",         u"\u05D0\u05D1",
        u"\u0645", u"12",     u"\u0661",     u".",          u"-",          u"(",
        u")",      u"\t",     u"\u2028",     u"e\u0301",    u"\u0301",     u"\u00AD",
        u"\u00A0", u"\u200B", u"\u200D",     u"\u202B",     u"\u202C",     u"\u202E",
        u"\u2067", u"\u2069", u"\U0001D11E", u"\U0001F468", u"\U0001F1E9", u"\u1100\u1161",
        u"\u4E2D", u"\u3002", u"\xD834",     u"\xDD1E",     u"\u200F",     u"\u3000"};
    std::u16string text;
    for (int length = random.Below(40); length > 0; --length)
        text += parts[random.Below(int(std::size(parts)))];
    return text;
}

ParagraphText RandomParagraph(Random& random, LineLayout& layout) {
    ParagraphText paragraph;
    paragraph.text = RandomText(random);
    const TextPos length = TextPos(paragraph.text.size());
    for (TextPos at = 0; at <= length; at += 1 + random.Below(20)) {
        TextStyle style;
        style.font.points = 6 + 3 * random.Below(5);
        paragraph.runs.push_back({at, layout.Prepare(style)});
    }
    for (TextPos at = random.Below(9); at < length; at += 1 + random.Below(30))
        if (random.OneIn(3)) paragraph.boxes.push_back({at, random.Below(60)});
    paragraph.rightToLeft = random.OneIn(2);
    paragraph.justified = random.OneIn(2);
    paragraph.width = 1 + random.Below(random.OneIn(2) ? 40 : 400);
    paragraph.firstIndent = random.Below(50);
    paragraph.indent = random.Below(50);
    if (random.OneIn(2)) paragraph.tabStops = {random.Below(40), 40 + random.Below(40)};
    return paragraph;
}

// Both directions visit every place of the paragraph.
void CheckPlaces(const TextLines& lines, TextPos length) {
    std::vector<TextPos> forward{0}, backward{length};
    while (forward.back() < length)
        forward.push_back(lines.NextPosition(forward.back()));
    while (backward.back() > 0)
        backward.push_back(lines.PreviousPosition(backward.back()));
    std::reverse(backward.begin(), backward.end());
    CHECK(forward == backward);
    for (const TextPos at : forward) {
        const TextPos left = lines.LeftOf(at), right = lines.RightOf(at);
        CHECK((left == at || lines.RightOf(left) == at));
        CHECK((right == at || lines.LeftOf(right) == at));
    }
}

void CheckLine(const TextLines& lines, int index, int room) {
    const TextLine& line = lines.Line(index);
    double sum = 0;
    int characters = 0;
    for (TextPos at = line.start; at < line.end; at = lines.NextPosition(at)) {
        const TextExtent extent = lines.CharacterExtent(index, at);
        const double width = extent.right - extent.left;
        sum += width;
        characters += width > 0 ? 1 : 0;
        if (width > 0) CHECK(lines.CharacterAt(index, extent.left + width / 2) == at);
        const double x = lines.CaretX(index, at);
        CHECK((x == extent.left || x == extent.right));
        CHECK(lines.CaretX(index, lines.PositionAt(index, x)) == x);
    }
    CHECK(sum == doctest::Approx(line.width));
    CHECK((line.width <= room + 0.01 || characters == 1));
    if (line.justified) CHECK(line.width == doctest::Approx(room));
    double covered = 0;
    for (const TextExtent& extent : lines.Extents(index, line.start, line.end))
        covered += extent.right - extent.left;
    CHECK(covered == doctest::Approx(line.width));
}
} // namespace

TEST_CASE("headless line layout: random paragraphs") {
    NoneLineLayout layout;
    for (int seed = 0; seed < paragraphs; ++seed) {
        CAPTURE(seed);
        Random random{unsigned(seed)};
        const ParagraphText paragraph = RandomParagraph(random, layout);
        const auto lines = layout.BreakLines(paragraph);
        TextPos at = 0;
        for (int line = 0; line < lines->Count(); ++line) {
            CAPTURE(line);
            CHECK(lines->Line(line).start == at);
            at = lines->Line(line).end;
            const int indent = line == 0 ? paragraph.firstIndent : paragraph.indent;
            CheckLine(*lines, line, std::max(1, paragraph.width - indent));
        }
        REQUIRE(at == TextPos(paragraph.text.size()));
        CheckPlaces(*lines, at);
    }
}
