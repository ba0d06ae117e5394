// Positions of the characters in a line, where QTextLine's are wrong: at trailing spaces, and
// between text of different directions. All positions are relative to the layout.
#pragma once

#include <QTextLayout>

#include <optional>

// Represents a box in the layout; transparent, and widened to the box by letter spacing. It is
// neutral in direction, and a line may break on both sides of it.
constexpr char16_t boxPlaceholder = u'\u2014';

// The extent of a character's glyphs; none for a tab, a break or a collapsed space.
struct GlyphEdges {
    double left = 0, right = 0;
    bool rightToLeft = false;
};
std::optional<GlyphEdges> GlyphsAt(const QTextLayout& layout, const QTextLine& line, int at);

// Trailing spaces of a wrapped line are not drawn. TextEnd is where they start, or the line's end;
// TrailingSpacesWidth is their width in a right-to-left paragraph, or 0.
int TextEnd(const QTextLayout& layout, const QTextLine& line);
double TrailingSpacesWidth(const QTextLayout& layout, const QTextLine& line);

// The leading edge of a character, and its trailing one; of a line's end where its text ends.
double CaretX(const QTextLayout& layout, const QTextLine& line, int at);
double TrailingX(const QTextLayout& layout, const QTextLine& line, int at);
double TextEndX(const QTextLayout& layout, const QTextLine& line);
// The argument for xToCursor() to find what is drawn at `x`.
double LayoutQueryX(const QTextLayout& layout, const QTextLine& line, double x);

// Whether all of it has the given direction, of its paragraph; else it may have others.
bool IsUnidirectional(const QTextLayout& layout, const QTextLine& line, bool rightToLeft);
