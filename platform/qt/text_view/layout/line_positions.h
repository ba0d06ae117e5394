// Where the characters of a line are. QTextLine tells it, but not for blanks at a line's end, nor
// everywhere between two directions. Positions and places are the layout's.
#pragma once

#include <QTextLayout>

#include <optional>

// What is drawn for one character; none for a tab, a break or a blank that is left out.
struct GlyphEdges {
    double left = 0, right = 0;
    bool leftwards = false;
};
std::optional<GlyphEdges> GlyphsAt(const QTextLayout& layout, const QTextLine& line, int at);

// The blanks at the end of a wrapped line are drawn nowhere. Where they begin, else where the line
// ends; and the width that they would have in a paragraph that goes to the left, else 0.
int TextEnd(const QTextLayout& layout, const QTextLine& line);
double BlanksWidth(const QTextLayout& layout, const QTextLine& line);

double CaretX(const QTextLayout& layout, const QTextLine& line, int at);
// As the line wants to be asked for what is drawn at `x`.
double AskedX(const QTextLayout& layout, const QTextLine& line, double x);
