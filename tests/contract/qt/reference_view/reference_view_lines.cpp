// Positions within lines.
#include "tests/contract/qt/reference_view/reference_view.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace {
bool IsLeftwards(QChar unit) {
    return unit.direction() == QChar::DirR || unit.direction() == QChar::DirAL;
}

// By the last strong character.
bool EndsLeftwards(const QString& text) {
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        if (IsLeftwards(text[i])) return true;
        if (text[i].direction() == QChar::DirL && !text[i].isSurrogate()) return false;
    }
    return false;
}

// Whether the direction is certain among characters of that direction.
bool MayGo(QChar unit, bool rightToLeft) {
    if (unit.isSurrogate()) return false;
    switch (unit.direction()) {
    case QChar::DirL:
    case QChar::DirEN: return !rightToLeft;
    case QChar::DirR:
    case QChar::DirAL: return rightToLeft;
    case QChar::DirES:
    case QChar::DirET:
    case QChar::DirCS:
    case QChar::DirB:
    case QChar::DirS:
    case QChar::DirWS:
    case QChar::DirON:
    case QChar::DirNSM:
    case QChar::DirBN: return true;
    default: return false; // digits of right-to-left scripts, and direction controls
    }
}
} // namespace

const ReferenceLine& ReferenceView::LineIn(const ReferenceParagraph& paragraph, int y) const {
    std::size_t found = paragraph.firstLine;
    for (std::size_t i = found; i < paragraph.firstLine + paragraph.lineCount; ++i) {
        const int top = reference_.lines[i].inkTop;
        if (i == paragraph.firstLine || top <= y) found = i;
    }
    return reference_.lines[found];
}

const ReferenceLine& ReferenceView::LineNear(int x, int y) const {
    y = Moved(y);
    const std::size_t block = reference_.BlockAt(y);
    const auto distance = [](int at, int from, int to) {
        return at < from ? from - at : at >= to ? at - to + 1 : 0;
    };
    const ReferenceParagraph* nearest = nullptr;
    std::tuple minDistance(0, 0, 0);
    for (const ReferenceParagraph& paragraph : reference_.paragraphs) {
        if (paragraph.block != block || paragraph.hidden) continue;
        std::tuple each(0, 0, distance(y, paragraph.top, paragraph.bottom));
        if (!paragraph.cell.isNull()) {
            const QRect& cell = paragraph.cell;
            std::get<0>(each) = distance(y, cell.top(), cell.top() + cell.height());
            std::get<1>(each) = distance(x, cell.left(), cell.left() + cell.width());
        }
        if (nearest && each >= minDistance) continue;
        nearest = &paragraph;
        minDistance = each;
    }
    return LineIn(*nearest, y);
}

TextPos ReferenceView::LastCaretPosition(const ReferenceLine& line) const {
    if (!line.isContinued) return line.end;
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    return paragraph.start + paragraph.text->previousCursorPosition(line.end - paragraph.start);
}

bool ReferenceView::IsUnidirectional(const ReferenceLine& line) const {
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    const QString text = paragraph.text->text();
    const int start = line.start - paragraph.start, length = line.end - line.start;
    // Digits have the direction of the text before them.
    if (!paragraph.rightToLeft && EndsLeftwards(text.first(start))) return false;
    const QString own = text.mid(start, length);
    return std::all_of(own.begin(), own.end(),
                       [&](QChar unit) { return MayGo(unit, paragraph.rightToLeft); });
}

std::string ReferenceView::Describe(const ReferenceLine& line) const {
    std::string text;
    for (TextPos at = line.start; at <= line.end; ++at) {
        const bool inside = at < TextPos(settings.text.size());
        const char16_t unit = inside ? settings.text[std::size_t(at)] : u'\0';
        text += " " + std::to_string(at);
        text += unit > 32 && unit < 127 ? std::string(1, char(unit))
                                        : "(" + QString::number(unit, 16).toStdString() + ")";
        text += QString::number(reference_.X(line, at), 'f', 1).toStdString();
    }
    return text;
}

bool ReferenceView::IsPossible(const ReferenceLine& line, int x, TextPos position) const {
    const TextPos last = LastCaretPosition(line);
    if (last < line.start)
        return position == last; // the line has only marks of a letter in the line above
    if (position < line.start || position > last) return false;
    if (!IsUnidirectional(line)) return true;
    const ReferenceParagraph& paragraph = reference_.ParagraphOf(line);
    double minDistance = std::numeric_limits<double>::max();
    for (TextPos each = line.start; each <= last; ++each)
        if (paragraph.text->isValidCursorPosition(each - paragraph.start))
            minDistance = std::min(minDistance, std::abs(reference_.X(line, each) - x));
    // Behind the text of a wrapped line there are only its trailing spaces.
    const QTextLine text = line.Text(reference_);
    const double end = paragraph.origin.x() + text.naturalTextRect().right();
    if (!paragraph.rightToLeft && x >= end - 1 && position == last) return true;
    return std::abs(reference_.X(line, position) - x) <= minDistance + 1;
}
