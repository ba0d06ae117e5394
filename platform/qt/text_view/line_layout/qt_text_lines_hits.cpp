// Which character of a line is at an x.
#include "platform/qt/text_view/line_layout/line_positions.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
double Distance(const TextExtent& extent, double x) {
    return std::max({0.0, extent.left - x, x - extent.right});
}
} // namespace

// QTextLine::xToCursor() is unreliable behind marks and ligatures, may return a position in another
// line or within a character.
TextPos QtTextLines::ReportedAt(int index, double x, QTextLine::CursorPosition kind) const {
    const LaidOut at = At(index);
    const TextPos reported =
        at.segment.start + at.line.xToCursor(LayoutQueryX(at.layout, at.line, x + at.shift), kind);
    const TextPos first = Line(index).start, last = LastPosition(index);
    const TextPos within = std::clamp(reported, first, last);
    if (at.layout.isValidCursorPosition(within - at.segment.start)) return within;
    return std::max(first, PreviousPosition(within));
}

// Of the places in a line of two directions each may be the nearest one.
TextPos QtTextLines::PositionAt(int index, double x) const {
    const TextPos first = Line(index).start, last = LastPosition(index);
    if (last < first) return last; // the line has only marks of a letter in the line above
    const LaidOut line = At(index);
    const bool unidirectional = IsUnidirectional(line.layout, line.line, rightToLeft_);
    const TextPos from =
        unidirectional ? ReportedAt(index, x, QTextLine::CursorBetweenCharacters) : first;
    constexpr int maxSteps = 64; // over characters without width
    TextPos nearest = from;
    double minDistance = std::abs(CaretX(index, from) - x);
    int steps = 0;
    // Whether to search on behind the position; characters may have no width.
    const auto isCloser = [&](TextPos position) {
        const double distance = std::abs(CaretX(index, position) - x);
        steps = distance < minDistance ? 0 : steps + 1;
        if (distance < minDistance) nearest = position;
        const bool goesOn = distance <= minDistance && steps <= maxSteps;
        minDistance = std::min(minDistance, distance);
        return goesOn || !unidirectional;
    };
    TextPos at = from;
    for (TextPos next = NextPosition(at); next > at && next <= last && isCloser(next);
         next = NextPosition(at))
        at = next;
    at = from;
    steps = 0;
    for (TextPos before = PreviousPosition(at); before < at && before >= first && isCloser(before);
         before = PreviousPosition(at))
        at = before;
    return nearest;
}

TextPos QtTextLines::CharacterAt(int index, double x) const {
    const TextPos first = Line(index).start, end = VisibleEnd(index);
    const TextPos reported = ReportedAt(index, x, QTextLine::CursorOnCharacter);
    if (reported < end && Distance(CharacterExtent(index, reported), x) == 0) return reported;
    TextPos nearest = first;
    double minDistance = std::numeric_limits<double>::max();
    for (TextPos at = first; at < end && minDistance > 0; at = NextPosition(at)) {
        const TextExtent extent = CharacterExtent(index, at);
        if (extent.right <= extent.left || Distance(extent, x) >= minDistance) continue;
        minDistance = Distance(extent, x);
        nearest = at;
    }
    return nearest;
}
