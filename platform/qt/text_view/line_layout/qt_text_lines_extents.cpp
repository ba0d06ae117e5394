// What characters of a line cover.
#include "platform/qt/text_view/line_layout/line_positions.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"

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

} // namespace

// Digits at the start of a line have the direction of the words before them.
bool IsUnidirectional(const QTextLayout& layout, const QTextLine& line, bool rightToLeft) {
    const QString all = layout.text();
    const auto text = QStringView(all).sliced(line.textStart(), line.textLength()).toUcs4();
    const auto before = QStringView(all).first(line.textStart());
    if (EndsRightToLeft(before, rightToLeft) != rightToLeft) return false;
    return std::all_of(text.begin(), text.end(),
                       [&](uint unit) { return MatchesDirection(unit, rightToLeft); });
}

// Without trailing spaces.
TextExtent QtTextLines::WholeExtent(int index) const {
    const LaidOut at = At(index);
    QRectF box = at.line.naturalTextRect();
    const bool stretched = box.width() > at.line.naturalTextWidth();
    if (stretched) box.setWidth(box.width() - TrailingSpacesWidth(at.layout, at.line));
    return {box.left() - at.shift, box.right() - at.shift};
}

// Of neighbours of one direction as one.
std::vector<TextExtent> QtTextLines::CharacterExtents(int index, TextPos start, TextPos end) const {
    std::vector<TextExtent> extents;
    for (TextPos at = start; at < end; at = NextPosition(at)) {
        const TextExtent each = CharacterExtent(index, at);
        if (each.right <= each.left) continue;
        constexpr double rounding = 0.5;
        TextExtent* last = extents.empty() ? nullptr : &extents.back();
        if (last && std::abs(each.left - last->right) < rounding)
            last->right = each.right;
        else if (last && std::abs(each.right - last->left) < rounding)
            last->left = each.left;
        else
            extents.push_back(each);
    }
    return extents;
}

std::vector<TextExtent> QtTextLines::Extents(int index, TextPos start, TextPos end) const {
    const TextPos first = Line(index).start, visibleEnd = VisibleEnd(index);
    const TextPos from = std::max(start, first), to = std::min(end, visibleEnd);
    if (from >= to) return {};
    const LaidOut at = At(index);
    if (!IsUnidirectional(at.layout, at.line, rightToLeft_)) {
        const bool isWhole = from == first && to == visibleEnd;
        return isWhole ? std::vector{WholeExtent(index)} : CharacterExtents(index, from, to);
    }
    const auto [left, right] = std::minmax({CaretX(index, from), CaretX(index, to)});
    return right > left ? std::vector{TextExtent{left, right}} : std::vector<TextExtent>{};
}
