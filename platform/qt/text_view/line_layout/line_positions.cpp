#include "platform/qt/text_view/line_layout/line_positions.h"

#include <QGlyphRun>
#include <QRawFont>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
// In a right-to-left paragraph QTextLine reports positions as if trailing spaces were drawn, and to
// the left of the line.
struct TrailingSpaces {
    int start = std::numeric_limits<int>::max();
    double left = 0, width = 0; // as reported
    bool isLeftOfText = true;
    // Of reported positions, because a tab among the spaces is measured differently.
    double shift = 0;
};

bool IsRightToLeft(const QTextLayout& layout) {
    return layout.textOption().textDirection() == Qt::RightToLeft;
}

// Whether it is collapsed at the end of a wrapped line, including its marks.
bool IsCollapsibleSpace(QChar unit) {
    return unit.isSpace() && unit.decompositionTag() != QChar::NoBreak &&
           unit != QChar::LineSeparator;
}

// Of the two positions reported for a line's end one may be in another line.
double LineEndX(const QTextLayout& layout, const QTextLine& line, double spacesX) {
    const int lineEnd = line.textStart() + line.textLength();
    const double reported = line.cursorToX(lineEnd);
    const double after =
        line.cursorToX(layout.previousCursorPosition(lineEnd), QTextLine::Trailing);
    const double distance = std::abs(after - spacesX);
    return distance > 0 && distance < std::abs(reported - spacesX) ? after : reported;
}

TrailingSpaces TrailingSpacesFrom(const QTextLayout& layout, const QTextLine& line, int from) {
    if (from == line.textStart() + line.textLength()) return {};
    const double first = line.cursorToX(from), last = LineEndX(layout, line, first);
    if (last == first) return {};
    const bool isLeftOfText = last < first;
    const double shift = isLeftOfText ? line.naturalTextRect().left() - first : 0;
    return {from, std::min(first, last), std::abs(last - first), isLeftOfText, shift};
}

TrailingSpaces TrailingSpacesOf(const QTextLayout& layout, const QTextLine& line) {
    const QString text = layout.text();
    const int start = line.textStart(), lineEnd = start + line.textLength();
    if (!IsRightToLeft(layout) || lineEnd == text.size())
        return {}; // trailing spaces of the last line are part of it
    const int end = TextEnd(layout, line);
    const int afterTab = start + int(text.sliced(start, lineEnd - start).lastIndexOf(u'\t')) + 1;
    if (afterTab <= end) return TrailingSpacesFrom(layout, line, end);
    // A tab that fits the line is part of its text.
    const TrailingSpaces after = TrailingSpacesFrom(layout, line, afterTab);
    const double omitted = line.naturalTextRect().left() - line.cursorToX(lineEnd);
    return omitted < after.width + 0.5 ? after : TrailingSpacesFrom(layout, line, end);
}

double ReportedX(const QTextLayout& layout, const QTextLine& line, int at) {
    const TrailingSpaces spaces = TrailingSpacesOf(layout, line);
    const bool inSpaces = at > spaces.start;
    if (inSpaces && !spaces.isLeftOfText) return spaces.left + spaces.width;
    const double x = line.cursorToX(at) + spaces.shift;
    return !inSpaces && !spaces.isLeftOfText && x <= spaces.left ? x + spaces.width : x;
}

bool HasStrongDirection(QChar unit, bool rightToLeft) {
    const QChar::Direction direction = unit.direction();
    return rightToLeft ? direction == QChar::DirR || direction == QChar::DirAL
                       : direction == QChar::DirL && !unit.isSurrogate();
}

// In a left-to-right paragraph QTextLine reports trailing spaces behind a right-to-left word to the
// left of it.
std::optional<double> EndOfRightToLeftWord(const QTextLayout& layout, const QTextLine& line,
                                           int at) {
    const QString text = layout.text();
    if (IsRightToLeft(layout) || at >= text.size() || !IsCollapsibleSpace(text[at]))
        return std::nullopt;
    const int end = TextEnd(layout, line);
    const int lineEnd = line.textStart() + line.textLength();
    if (at < end || at >= lineEnd || end <= line.textStart()) return std::nullopt;
    if (text.sliced(end, lineEnd - end).contains(u'\t'))
        return std::nullopt; // the tab is left-to-right
    const auto last = GlyphsAt(layout, line, layout.previousCursorPosition(end));
    return last && last->rightToLeft ? std::optional(last->left) : std::nullopt;
}

// The glyphs of a character whose direction is opposite to its paragraph's.
std::optional<GlyphEdges> OppositeGlyphs(const QTextLayout& layout, const QTextLine& line, int at) {
    const bool rightToLeft = IsRightToLeft(layout);
    const int start = line.textStart();
    if (at < start || at >= start + line.textLength()) return std::nullopt;
    if (HasStrongDirection(layout.text()[at], rightToLeft)) return std::nullopt;
    const auto glyphs = GlyphsAt(layout, line, at);
    return glyphs && glyphs->rightToLeft != rightToLeft ? glyphs : std::nullopt;
}
} // namespace

std::optional<GlyphEdges> GlyphsAt(const QTextLayout& layout, const QTextLine& line, int at) {
    GlyphEdges edges{std::numeric_limits<double>::max(), 0};
    for (const QGlyphRun& run : line.glyphRuns(at, layout.nextCursorPosition(at) - at)) {
        const auto places = run.positions();
        const auto advances = run.rawFont().advancesForGlyphIndexes(run.glyphIndexes());
        for (qsizetype i = 0; i < std::min(places.size(), advances.size()); ++i) {
            edges.left = std::min(edges.left, places[i].x());
            edges.right = std::max(edges.right, places[i].x() + advances[i].x());
        }
        edges.rightToLeft = run.isRightToLeft();
    }
    return edges.left < edges.right ? std::optional(edges) : std::nullopt;
}

int TextEnd(const QTextLayout& layout, const QTextLine& line) {
    const QString text = layout.text();
    const int start = line.textStart(), lineEnd = start + line.textLength();
    int end = lineEnd;
    while (lineEnd < text.size() && end > start) {
        const int before = layout.previousCursorPosition(end);
        if (!IsCollapsibleSpace(text[before])) break;
        end = std::max(start, before);
    }
    return end;
}

double TrailingSpacesWidth(const QTextLayout& layout, const QTextLine& line) {
    return TrailingSpacesOf(layout, line).width;
}

// Between directions QTextLine reports a position beside the neighbouring character. It may take
// that from the previous line, or in a run with ligatures from another character.
double CaretX(const QTextLayout& layout, const QTextLine& line, int at) {
    if (const auto end = EndOfRightToLeftWord(layout, line, at)) return *end;
    const double x = ReportedX(layout, line, at);
    const auto glyphs = at > 0 ? OppositeGlyphs(layout, line, at) : std::nullopt;
    if (!glyphs) return x;
    const double edge = glyphs->rightToLeft ? glyphs->right : glyphs->left;
    if (at == line.textStart()) return edge;
    const bool within = OppositeGlyphs(layout, line, layout.previousCursorPosition(at)).has_value();
    const bool isAtGlyph = x > glyphs->left - 0.5 && x < glyphs->right + 0.5;
    return within && !isAtGlyph ? edge : x;
}

double LayoutQueryX(const QTextLayout& layout, const QTextLine& line, double x) {
    const TrailingSpaces spaces = TrailingSpacesOf(layout, line);
    return x < spaces.left + spaces.width + spaces.shift ? x : x + spaces.width;
}
