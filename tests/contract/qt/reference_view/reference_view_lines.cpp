// What stands where in the lines.
#include "tests/contract/qt/reference_view/reference_view.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace {
bool IsLeftwards(QChar unit) {
    return unit.direction() == QChar::DirR || unit.direction() == QChar::DirAL;
}

// The last letter of a text.
bool EndsLeftwards(const QString& text) {
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        if (IsLeftwards(text[i])) return true;
        if (text[i].direction() == QChar::DirL && !text[i].isSurrogate()) return false;
    }
    return false;
}

// Whether it surely goes that way where all beside it do.
bool MayGo(QChar unit, bool leftwards) {
    if (unit.isSurrogate()) return false;
    switch (unit.direction()) {
    case QChar::DirL:
    case QChar::DirEN: return !leftwards;
    case QChar::DirR:
    case QChar::DirAL: return leftwards;
    case QChar::DirES:
    case QChar::DirET:
    case QChar::DirCS:
    case QChar::DirB:
    case QChar::DirS:
    case QChar::DirWS:
    case QChar::DirON:
    case QChar::DirNSM:
    case QChar::DirBN: return true;
    default: return false; // digits of right-to-left scripts, and what sets a direction
    }
}
} // namespace

const WholeLine& WholeView::LineIn(const WholeParagraph& paragraph, int y) const {
    std::size_t found = paragraph.firstLine;
    for (std::size_t i = found; i < paragraph.firstLine + paragraph.lineCount; ++i) {
        const int top = whole_.lines[i].inkTop;
        if (i == paragraph.firstLine || top <= y) found = i;
    }
    return whole_.lines[found];
}

const WholeLine& WholeView::LineNear(int x, int y) const {
    y = Moved(y);
    const std::size_t block = whole_.BlockAt(y);
    const auto distance = [](int at, int from, int to) {
        return at < from ? from - at : at >= to ? at - to + 1 : 0;
    };
    const WholeParagraph* nearest = nullptr;
    std::tuple least(0, 0, 0);
    for (const WholeParagraph& paragraph : whole_.paragraphs) {
        if (paragraph.block != block || paragraph.hidden) continue;
        std::tuple each(0, 0, distance(y, paragraph.top, paragraph.bottom));
        if (!paragraph.cell.isNull()) {
            const QRect& cell = paragraph.cell;
            std::get<0>(each) = distance(y, cell.top(), cell.top() + cell.height());
            std::get<1>(each) = distance(x, cell.left(), cell.left() + cell.width());
        }
        if (nearest && each >= least) continue;
        nearest = &paragraph;
        least = each;
    }
    return LineIn(*nearest, y);
}

TextPos WholeView::LastPlace(const WholeLine& line) const {
    if (!line.goesOn) return line.end;
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    return paragraph.start + paragraph.text->previousCursorPosition(line.end - paragraph.start);
}

bool WholeView::GoesOneWay(const WholeLine& line) const {
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    const QString text = paragraph.text->text();
    const int start = line.start - paragraph.start, length = line.end - line.start;
    // Digits go the way of what is before them.
    if (!paragraph.rightToLeft && EndsLeftwards(text.first(start))) return false;
    const QString own = text.mid(start, length);
    return std::all_of(own.begin(), own.end(),
                       [&](QChar unit) { return MayGo(unit, paragraph.rightToLeft); });
}

std::string WholeView::Describe(const WholeLine& line) const {
    std::string told;
    for (TextPos at = line.start; at <= line.end; ++at) {
        const bool inside = at < TextPos(setting.text.size());
        const char16_t unit = inside ? setting.text[std::size_t(at)] : u'\0';
        told += " " + std::to_string(at);
        told += unit > 32 && unit < 127 ? std::string(1, char(unit))
                                        : "(" + QString::number(unit, 16).toStdString() + ")";
        told += QString::number(whole_.X(line, at), 'f', 1).toStdString();
    }
    return told;
}

bool WholeView::MayBe(const WholeLine& line, int x, TextPos position) const {
    const TextPos last = LastPlace(line);
    if (last < line.start) return position == last; // only marks of a letter in the line above
    if (position < line.start || position > last) return false;
    if (!GoesOneWay(line)) return true;
    const WholeParagraph& paragraph = whole_.ParagraphOf(line);
    double least = std::numeric_limits<double>::max();
    for (TextPos each = line.start; each <= last; ++each)
        if (paragraph.text->isValidCursorPosition(each - paragraph.start))
            least = std::min(least, std::abs(whole_.X(line, each) - x));
    // Behind the text of a wrapped line there are only its blanks.
    const QTextLine text = line.Text(whole_);
    const double end = paragraph.origin.x() + text.naturalTextRect().right();
    if (!paragraph.rightToLeft && x >= end - 1 && position == last) return true;
    return std::abs(whole_.X(line, position) - x) <= least + 1;
}
