// What characters of a line cover.
#include "platform/qt/text_view/line_layout/line_positions.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include <QGlyphRun>

#include <algorithm>

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

// Digits at the start of a line have the direction of the words before them.
bool IsUnidirectional(const QTextLayout& layout, const QTextLine& line, bool rightToLeft) {
    const QString all = layout.text();
    const auto text = QStringView(all).sliced(line.textStart(), line.textLength()).toUcs4();
    const auto before = QStringView(all).first(line.textStart());
    if (EndsRightToLeft(before, rightToLeft) != rightToLeft) return false;
    return std::all_of(text.begin(), text.end(),
                       [&](uint unit) { return MatchesDirection(unit, rightToLeft); });
}
} // namespace

// Without trailing spaces.
TextExtent QtTextLines::WholeExtent(int index) const {
    const LaidOut at = At(index);
    QRectF box = at.line.naturalTextRect();
    const bool stretched = box.width() > at.line.naturalTextWidth();
    if (stretched) box.setWidth(box.width() - TrailingSpacesWidth(at.layout, at.line));
    return {box.left() - at.shift, box.right() - at.shift};
}

// In a bidirectional line the glyphs determine what is covered. Tabs have none.
std::vector<TextExtent> QtTextLines::GlyphExtents(int index, TextPos start, TextPos end) const {
    std::vector<TextExtent> extents;
    const LaidOut at = At(index);
    const int from = start - at.segment.start, to = end - at.segment.start;
    for (const QGlyphRun& run : at.line.glyphRuns(from, to - from))
        extents.push_back(
            {run.boundingRect().left() - at.shift, run.boundingRect().right() - at.shift});
    const QString text = at.layout.text();
    const int visibleEnd = std::min(to, TextEnd(at.layout, at.line));
    for (int each = from; each < visibleEnd; ++each) {
        if (text[each] != u'\t') continue;
        const auto [left, right] =
            std::minmax({at.line.cursorToX(each), at.line.cursorToX(each, QTextLine::Trailing)});
        extents.push_back({left - at.shift, right - at.shift});
    }
    return extents;
}

std::vector<TextExtent> QtTextLines::Extents(int index, TextPos start, TextPos end) const {
    const TextPos from = std::max(start, Line(index).start), to = std::min(end, Line(index).end);
    if (from >= to) return {};
    if (from == Line(index).start && to == Line(index).end) return {WholeExtent(index)};
    const LaidOut at = At(index);
    if (!IsUnidirectional(at.layout, at.line, rightToLeft_)) return GlyphExtents(index, from, to);
    const auto [left, right] = std::minmax({CaretX(index, from), CaretX(index, to)});
    return {{left, right}};
}
