// Which lines of a plain text are chapter headings.
#pragma once

#include <string_view>

struct HeadingLine {
    int level = 0; // 0: none; 1 is of books and parts, 2 of chapters
    // What else it takes beside an empty line before: a number alone needs nothing, with a title or
    // as a Roman number it needs an empty line after, too.
    bool needsSpaceAfter = false;
    bool hasTitle = false;

    explicit operator bool() const { return level > 0; }
};

// "CHAPTER IV", "Глава 2", "第三章", "Book the First", "XII. The Speckled Band", "IV" and their
// like, of a line without its break.
HeadingLine HeadingLineOf(std::u16string_view line);
