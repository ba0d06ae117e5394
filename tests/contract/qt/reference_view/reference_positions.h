// Positions of characters in a line, relative to its layout.
#pragma once

#include <QTextLayout>

// Trailing spaces of a right-to-left line: where Qt assumes them to start. From there positions run
// to the left or, wrongly, to the right.
struct ReferenceTrailingSpaces {
    int start = 0;
    double from = 0, to = 0;
    double Width() const;
    bool IsRightOfText() const { return to > from; }
};
ReferenceTrailingSpaces ReferenceSpaces(const QTextLine& line, const QTextLayout& layout,
                                        bool rightToLeft);

// The caret's position.
double ReferenceX(const QTextLine& line, const QTextLayout& layout, bool rightToLeft, int at);
