#include "platform/qt/text_view/line_layout/line_edges.h"

namespace {
bool IsWithinPair(const QTextLayout& layout, int at) {
    const QString text = layout.text();
    return at > 0 && at < text.size() && text[at].isLowSurrogate() &&
           text[at - 1].isHighSurrogate();
}
} // namespace

bool IsCharacterStart(const QTextLayout& layout, int at) {
    return layout.isValidCursorPosition(at) && !IsWithinPair(layout, at);
}

int NextCharacter(const QTextLayout& layout, int at) {
    const int next = layout.nextCursorPosition(at);
    return IsWithinPair(layout, next) ? layout.nextCursorPosition(next) : next;
}

int PreviousCharacter(const QTextLayout& layout, int at) {
    const int before = layout.previousCursorPosition(at);
    return IsWithinPair(layout, before) ? layout.previousCursorPosition(before) : before;
}

LineEdges::LineEdges(QTextLayout& layout, const QTextLine& line, bool rightToLeft)
    : layout_(layout), line_(line), own_(layout.textOption()) {
    QTextOption option = own_;
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap); // no limit to the line's width
    option.setFlags(own_.flags() | QTextOption::IncludeTrailingSpaces);
    layout.setTextOption(option);
}

bool IsSpace(QChar unit) {
    return unit.isSpace() && unit != QChar::LineSeparator;
}

int LineEnd(const QTextLine& line) {
    return line.textStart() + line.textLength();
}

bool IsRightToLeft(const QTextLayout& layout) {
    return layout.textOption().textDirection() == Qt::RightToLeft;
}

bool IsWrapped(const QTextLayout& layout, const QTextLine& line) {
    const int end = line.textStart() + line.textLength();
    const QString text = layout.text();
    return end < text.size() && text[end - 1] != QChar::LineSeparator;
}

// From right to left they are left of the line, unless they are included.
double TrailingSpacesWidth(QTextLayout& layout, const QTextLine& line) {
    const LineEdges edges(layout, line, true);
    const double included = edges.Leading(line.textStart());
    QTextOption option = layout.textOption();
    option.setFlags(option.flags() & ~QTextOption::Flags(QTextOption::IncludeTrailingSpaces));
    layout.setTextOption(option);
    return included - edges.Leading(line.textStart());
}
