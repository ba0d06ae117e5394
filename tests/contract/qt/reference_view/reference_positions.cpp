#include "tests/contract/qt/reference_view/reference_positions.h"

#include <QGlyphRun>
#include <QRawFont>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {
// The reported position may be in the next line; the trailing edge of the last character is nearer
// then.
double EndX(const QTextLine& line, const QTextLayout& layout, double from) {
    const int end = line.textStart() + line.textLength();
    const double reported = line.cursorToX(end);
    const double other = line.cursorToX(layout.previousCursorPosition(end), QTextLine::Trailing);
    return other != from && std::abs(other - from) < std::abs(reported - from) ? other : reported;
}

// Trailing spaces are not drawn; positions that Qt reports left of them move right.
double ReportedX(const QTextLine& line, const QTextLayout& layout, bool rightToLeft, int at) {
    const ReferenceTrailingSpaces blanks = ReferenceSpaces(line, layout, rightToLeft);
    const double x = line.cursorToX(at);
    if (blanks.Width() == 0) return x;
    if (!blanks.IsRightOfText()) return x + line.naturalTextRect().left() - blanks.from;
    if (at > blanks.start) return blanks.to;
    return x <= blanks.from ? x + blanks.Width() : x;
}

bool GoesItsWay(const QString& text, int at, bool rightToLeft) {
    const auto direction = at < text.size() ? text[at].direction() : QChar::DirON;
    if (rightToLeft) return direction == QChar::DirR || direction == QChar::DirAL;
    return direction == QChar::DirL && !text[at].isSurrogate();
}

bool IsLeftOut(QChar unit) {
    static const QString notCollapsed = QStringLiteral("\u00A0\u2007\u202F\u2028");
    return unit.isSpace() && !notCollapsed.contains(unit);
}

// Where the trailing spaces of a wrapped line start; none if there is a tab among them.
std::optional<int> TrailingSpacesStart(const QTextLine& line, const QTextLayout& layout) {
    const QString text = layout.text();
    const int lineEnd = line.textStart() + line.textLength();
    if (lineEnd == text.size()) return std::nullopt;
    int start = lineEnd;
    for (int at = lineEnd; at > line.textStart(); start = at) {
        at = layout.previousCursorPosition(at);
        if (text[at] == u'\t') return std::nullopt;
        if (!IsLeftOut(text[at])) break;
    }
    return start > line.textStart() ? std::optional(start) : std::nullopt;
}

struct Drawn {
    double left = 0, right = 0;
    bool rightToLeft = false;
};

std::optional<Drawn> DrawnAt(const QTextLine& line, const QTextLayout& layout, int at) {
    if (at < line.textStart() || at >= line.textStart() + line.textLength()) return std::nullopt;
    std::optional<Drawn> drawn;
    for (const QGlyphRun& run : line.glyphRuns(at, layout.nextCursorPosition(at) - at)) {
        const auto glyphs = run.glyphIndexes();
        for (int i = 0; i < int(glyphs.size()); ++i) {
            const double left = run.positions()[i].x();
            const double right = left + run.rawFont().advancesForGlyphIndexes({glyphs[i]})[0].x();
            if (!drawn) drawn = Drawn{left, right, run.isRightToLeft()};
            drawn->left = std::min(drawn->left, left);
            drawn->right = std::max(drawn->right, right);
        }
    }
    return drawn && drawn->left < drawn->right ? drawn : std::nullopt;
}
} // namespace

double ReferenceTrailingSpaces::Width() const {
    return std::abs(to - from);
}

ReferenceTrailingSpaces ReferenceSpaces(const QTextLine& line, const QTextLayout& layout,
                                        bool rightToLeft) {
    const QString text = layout.text();
    const int lineEnd = line.textStart() + line.textLength();
    ReferenceTrailingSpaces blanks{lineEnd, 0, 0};
    if (!rightToLeft || lineEnd == text.size()) return blanks;
    const double last = line.cursorToX(lineEnd);
    const double leftOut = line.naturalTextRect().left() - last;
    for (int at = lineEnd; at > line.textStart(); blanks.start = at) {
        at = layout.previousCursorPosition(at);
        if (!IsLeftOut(text[at])) break;
        const bool hasRoom = leftOut < line.cursorToX(at + 1) - last + 0.5;
        if (text[at] == u'\t' && hasRoom) break; // the tab is part of the line's text
    }
    if (blanks.start == lineEnd) return blanks;
    blanks.from = line.cursorToX(blanks.start);
    blanks.to = EndX(line, layout, blanks.from);
    return blanks;
}

// Qt reports a character of the opposite direction beside the previous one. If that one is in the
// previous line, or has the same direction, the character's own edge is correct.
double ReferenceX(const QTextLine& line, const QTextLayout& layout, bool rightToLeft, int at) {
    const auto blanks = TrailingSpacesStart(line, layout);
    if (!rightToLeft && blanks && at >= *blanks && at < line.textStart() + line.textLength()) {
        const auto word = DrawnAt(line, layout, layout.previousCursorPosition(*blanks));
        if (word && word->rightToLeft) return word->left; // Qt reports the spaces to the left of it
    }
    const double x = ReportedX(line, layout, rightToLeft, at);
    if (GoesItsWay(layout.text(), at, rightToLeft)) return x;
    const auto drawn = DrawnAt(line, layout, at);
    if (!drawn || drawn->rightToLeft == rightToLeft) return x;
    const auto before = DrawnAt(line, layout, layout.previousCursorPosition(at));
    const double edge = drawn->rightToLeft ? drawn->right : drawn->left;
    if (at == line.textStart()) return at > 0 ? edge : x;
    if (!before || before->rightToLeft == rightToLeft) return x;
    return x > drawn->left - 0.5 && x < drawn->right + 0.5 ? x : edge;
}
