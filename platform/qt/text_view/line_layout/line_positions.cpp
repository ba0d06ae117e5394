#include "platform/qt/text_view/line_layout/line_positions.h"

#include "platform/qt/text_view/line_layout/qt_line_layout.h"

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

// Where the trailing spaces and tabs of a wrapped line start, or the line's end.
int CollapsibleStart(const QTextLayout& layout, const QTextLine& line) {
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

// The position behind the last tab of the line, if it is at `from` or behind; else `from`.
int AfterTab(const QTextLayout& layout, const QTextLine& line, int from) {
    const QString text = layout.text();
    const int lineEnd = line.textStart() + line.textLength();
    return std::max(from, from + int(text.sliced(from, lineEnd - from).lastIndexOf(u'\t')) + 1);
}

TrailingSpaces TrailingSpacesOf(const QTextLayout& layout, const QTextLine& line) {
    const int lineEnd = line.textStart() + line.textLength();
    if (!IsRightToLeft(layout) || lineEnd == layout.text().size())
        return {}; // trailing spaces of the last line are part of it
    const int end = CollapsibleStart(layout, line);
    const int afterTab = AfterTab(layout, line, end);
    if (afterTab == end) return TrailingSpacesFrom(layout, line, end);
    // A tab that fits the line is part of its text.
    const TrailingSpaces after = TrailingSpacesFrom(layout, line, afterTab);
    const double omitted = line.naturalTextRect().left() - line.cursorToX(lineEnd);
    return omitted < after.width + 0.5 ? after : TrailingSpacesFrom(layout, line, end);
}

double ReportedX(const QTextLayout& layout, const QTextLine& line, int at,
                 QTextLine::Edge edge = QTextLine::Leading) {
    const TrailingSpaces spaces = TrailingSpacesOf(layout, line);
    const bool inSpaces = at > spaces.start;
    if (inSpaces && !spaces.isLeftOfText) return spaces.left + spaces.width;
    double x = line.cursorToX(at, edge) + spaces.shift;
    // It reports no more than the line's width, which one character may exceed.
    if (x >= line.x() + line.width()) x = std::max(x, line.naturalTextRect().right());
    return !inSpaces && !spaces.isLeftOfText && x <= spaces.left ? x + spaces.width : x;
}

bool HasStrongDirection(QChar unit, bool rightToLeft) {
    const QChar::Direction direction = unit.direction();
    return rightToLeft ? direction == QChar::DirR || direction == QChar::DirAL
                       : direction == QChar::DirL && !unit.isSurrogate();
}

bool IsWordSpace(QChar unit) {
    return unit == QChar::Space || unit == QChar::Nbsp;
}

double SpacingAt(const QTextLayout& layout, int at) {
    const auto formats = layout.formats(); // ascending
    const auto after =
        std::upper_bound(formats.begin(), formats.end(), at,
                         [](int place, const auto& range) { return place < range.start; });
    if (after == formats.begin()) return 0;
    const QTextCharFormat& format = std::prev(after)->format;
    double spacing = format.doubleProperty(letterSpacingProperty);
    if (!format.hasProperty(wordSpacingProperty)) return spacing;
    const QString text = layout.text();
    const bool isLastSpace =
        IsWordSpace(text[at]) && (at + 1 == text.size() || !IsWordSpace(text[at + 1]));
    return isLastSpace ? spacing + format.doubleProperty(wordSpacingProperty) : spacing;
}

// Whether trailing spaces may have the other direction than a left-to-right paragraph, as words
// before them: then positions of numbers among those words are reported too far to the right.
bool IsAmongOpposite(const QTextLayout& layout, const QTextLine& line) {
    if (IsRightToLeft(layout)) return false;
    const QString text = layout.text();
    for (int at = line.textStart() + line.textLength() - 1; at >= 0; --at) {
        if (HasStrongDirection(text[at], true) || text[at].direction() == QChar::DirAN) return true;
        if (HasStrongDirection(text[at], false)) return false;
    }
    return false;
}

double Leading(const GlyphEdges& glyphs) {
    return glyphs.rightToLeft ? glyphs.right : glyphs.left;
}

double Trailing(const GlyphEdges& glyphs) {
    return glyphs.rightToLeft ? glyphs.left : glyphs.right;
}

bool IsAt(const GlyphEdges& glyphs, double x) {
    return x > glyphs.left - 0.5 && x < glyphs.right + 0.5;
}

// Characters that are drawn as one glyph have the same edges.
bool IsLaterInLigature(const QTextLayout& layout, const QTextLine& line, int at,
                       const GlyphEdges& glyphs) {
    if (at <= line.textStart()) return false;
    const auto before = GlyphsAt(layout, line, layout.previousCursorPosition(at));
    return before && before->left == glyphs.left && before->right == glyphs.right;
}

// What QTextLine reports as trailing edge is wrong for a tab, within a ligature, and between
// directions. But what it reports for the next character is the trailing edge of this one, if this
// has the paragraph's direction.
double TrailingXWithoutGlyphs(const QTextLayout& layout, const QTextLine& line, int at) {
    const int next = layout.nextCursorPosition(at);
    if (next < TextEnd(layout, line)) return ReportedX(layout, line, next);
    if (layout.text()[at] != u'\t') return ReportedX(layout, line, at);
    const QRectF text = line.naturalTextRect();
    return IsRightToLeft(layout) ? text.left() : text.right();
}

// Of glyphs only the width is used: behind a soft hyphen their positions are wrong.
double TrailingXInDirection(const QTextLayout& layout, const QTextLine& line, int at,
                            const GlyphEdges& glyphs) {
    const int next = layout.nextCursorPosition(at);
    const double leading = CaretX(layout, line, at);
    const double edge = leading + Trailing(glyphs) - Leading(glyphs);
    if (leading != ReportedX(layout, line, at)) return edge;
    if (next >= TextEnd(layout, line))
        return IsLaterInLigature(layout, line, at, glyphs)
                   ? ReportedX(layout, line, at, QTextLine::Trailing)
                   : edge;
    const double x = ReportedX(layout, line, next);
    const bool isBehind = glyphs.rightToLeft ? x < edge : x > edge;
    const bool isStretched = layout.text()[at].isSpace();
    return isBehind && !isStretched && std::abs(x - edge) > 1 ? edge : x; // a number among words
}

double TrailingXAgainstDirection(const QTextLayout& layout, const QTextLine& line, int at,
                                 const GlyphEdges& glyphs) {
    const int next = layout.nextCursorPosition(at);
    const auto following =
        next < TextEnd(layout, line) ? GlyphsAt(layout, line, next) : std::nullopt;
    if (!following || following->rightToLeft != glyphs.rightToLeft) return Trailing(glyphs);
    const double x =
        CaretX(layout, line, next); // of a ligature's part, or behind a stretched space
    const bool isBehind = glyphs.rightToLeft ? x < Leading(glyphs) : x > Leading(glyphs);
    return isBehind ? x : Trailing(glyphs);
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
    edges.right += SpacingAt(layout, at);
    return edges.left < edges.right ? std::optional(edges) : std::nullopt;
}

int TextEnd(const QTextLayout& layout, const QTextLine& line) {
    const int end = CollapsibleStart(layout, line), afterTab = AfterTab(layout, line, end);
    if (afterTab == end) return end;
    if (IsRightToLeft(layout)) {
        const int lineEnd = line.textStart() + line.textLength();
        return std::min(TrailingSpacesOf(layout, line).start, lineEnd);
    }
    const bool fits = line.cursorToX(afterTab - 1) < line.naturalTextRect().right() - 0.5;
    return fits ? afterTab : end;
}

double TrailingSpacesWidth(const QTextLayout& layout, const QTextLine& line) {
    return TrailingSpacesOf(layout, line).width;
}

double TextEndX(const QTextLayout& layout, const QTextLine& line) {
    const int end = TextEnd(layout, line);
    if (end > line.textStart()) return TrailingX(layout, line, layout.previousCursorPosition(end));
    const QRectF text = line.naturalTextRect();
    return IsRightToLeft(layout) ? text.right() : text.left();
}

// Between directions QTextLine reports a position beside the neighbouring character. It may take
// that from the previous line, or in a run with ligatures from another character.
double CaretX(const QTextLayout& layout, const QTextLine& line, int at) {
    const int lineEnd = line.textStart() + line.textLength();
    const bool isWrapped = lineEnd < layout.text().size();
    if (isWrapped && at >= TextEnd(layout, line)) return TextEndX(layout, line);
    // Spaces at the end of the last line hang over if they do not fit.
    const QRectF text = line.naturalTextRect();
    const double reported = ReportedX(layout, line, at);
    const double x = isWrapped ? reported : std::clamp(reported, text.left(), text.right());
    const bool rightToLeft = IsRightToLeft(layout);
    if (at >= lineEnd || HasStrongDirection(layout.text()[at], rightToLeft)) return x;
    const auto glyphs = GlyphsAt(layout, line, at);
    if (!glyphs) return x;
    const double edge = Leading(*glyphs);
    if (glyphs->rightToLeft == rightToLeft && !IsAmongOpposite(layout, line)) return x;
    const bool isRounded = glyphs->rightToLeft == rightToLeft && std::abs(x - edge) < 1;
    const bool isLater = IsAt(*glyphs, x) && IsLaterInLigature(layout, line, at, *glyphs);
    return isRounded || isLater ? x : edge;
}

double TrailingX(const QTextLayout& layout, const QTextLine& line, int at) {
    const auto glyphs = GlyphsAt(layout, line, at);
    if (!glyphs) return TrailingXWithoutGlyphs(layout, line, at);
    return glyphs->rightToLeft == IsRightToLeft(layout)
               ? TrailingXInDirection(layout, line, at, *glyphs)
               : TrailingXAgainstDirection(layout, line, at, *glyphs);
}

double LayoutQueryX(const QTextLayout& layout, const QTextLine& line, double x) {
    const TrailingSpaces spaces = TrailingSpacesOf(layout, line);
    return x < spaces.left + spaces.width + spaces.shift ? x : x + spaces.width;
}
