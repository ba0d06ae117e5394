#include "tests/contract/line_layout_contract.h"

#include <algorithm>
#include <cmath>

namespace {
bool IsUnseenAtEnd(char16_t unit) {
    return unit == u' ' || unit == u'\u2028';
}
} // namespace

std::u16string Repeated(std::u16string_view part, int times) {
    std::u16string text;
    for (int i = 0; i < times; ++i)
        text += part;
    return text;
}

const std::vector<LineSample>& LineSamples() {
    static const std::vector<LineSample> samples{
        {"empty", u""},
        {"one letter", u"x"},
        {"Latin words", Repeated(u"some words in a row of several ", 4) + u"end"},
        {"one long word", Repeated(u"x", 60)},
        {"long words", Repeated(u"a" + Repeated(u"x", 30) + u" ", 3)},
        {"many spaces", u"one   two" + Repeated(u" ", 40) + u"three    four"},
        {"Latin with marks", Repeated(u"cafe\u0301 a\u0302\u0323u naive\u0308 ", 5)},
        {"Greek and Cyrillic", Repeated(u"\u03B1\u03B2\u03B3 \u0434\u043E\u043C\u0430 ", 8)},
        {"Hebrew", Repeated(u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD ", 7), true},
        {"Hebrew with points",
         Repeated(u"\u05E9\u05C1\u05B8\u05DC\u05D5\u05B9\u05DD \u05D8\u05D5\u05B9\u05D1 ", 7),
         true},
        {"Arabic with Latin and digits",
         Repeated(u"\u0645\u0631\u062D\u0628\u0627 hello 123 \u0643\u062A\u0627\u0628 ", 4), true},
        {"Latin with Hebrew and digits",
         Repeated(u"some \u05E9\u05DC\u05D5\u05DD 45 \u05E2\u05D5\u05DC\u05DD words ", 4)},
        {"Latin with Arabic", Repeated(u"abc \u0645\u0631\u062D\u0628\u0627 def ", 5)},
        {"Latin in Hebrew", Repeated(u"\u05D0\u05D1 cd \u05D2\u05D3 ", 8), true},
        {"surrogate pairs", Repeated(u"\U0001D11E\U00020000", 20)},
        {"Chinese", Repeated(u"\u4E2D\u6587\u6587\u5B57\u3002", 12)},
        {"Hangul", Repeated(u"\uD55C\uAD6D\uC5B4 \uBB38\uC7A5 ", 8)},
        {"Thai", Repeated(u"\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35 ", 8)},
        {"Devanagari", Repeated(u"\u0928\u092E\u0938\u094D\u0924\u0947 ", 8)},
        {"line separators", u"one\u2028\u2028two three\u2028"},
    };
    return samples;
}

void OnEachLineLayout(void (*check)(LineLayout&)) {
    for (const BackEnd<LineLayout>& backEnd : LineLayoutBackEnds()) {
        INFO("back end ", std::string(backEnd.name));
        const auto layout = backEnd.make();
        layout->SetResolution(96);
        check(*layout);
    }
}

TextStyle LineStyle(double points) {
    TextStyle style;
    style.font.points = points;
    return style;
}

ParagraphText LineParagraph(LineLayout& layout, std::u16string text, int width, bool rightToLeft) {
    ParagraphText paragraph;
    paragraph.text = std::move(text);
    paragraph.runs = {{0, layout.Prepare(LineStyle())}};
    paragraph.rightToLeft = rightToLeft;
    paragraph.width = width;
    return paragraph;
}

double TextWidth(LineLayout& layout, const std::u16string& text, const TextStyle& style) {
    ParagraphText paragraph = LineParagraph(layout, text);
    paragraph.runs = {{0, layout.Prepare(style)}};
    return layout.BreakLines(paragraph)->Line(0).width;
}

bool IsWithin(double value, double expected, double tolerance) {
    return std::abs(value - expected) <= tolerance;
}

bool IsLastLine(const TextLines& lines, int line) {
    return line + 1 == lines.Count();
}

std::vector<TextPos> PlacesIn(const TextLines& lines, int line) {
    const TextPos end = lines.Line(line).end;
    std::vector<TextPos> places{lines.Line(line).start};
    while (places.back() < end) {
        const TextPos next = lines.NextPosition(places.back());
        if (next <= places.back() || next > end || (next == end && !IsLastLine(lines, line))) break;
        places.push_back(next);
    }
    return places;
}

std::vector<TextPos> VisibleCharacters(const TextLines& lines, int line,
                                       const std::u16string& text) {
    TextPos end = lines.Line(line).end;
    const auto before = [&] { return text[static_cast<std::size_t>(end - 1)]; };
    if (end > lines.Line(line).start && before() == u'\u2028') --end;
    while (!IsLastLine(lines, line) && end > lines.Line(line).start && IsUnseenAtEnd(before()))
        --end;
    std::vector<TextPos> characters = PlacesIn(lines, line);
    std::erase_if(characters, [&](TextPos place) { return place >= end; });
    return characters;
}

std::vector<TextExtent> Joined(std::vector<TextExtent> extents) {
    std::sort(extents.begin(), extents.end(),
              [](const TextExtent& a, const TextExtent& b) { return a.left < b.left; });
    std::vector<TextExtent> joined;
    for (const TextExtent& each : extents) {
        if (joined.empty() || each.left > joined.back().right + pixel)
            joined.push_back(each);
        else
            joined.back().right = std::max(joined.back().right, each.right);
    }
    return joined;
}

bool CoverTheSame(const std::vector<TextExtent>& a, const std::vector<TextExtent>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const TextExtent& one, const TextExtent& other) {
                          return IsWithin(one.left, other.left) && IsWithin(one.right, other.right);
                      });
}

void OnEachSampleInLines(LineCheck check) {
    for (const BackEnd<LineLayout>& backEnd : LineLayoutBackEnds()) {
        INFO("back end ", std::string(backEnd.name));
        const auto layout = backEnd.make();
        layout->SetResolution(96);
        const int letters = int(TextWidth(*layout, u"nnnn"));
        TextStyle setApart = LineStyle();
        setApart.letterSpacing = 3;
        setApart.wordSpacing = 2;
        const auto spaced = layout->Prepare(setApart);
        for (const LineSample& sample : LineSamples()) {
            for (const int width : {unlimited, 10 * letters, 4 * letters, letters, 1}) {
                INFO(std::string(sample.name), ", width ", width);
                check(*layout->BreakLines(
                          LineParagraph(*layout, sample.text, width, sample.rightToLeft)),
                      sample, width);
            }
            INFO(std::string(sample.name), ", set apart");
            ParagraphText paragraph =
                LineParagraph(*layout, sample.text, 6 * letters, sample.rightToLeft);
            paragraph.runs[0].style = spaced;
            check(*layout->BreakLines(paragraph), sample, 6 * letters);
        }
    }
}
