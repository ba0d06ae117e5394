#include "platform/qt/text_view/selected_region.h"

#include "platform/qt/text_view/layout/line_positions.h"

#include <QGlyphRun>

#include <algorithm>
#include <cmath>

namespace {
bool MatchesDirection(uint character, bool rightToLeft) {
    switch (QChar::direction(character)) {
    case QChar::DirL:
    case QChar::DirEN: return !rightToLeft;
    case QChar::DirR:
    case QChar::DirAL: return rightToLeft;
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

// The direction of the last strong character.
bool EndsRightToLeft(QStringView text, bool fallback) {
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        const QChar::Direction direction = text[i].direction();
        if (direction == QChar::DirL && !text[i].isSurrogate()) return false;
        if (direction == QChar::DirR || direction == QChar::DirAL) return true;
    }
    return fallback;
}

// The selected part of one line.
struct SelectedPart {
    const ParagraphLayout& paragraph;
    int index = 0;
    QTextLine line;
    int from = 0, to = 0; // relative to the paragraph

    QRect Band(double left, double right) const {
        const int x = int(std::floor(left)), top = paragraph.TopWithoutSpace(index);
        return {x, top, int(std::ceil(right)) - x, paragraph.BottomWithoutSpace(index) - top};
    }
    double X(int at) const { return paragraph.X(index, paragraph.start + at); }
    bool CoversLine() const {
        return from == line.textStart() && to == line.textStart() + line.textLength();
    }
    // Digits at the start of a line have the direction of the words before them.
    bool IsUnidirectional() const {
        const QString all = paragraph.text->text();
        const auto text = QStringView(all).sliced(line.textStart(), line.textLength()).toUcs4();
        const bool rightToLeft = paragraph.IsRightToLeft();
        const auto before = QStringView(all).first(line.textStart());
        if (EndsRightToLeft(before, rightToLeft) != rightToLeft) return false;
        return std::all_of(text.begin(), text.end(),
                           [&](uint unit) { return MatchesDirection(unit, rightToLeft); });
    }
};

// In a bidirectional line the glyphs determine the selection. Tabs have none.
QRegion SelectedGlyphs(const SelectedPart& part) {
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

QRegion SelectedInLine(const SelectedPart& part) {
    const QRectF text = part.paragraph.TextBox(part.index);
    if (part.CoversLine()) return part.Band(text.left(), text.right());
    if (!part.IsUnidirectional()) return SelectedGlyphs(part);
    const auto [left, right] = std::minmax({part.X(part.from), part.X(part.to)});
    return part.Band(left, right);
}

QRect SelectedBreak(const SelectedPart& part) {
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
        const SelectedPart part{paragraph, i, paragraph.text->lineAt(i), from - paragraph.start,
                                to - paragraph.start};
        if (from < to) region += SelectedInLine(part);
        const bool breakSelected = start <= paragraph.end && paragraph.end < end;
        if (i + 1 == lines && breakSelected && !paragraph.continues) region += SelectedBreak(part);
    }
    return region & clip;
}
