#include "platform/qt/text_view/accessibility/accessible_units.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {
bool EndsCellParagraph(char16_t unit) {
    return unit == u'\n' || unit == u'\a';
}

// The row's own break belongs to its last cell.
TextSpan CellParagraphAt(const TextSource& text, const TableRow& row, TextPos position) {
    const std::u16string units = text.Range(row.start, row.end);
    const auto begin = units.begin(), last = units.end() - 1;
    const auto at = std::min(begin + (position - row.start), last - (units.size() > 1 ? 1 : 0));
    const auto end = std::find_if(at, last, EndsCellParagraph);
    const auto start = std::find_if(std::reverse_iterator(at), units.rend(), EndsCellParagraph);
    const TextPos after = TextPos(end - begin) + 1;
    return {row.start + TextPos(start.base() - begin),
            row.start + after + (end + 1 == last ? 1 : 0)};
}

TextSpan ParagraphAt(TextLayouts& layouts, TextPos position) {
    const TextBlock block = BlockAt(layouts.Text(), layouts.Context().document.rows, position);
    if (block.rows.empty()) return {block.start, block.end};
    const auto after =
        std::upper_bound(block.rows.begin() + 1, block.rows.end(), position,
                         [](TextPos at, const TableRow& row) { return at < row.start; });
    return CellParagraphAt(layouts.Text(), *(after - 1), position);
}

TextSpan LineAt(TextLayouts& layouts, TextPos position) {
    const auto layout = layouts.At(position);
    const LineRef line = LineOf(*layout, position);
    const auto& paragraphs = layout->paragraphs;
    const TextPos start = LineStart(*layout, line);
    if (line.line + 1 < paragraphs[line.paragraph].LineCount())
        return {start, LineEnd(*layout, line)};
    const std::size_t next = line.paragraph + 1;
    return {start, next < paragraphs.size() ? paragraphs[next].start : layout->block.end};
}

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
    if (unit == TextUnit::Line) return LineAt(layouts, position);
    const TextSpan paragraph = ParagraphAt(layouts, position);
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
