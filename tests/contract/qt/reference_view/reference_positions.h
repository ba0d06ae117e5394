// Where the characters of a line are that Qt has laid out. All places are those of the layout.
#pragma once

#include <QTextLayout>

// The blanks at the end of a line of a paragraph that goes to the left: where Qt takes them to
// begin, from which it reads on to the left or, wrongly, to the right.
struct WholeBlanksAtEnd {
    int start = 0;
    double from = 0, to = 0;
    double Width() const;
    bool GoRight() const { return to > from; }
};
WholeBlanksAtEnd WholeBlanks(const QTextLine& line, const QTextLayout& layout, bool rightToLeft);

// Of the caret.
double WholeX(const QTextLine& line, const QTextLayout& layout, bool rightToLeft, int at);
