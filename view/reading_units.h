// The units in which assistive technology reads a text, and moves by them.
#pragma once

#include "view/readable_pane.h"

#include <string>
#include <vector>

enum class ReadingUnit { Character, Format, Word, Line, Paragraph, Page, Document, Sentence };

// A longer way is not gone at once: the cost of an answer does not depend on the length of the
// text.
constexpr TextPos maxReadingReach = 256 * 1024;

// Units of one kind tile the text: each ends where the next one starts, so a word includes the
// spaces after it and a paragraph its break. Formats are of one style, within a paragraph. Lines
// are those on the screen, and a page is what fits on it below a line: pages start at any line.
// Table cells have paragraphs of their own, and an over-long paragraph is split.
//
// For one question: text, style and size of the pane stay the same meanwhile.
class ReadingUnits {
  public:
    explicit ReadingUnits(ReadablePane& pane) : pane_(pane) {}

    // At the text's end it is the last unit, or an empty one after a final break; for characters
    // always an empty one.
    TextSpan At(TextPos position, ReadingUnit unit);
    // The nearest boundaries of units; the same position at the text's ends.
    TextPos Next(TextPos position, ReadingUnit unit);
    TextPos Previous(TextPos position, ReadingUnit unit);
    // Whether there is a unit to be read there: after the last one there is only the empty line
    // after a final break.
    bool Exists(TextPos position, ReadingUnit unit) const;

    struct Move {
        TextPos position = 0;
        int units = 0; // passed; less than asked for at the text's ends and after a long way
    };
    // Backwards for a negative count, whose units are negative, too. A count that leads to the
    // text's end in any case does so; then its units after the longest way are counted by length.
    Move MoveBy(TextPos from, ReadingUnit unit, int count);

  private:
    struct Starts { // of the units in a paragraph, and its end
        TextSpan paragraph;
        ReadingUnit unit = ReadingUnit::Document; // none yet
        std::vector<TextPos> positions;           // from the paragraph's start
    };

    TextSpan WithinParagraph(TextPos position, ReadingUnit unit);

    ReadablePane& pane_;
    Starts starts_;
};

// As many units as the text has there, up to `most`, which cuts no pair of surrogates. Line breaks
// become line feeds and ends of cells tabs.
std::u16string ReadableText(const ReadablePane& pane, TextSpan span,
                            TextPos maxLength = maxReadingReach);

// What an object is called where it is read aloud, "" for lists and tables.
std::u16string ReadingName(const ReadablePane& pane, const ReadingObject& object);
