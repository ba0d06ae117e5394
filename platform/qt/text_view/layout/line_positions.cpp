#include "platform/qt/text_view/layout/line_positions.h"

#include <QGlyphRun>
#include <QRawFont>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
// Where a paragraph goes to the left the layout tells the places of characters as if the blanks at
// a line's end were drawn, and as if they were left of the line.
struct BlanksAtEnd {
    int start = std::numeric_limits<int>::max();
    double left = 0, width = 0; // as the layout tells
    bool outside = true;        // left of the text
    double shift = 0; // of what the layout tells: it takes a tab among them for another width
};

bool GoesLeft(const QTextLayout& layout) {
    return layout.textOption().textDirection() == Qt::RightToLeft;
}

// Whether the layout leaves a character out at the end of a wrapped line, with the marks on it.
bool IsBlank(QChar unit) {
    return unit.isSpace() && unit.decompositionTag() != QChar::NoBreak &&
           unit != QChar::LineSeparator;
}

// Of the two places that the layout tells for a line's end one may be in another line.
double LineEndX(const QTextLayout& layout, const QTextLine& line, double blanksFrom) {
    const int lineEnd = line.textStart() + line.textLength();
    const double told = line.cursorToX(lineEnd);
    const double behind =
        line.cursorToX(layout.previousCursorPosition(lineEnd), QTextLine::Trailing);
    const double distance = std::abs(behind - blanksFrom);
    return distance > 0 && distance < std::abs(told - blanksFrom) ? behind : told;
}

BlanksAtEnd BlanksFrom(const QTextLayout& layout, const QTextLine& line, int from) {
    if (from == line.textStart() + line.textLength()) return {};
    const double first = line.cursorToX(from), last = LineEndX(layout, line, first);
    if (last == first) return {};
    const bool outside = last < first;
    const double shift = outside ? line.naturalTextRect().left() - first : 0;
    return {from, std::min(first, last), std::abs(last - first), outside, shift};
}

BlanksAtEnd BlanksOf(const QTextLayout& layout, const QTextLine& line) {
    const QString text = layout.text();
    const int start = line.textStart(), lineEnd = start + line.textLength();
    if (!GoesLeft(layout) || lineEnd == text.size()) return {}; // the last line's are part of it
    const int end = TextEnd(layout, line);
    const int behindTab = start + int(text.sliced(start, lineEnd - start).lastIndexOf(u'\t')) + 1;
    if (behindTab <= end) return BlanksFrom(layout, line, end);
    // A tab that the line has room for is part of its text.
    const BlanksAtEnd behind = BlanksFrom(layout, line, behindTab);
    const double leftOut = line.naturalTextRect().left() - line.cursorToX(lineEnd);
    return leftOut < behind.width + 0.5 ? behind : BlanksFrom(layout, line, end);
}

double ToldX(const QTextLayout& layout, const QTextLine& line, int at) {
    const BlanksAtEnd blanks = BlanksOf(layout, line);
    const bool inBlanks = at > blanks.start;
    if (inBlanks && !blanks.outside) return blanks.left + blanks.width;
    const double x = line.cursorToX(at) + blanks.shift;
    return !inBlanks && !blanks.outside && x <= blanks.left ? x + blanks.width : x;
}

bool SurelyGoes(QChar unit, bool leftwards) {
    const QChar::Direction direction = unit.direction();
    return leftwards ? direction == QChar::DirR || direction == QChar::DirAL
                     : direction == QChar::DirL && !unit.isSurrogate();
}

// Where a paragraph goes to the right, but the word before a line's last blanks to the left: the
// layout takes these to be left of the word.
std::optional<double> EndOfLeftwardWord(const QTextLayout& layout, const QTextLine& line, int at) {
    const QString text = layout.text();
    if (GoesLeft(layout) || at >= text.size() || !IsBlank(text[at])) return std::nullopt;
    const int end = TextEnd(layout, line);
    const int lineEnd = line.textStart() + line.textLength();
    if (at < end || at >= lineEnd || end <= line.textStart()) return std::nullopt;
    if (text.sliced(end, lineEnd - end).contains(u'\t'))
        return std::nullopt; // it goes to the right
    const auto last = GlyphsAt(layout, line, layout.previousCursorPosition(end));
    return last && last->leftwards ? std::optional(last->left) : std::nullopt;
}

// What is drawn for a character that goes the other way than its paragraph.
std::optional<GlyphEdges> OppositeGlyphs(const QTextLayout& layout, const QTextLine& line, int at) {
    const bool leftwards = GoesLeft(layout);
    const int start = line.textStart();
    if (at < start || at >= start + line.textLength()) return std::nullopt;
    if (SurelyGoes(layout.text()[at], leftwards)) return std::nullopt;
    const auto glyphs = GlyphsAt(layout, line, at);
    return glyphs && glyphs->leftwards != leftwards ? glyphs : std::nullopt;
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
        edges.leftwards = run.isRightToLeft();
    }
    return edges.left < edges.right ? std::optional(edges) : std::nullopt;
}

int TextEnd(const QTextLayout& layout, const QTextLine& line) {
    const QString text = layout.text();
    const int start = line.textStart(), lineEnd = start + line.textLength();
    int end = lineEnd;
    while (lineEnd < text.size() && end > start) {
        const int before = layout.previousCursorPosition(end);
        if (!IsBlank(text[before])) break;
        end = std::max(start, before);
    }
    return end;
}

double BlanksWidth(const QTextLayout& layout, const QTextLine& line) {
    return BlanksOf(layout, line).width;
}

// Between two directions the layout tells a place beside the neighbour. It looks for that also in
// the line before, and in a run with ligatures beside the wrong character.
double CaretX(const QTextLayout& layout, const QTextLine& line, int at) {
    if (const auto end = EndOfLeftwardWord(layout, line, at)) return *end;
    const double x = ToldX(layout, line, at);
    const auto glyphs = at > 0 ? OppositeGlyphs(layout, line, at) : std::nullopt;
    if (!glyphs) return x;
    const double edge = glyphs->leftwards ? glyphs->right : glyphs->left;
    if (at == line.textStart()) return edge;
    const bool within = OppositeGlyphs(layout, line, layout.previousCursorPosition(at)).has_value();
    const bool isThere = x > glyphs->left - 0.5 && x < glyphs->right + 0.5;
    return within && !isThere ? edge : x;
}

double AskedX(const QTextLayout& layout, const QTextLine& line, double x) {
    const BlanksAtEnd blanks = BlanksOf(layout, line);
    return x < blanks.left + blanks.width + blanks.shift ? x : x + blanks.width;
}
