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

bool EndsLeftwards(const QTextLine& line, const QTextLayout& layout) {
    const QString text = layout.text().first(line.textStart() + line.textLength());
    const auto isLeftwards = [](QChar each) {
        return GoesItsWay(each, 0, true) || each.direction() == QChar::DirAN;
    };
    const auto last = std::find_if(text.rbegin(), text.rend(), [&](QChar each) {
        return isLeftwards(each) || GoesItsWay(each, 0, false);
    });
    return last != text.rend() && isLeftwards(*last);
}

// Where the trailing spaces of a wrapped line start. A tab that fits the line is part of its text.
std::optional<int> TrailingSpacesStart(const QTextLine& line, const QTextLayout& layout,
                                       bool rightToLeft) {
    const QString text = layout.text();
    const int lineEnd = line.textStart() + line.textLength();
    if (lineEnd == text.size()) return std::nullopt;
    int start = lineEnd;
    for (int at = lineEnd; at > line.textStart(); start = std::max(line.textStart(), at)) {
        at = layout.previousCursorPosition(at);
        if (!IsLeftOut(text[at])) break;
        if (text[at] != u'\t') continue;
        if (rightToLeft) return ReferenceSpaces(line, layout, true).start;
        if (line.cursorToX(at) < line.naturalTextRect().right() - 0.5) break;
    }
    return start;
}

// Where the text of a wrapped line ends: beyond its last character.
double TextEndX(const QTextLine& line, const QTextLayout& layout, bool rightToLeft, int end) {
    const QRectF text = line.naturalTextRect();
    if (end == line.textStart()) return rightToLeft ? text.right() : text.left();
    const int last = layout.previousCursorPosition(end);
    const auto drawn = DrawnAt(line, layout, last);
    const bool isReported =
        drawn && drawn->rightToLeft == rightToLeft && (rightToLeft || !EndsLeftwards(line, layout));
    if (drawn && !isReported) return drawn->rightToLeft ? drawn->left : drawn->right;
    if (drawn && rightToLeft) return text.left();
    if (drawn) {
        const auto before = DrawnAt(line, layout, layout.previousCursorPosition(last));
        const bool isLigature = before && last > line.textStart() && before->left == drawn->left &&
                                before->right == drawn->right;
        return isLigature ? line.cursorToX(last, QTextLine::Trailing)
                          : line.cursorToX(last) + drawn->right - drawn->left;
    }
    if (layout.text()[last] == u'\t') return rightToLeft ? text.left() : text.right();
    return ReportedX(line, layout, rightToLeft, last);
}

// The caret is at its character's own edge; Qt reports one of the opposite direction beside the
// character before.
double ReferenceX(const QTextLine& line, const QTextLayout& layout, bool rightToLeft, int at) {
    const auto blanks = TrailingSpacesStart(line, layout, rightToLeft);
    if (blanks && at >= *blanks) return TextEndX(line, layout, rightToLeft, *blanks);
    double x = ReportedX(line, layout, rightToLeft, at);
    const QRectF text = line.naturalTextRect();
    if (x >= line.x() + line.width()) x = std::max(x, text.right()); // where Qt reports no more
    if (!blanks) x = std::clamp(x, text.left(), text.right());
    if (GoesItsWay(layout.text(), at, rightToLeft)) return x;
    const auto drawn = DrawnAt(line, layout, at);
    if (!drawn) return x;
    const double edge = drawn->rightToLeft ? drawn->right : drawn->left;
    if (drawn->rightToLeft == rightToLeft &&
        (!EndsLeftwards(line, layout) || rightToLeft || std::abs(x - edge) < 1))
        return x;
    if (at == line.textStart() || x <= drawn->left - 0.5 || x >= drawn->right + 0.5) return edge;
    const auto before = DrawnAt(line, layout, layout.previousCursorPosition(at));
    return before && before->left == drawn->left && before->right == drawn->right ? x : edge;
}
