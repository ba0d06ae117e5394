#include "platform/qt/text_view/accessibility/accessible_units.h"

#include "view/reading_spans.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {
// Spaces belong to the preceding word.
bool StartsUnit(const QString& text, qsizetype boundary, TextUnit unit) {
    return unit != TextUnit::Word || !text[boundary].isSpace();
}

QTextBoundaryFinder::BoundaryType BoundaryOf(TextUnit unit) {
    switch (unit) {
    case TextUnit::Word: return QTextBoundaryFinder::Word;
    case TextUnit::Sentence: return QTextBoundaryFinder::Sentence;
    default: return QTextBoundaryFinder::Grapheme;
    }
}

TextSpan UnitWithin(const QString& text, TextPos at, TextUnit unit) {
    QTextBoundaryFinder finder(BoundaryOf(unit), text);
    finder.setPosition(at);
    qsizetype start = finder.isAtBoundary() ? at : finder.toPreviousBoundary();
    while (start > 0 && !StartsUnit(text, start, unit))
        start = finder.toPreviousBoundary();
    finder.setPosition(at);
    qsizetype end = finder.toNextBoundary();
    while (end >= 0 && end < text.size() && !StartsUnit(text, end, unit))
        end = finder.toNextBoundary();
    return {TextPos(std::max<qsizetype>(start, 0)), TextPos(end < 0 ? text.size() : end)};
}
} // namespace

TextSpan UnitAt(TextLayouts& layouts, TextPos position, TextUnit unit) {
    const TextPos length = layouts.Text().Length();
    if (unit == TextUnit::Character && position >= length) return {length, length};
    if (unit == TextUnit::Line) return ReadingLineAt(layouts, position);
    const TextSpan paragraph = ReadingParagraphAt(layouts, position);
    if (unit == TextUnit::Paragraph || paragraph.start == paragraph.end) return paragraph;
    const TextPos at = std::min(position, paragraph.end - 1) - paragraph.start;
    const TextSpan within =
        UnitWithin(AccessibleTextOf(layouts.Text(), layouts.Context().plain, paragraph), at, unit);
    return {paragraph.start + within.start, paragraph.start + within.end};
}

QString AccessibleTextOf(const TextSource& source, bool plain, TextSpan span) {
    const std::u16string units = source.Range(span.start, span.end);
    QString text = QStringView(units).toString(); // fromStdU16String() drops byte order marks
    for (QChar& unit : text) {
        if (unit == u'\v') unit = u'\n';
        if (unit == u'\a' && !plain) unit = u'\t';
        if (unit == u'\0') unit = QChar::ReplacementCharacter; // would terminate a D-Bus string
    }
    return text;
}
