// The headings of a plain text, found as the text comes in, in pieces of any size.
#pragma once

#include "common/heading.h"
#include "formats/plain/heading_line.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

class PlainHeadings {
  public:
    // How the text is made up: a heading in a text of lines has an empty line before it; where each
    // paragraph is one line, it is one of its own.
    enum class Made { OfLines, OfParagraphs };
    explicit PlainHeadings(Made made = Made::OfLines) : made_(made) {}

    void Add(std::u16string_view units);       // what follows what was added before
    void Finish();                             // the text ends here
    TextPos Length() const { return length_; } // of what was added
    const std::vector<Heading>& Found() const { return found_; }

  private:
    struct Line {
        TextPos start = 0;
        std::u16string text; // its beginning, when it is long
        bool blank = true;
        HeadingLine heading;
    };

    void EndLine();
    void Judge();
    bool IsHeading() const;
    bool StandsAlone() const;
    void Add(const Line& line, bool takesNext);

    Made made_;
    TextPos length_ = 0;
    Line current_;
    // The three lines before the current one, the oldest first: the middle one is judged by those
    // around it when the one after next is known.
    std::array<Line, 4> lines_;
    std::vector<Heading> found_;
    std::size_t withText_ = 0; // how many of them have a text after them
    bool isTitle_ = false;     // the line to judge next is of the heading before
};
