#include "platform/qt/text_view/selected_region.h"

#include "platform/qt/text_view/layout/line_positions.h"

#include <QGlyphRun>

#include <algorithm>
#include <cmath>

namespace {
bool GoesTheWay(uint character, bool leftwards) {
    switch (QChar::direction(character)) {
    case QChar::DirL:
    case QChar::DirEN: return !leftwards;
    case QChar::DirR:
    case QChar::DirAL: return leftwards;
    case QChar::DirAN:
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI: return false;
    default: return true;
    }
}

// Whether the last letter of a text goes to the left; as told where there is none.
bool EndsLeftwards(QStringView text, bool ifNone) {
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        const QChar::Direction direction = text[i].direction();
        if (direction == QChar::DirL && !text[i].isSurrogate()) return false;
        if (direction == QChar::DirR || direction == QChar::DirAL) return true;
    }
    return ifNone;
}

// The selected part of one line, and the paragraph that the line is in.
struct Part {
    const ParagraphLayout& paragraph;
    int index = 0;
    QTextLine line;
    int from = 0, to = 0; // in the paragraph

    QRect Band(double left, double right) const {
        const int x = int(std::floor(left)), top = paragraph.TopWithoutSpace(index);
        return {x, top, int(std::ceil(right)) - x, paragraph.BottomWithoutSpace(index) - top};
    }
    double X(int at) const { return paragraph.X(index, paragraph.start + at); }
    bool IsWholeLine() const {
        return from == line.textStart() && to == line.textStart() + line.textLength();
    }
    // Digits that begin a line go the way of the words before it.
    bool GoesOneWay() const {
        const QString all = paragraph.text->text();
        const auto text = QStringView(all).sliced(line.textStart(), line.textLength()).toUcs4();
        const bool leftwards = paragraph.IsRightToLeft();
        const auto before = QStringView(all).first(line.textStart());
        if (EndsLeftwards(before, leftwards) != leftwards) return false;
        return std::all_of(text.begin(), text.end(),
                           [&](uint unit) { return GoesTheWay(unit, leftwards); });
    }
};

// Where a line goes both ways it is selected where its glyphs are drawn. Tabs have none.
QRegion SelectedGlyphs(const Part& part) {
    QRegion region;
    for (const QGlyphRun& run : part.line.glyphRuns(part.from, part.to - part.from))
        region += part.Band(run.boundingRect().left(), run.boundingRect().right());
    const QString text = part.paragraph.text->text();
    const int end = std::min(part.to, TextEnd(*part.paragraph.text, part.line));
    for (int at = part.from; at < end; ++at) {
        if (text[at] != u'\t') continue;
        const auto [left, right] =
            std::minmax({part.line.cursorToX(at), part.line.cursorToX(at, QTextLine::Trailing)});
        region += part.Band(left, right);
    }
    return region;
}

QRegion SelectedInLine(const Part& part) {
    const QRectF text = part.paragraph.TextBox(part.index);
    if (part.IsWholeLine()) return part.Band(text.left(), text.right());
    if (!part.GoesOneWay()) return SelectedGlyphs(part);
    const auto [left, right] = std::minmax({part.X(part.from), part.X(part.to)});
    return part.Band(left, right);
}

QRect SelectedBreak(const Part& part) {
    const qreal width = part.line.height() / 4;
    const qreal x = part.X(part.paragraph.end - part.paragraph.start);
    return part.paragraph.IsRightToLeft() ? part.Band(x - width, x) : part.Band(x, x + width);
}
} // namespace

QRegion SelectedRegion(const ParagraphLayout& paragraph, TextPos start, TextPos end,
                       const QRect& clip) {
    QRegion region;
    if (end <= paragraph.start || start > paragraph.end) return region;
    const int lines = paragraph.LineCount();
    for (int i = 0; i < lines && paragraph.tops[i] <= clip.bottom(); ++i) {
        if (paragraph.tops[i + 1] < clip.top()) continue;
        const TextPos from = std::max(start, paragraph.LineStart(i));
        const TextPos to = std::min(end, paragraph.LineEnd(i));
        const Part part{paragraph, i, paragraph.text->lineAt(i), from - paragraph.start,
                        to - paragraph.start};
        if (from < to) region += SelectedInLine(part);
        const bool breakSelected = start <= paragraph.end && paragraph.end < end;
        if (i + 1 == lines && breakSelected && !paragraph.continues) region += SelectedBreak(part);
    }
    return region & clip;
}
