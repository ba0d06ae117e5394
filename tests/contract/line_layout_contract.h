// The back ends of line layout that this build's contract tests run on, and what their suite asks
// them. Fonts differ, so all measures are relations between what one back end answers.
#pragma once

#include "platform/line_layout.h"
#include "tests/contract/back_ends.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Defined once in each test program.
std::vector<BackEnd<LineLayout>> LineLayoutBackEnds();

// What random paragraphs leave out, as the back ends cannot place it. Defined with them.
struct ParagraphLimits {
    int minLetterSpacing = -2, maxLetterSpacing = 6; // pixels
    bool joinedParts = true;                         // characters that may have several glyphs
    bool turnedSaraAm = true; // Thai with U+0E33 that U+202E turns to right to left
};
ParagraphLimits LimitsOfParagraphs();

// On each back end, at 96 pixels per inch.
void OnEachLineLayout(void (*check)(LineLayout&));

constexpr double pixel = 1;        // how far measures may differ by rounding
constexpr double maxOverhang = 4;  // of a letter's ink beyond its advance, which is 5 to 10 wide
constexpr int unlimited = 1 << 14; // a width at which no sample is wrapped, in pixels

struct LineSample {
    const char* name;
    std::u16string text;
    bool rightToLeft = false;
};
// Without tabs, of several scripts and directions; each may be wrapped between words.
const std::vector<LineSample>& LineSamples();

std::u16string Repeated(std::u16string_view part, int times);
TextStyle LineStyle(double points = 12);
ParagraphText LineParagraph(LineLayout&, std::u16string text, int width = unlimited,
                            bool rightToLeft = false);
double TextWidth(LineLayout&, const std::u16string& text, const TextStyle& = LineStyle());

bool IsWithin(double value, double expected, double tolerance = pixel);
bool IsLastLine(const TextLines&, int line);
// Where the caret can stand in a line, in the order of the text.
std::vector<TextPos> PlacesIn(const TextLines&, int line);
// The same without those in front of a break or a trailing space, or at the text's end.
std::vector<TextPos> VisibleCharacters(const TextLines&, int line, const std::u16string& text);
// Sorted, and joined where they touch.
std::vector<TextExtent> Joined(std::vector<TextExtent>);
bool CoverTheSame(const std::vector<TextExtent>&, const std::vector<TextExtent>&);

// Each sample broken at widths from all of its text down to a few letters, and once set apart.
using LineCheck = void (*)(const TextLines&, const LineSample&, int width);
void OnEachSampleInLines(LineCheck);
