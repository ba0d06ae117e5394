// Any paragraph, at any width, is laid out whole.
//
// NORVASET_PARAGRAPHS=first-last lays out these instead of the default ones.
#include "tests/contract/line_layout_contract.h"
#include "tests/contract/random_paragraph.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {
double WidthOf(const TextExtent& extent) {
    return extent.right - extent.left;
}

// Both directions visit every place of the paragraph.
void CheckPlaces(const TextLines& lines, TextPos length) {
    std::vector<TextPos> forward{0}, backward{length};
    while (lines.NextPosition(forward.back()) > forward.back())
        forward.push_back(lines.NextPosition(forward.back()));
    while (lines.PreviousPosition(backward.back()) < backward.back())
        backward.push_back(lines.PreviousPosition(backward.back()));
    std::reverse(backward.begin(), backward.end());
    REQUIRE(forward.back() == length);
    REQUIRE(forward == backward);
    for (const TextPos at : forward) {
        CAPTURE(at);
        const TextPos left = lines.LeftOf(at), right = lines.RightOf(at);
        CHECK((left == at || lines.RightOf(left) == at));
        CHECK((right == at || lines.LeftOf(right) == at));
    }
}

// The characters stand beside each other and fill the line.
void CheckTiling(std::vector<TextExtent> extents, const TextLine& line, double overhang) {
    std::sort(extents.begin(), extents.end(), [](const TextExtent& a, const TextExtent& b) {
        return a.left + a.right < b.left + b.right;
    });
    double after = 0;
    for (const TextExtent& each : extents) {
        CHECK(IsWithin(each.left, after, 1.5 * pixel));
        after = each.right;
    }
    CHECK(after <= line.width + pixel);
    CHECK(after >= line.width - overhang - pixel);
}

// What the largest letters reach beyond their advance.
double Overhang(const TextLine& line) {
    return maxOverhang + 0.5 * (line.ascent + line.descent);
}

std::u16string TextOf(const ParagraphText& paragraph, const TextLine& line) {
    return paragraph.text.substr(std::size_t(line.start), std::size_t(line.end - line.start));
}

// The units in hexadecimal digits.
std::string Described(const std::u16string& text) {
    std::string described;
    for (const char16_t unit : text) {
        char digits[8];
        std::snprintf(digits, sizeof digits, " %04X", unit);
        described += digits;
    }
    return described;
}

void CheckLine(const TextLines& lines, int index, const ParagraphText& paragraph) {
    const TextLine& line = lines.Line(index);
    const std::u16string text = TextOf(paragraph, line);
    INFO("line", Described(text));
    std::vector<TextExtent> extents;
    for (TextPos at = line.start; at < line.end; at = lines.NextPosition(at)) {
        CAPTURE(at);
        const TextExtent extent = lines.CharacterExtent(index, at);
        const double x = lines.CaretX(index, at);
        CHECK(WidthOf(extent) >= 0);
        CHECK((IsWithin(x, extent.left) || IsWithin(x, extent.right)));
        const TextPos found = lines.PositionAt(index, x);
        CHECK(IsWithin(lines.CaretX(index, found), x));
        if (WidthOf(extent) == 0) continue;
        extents.push_back(extent);
        if (WidthOf(extent) > 2 * pixel)
            CHECK(lines.CharacterAt(index, (extent.left + extent.right) / 2) == at);
    }
    CheckTiling(extents, line, Overhang(line));
    const auto whole = Joined(lines.Extents(index, line.start, line.end));
    CHECK(CoverTheSame(whole, Joined(extents)));
    const int indent = index == 0 ? paragraph.firstIndent : paragraph.indent;
    const double room = std::max(1, paragraph.width - indent);
    // No line begins within a ligature, and a letter may have a hyphen after it.
    if (extents.size() > 4) CHECK(line.width <= room + Overhang(line));
    if (line.justified) CHECK(IsWithin(line.width, room, 2 * pixel));
}

void CheckParagraph(LineLayout& layout, const ParagraphText& paragraph) {
    const auto lines = layout.BreakLines(paragraph);
    TextPos at = 0;
    for (int line = 0; line < lines->Count(); ++line) {
        CAPTURE(line);
        REQUIRE(lines->Line(line).start == at);
        REQUIRE(lines->IsPosition(at));
        CheckLine(*lines, line, paragraph);
        at = lines->Line(line).end;
    }
    REQUIRE(at == TextPos(paragraph.text.size()));
    CheckPlaces(*lines, at);
}
} // namespace

TEST_CASE("line layout: random paragraphs are laid out whole") {
    OnEachLineLayout([](LineLayout& layout) {
        int first = 0, last = 399;
        if (const char* paragraphs = std::getenv("NORVASET_PARAGRAPHS"))
            std::sscanf(paragraphs, "%d-%d", &first, &last);
        for (int number = first; number <= last; ++number) {
            CAPTURE(number);
            Random random{unsigned(number)};
            CheckParagraph(layout, RandomParagraph(random, layout));
        }
    });
}

TEST_CASE("line layout: lines that end within a word of several scripts or fonts are whole") {
    OnEachLineLayout([](LineLayout& layout) {
        for (const char16_t* text : {
                 u"\u0E33\u00AD\u200F\uFFFD",
                 u"e\u00AD\u2069 ",
                 u"\u202E\u00A0\u0E27\u0E2A\u0E14\u0E2A\u0E14\u0E35\u0E2A",
                 u"\u2067)\u0E01\u0E33\u0E2A\u0E27",
                 u"\U0001F1E9\U0001F1EA\u0301(\u0628\uFFFD\u3002",
                 u"\u4E2D\xD83D\U0001F3FD\u00A0or(",
             })
            for (const int width : {1, 23, 52, 150, 300})
                for (const bool rightToLeft : {false, true}) {
                    CAPTURE(width);
                    CAPTURE(rightToLeft);
                    CheckParagraph(layout, LineParagraph(layout, text, width, rightToLeft));
                }
    });
}

TEST_CASE("line layout: a style that begins within a pair of surrogates does not split it") {
    OnEachLineLayout([](LineLayout& layout) {
        ParagraphText paragraph = LineParagraph(layout, u"\u0E14\u2764\uFE0F\U0001D11E", 51);
        TextStyle large = LineStyle(81);
        large.font.bold = true;
        paragraph.runs.push_back({4, layout.Prepare(large)});
        CheckParagraph(layout, paragraph);
        const auto lines = layout.BreakLines(paragraph);
        CHECK(lines->NextPosition(3) == 5);
    });
}
