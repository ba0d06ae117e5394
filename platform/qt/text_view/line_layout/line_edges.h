// The edges of characters in a QTextLine, whatever their direction. All positions are relative to
// the layout.
#pragma once

#include <QTextLayout>

// Places of the caret: between characters with their marks (grapheme clusters). Qt 6.4 has some
// within pairs of surrogates beside Thai.
bool IsCharacterStart(const QTextLayout& layout, int at);
int NextCharacter(const QTextLayout& layout, int at);
int PreviousCharacter(const QTextLayout& layout, int at);

// Asks a line as if its paragraph had a direction, and trailing spaces were drawn at their places.
// Qt 6.4 reports the edge of a neighbour where two directions meet, unless the character has the
// paragraph's direction, and then even takes a number of glyphs for one of characters. It also
// keeps what it reports within the line's width, which one character may exceed.
class LineEdges {
  public:
    LineEdges(QTextLayout& layout, const QTextLine& line, bool rightToLeft);
    ~LineEdges() { layout_.setTextOption(own_); }
    LineEdges(const LineEdges&) = delete;
    LineEdges& operator=(const LineEdges&) = delete;

    double Leading(int at) const { return line_.cursorToX(at); }
    // Of a ligature's parts that of the last one.
    double Trailing(int at) const { return line_.cursorToX(at, QTextLine::Trailing); }

  private:
    QTextLayout& layout_;
    const QTextLine& line_;
    QTextOption own_;
};

constexpr double edgeRounding = 1.0 / 32; // Qt counts in 64ths of a pixel

bool IsSpace(QChar unit);
int LineEnd(const QTextLine& line);
bool IsRightToLeft(const QTextLayout& layout);
bool IsWrapped(const QTextLayout& layout, const QTextLine& line);
// Of the spaces at the line's end that are not drawn.
double TrailingSpacesWidth(QTextLayout& layout, const QTextLine& line);
