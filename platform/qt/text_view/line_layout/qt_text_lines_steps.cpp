// Places of the caret, one after the other.
#include "common/text_words.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include <algorithm>

TextPos QtTextLines::NextPosition(TextPos position) const {
    const LayoutSegment& segment = SegmentOf(position);
    return segment.start + segment.text->nextCursorPosition(position - segment.start);
}

TextPos QtTextLines::PreviousPosition(TextPos position) const {
    const LayoutSegment& segment = SegmentBefore(position);
    return segment.start + segment.text->previousCursorPosition(position - segment.start);
}

// A word boundary may be within a grapheme cluster (a space with a mark): then the cluster's end.
TextPos QtTextLines::NextWord(TextPos position) const {
    const LayoutSegment& segment = SegmentOf(position);
    const int to =
        segment.text->nextCursorPosition(position - segment.start, QTextLayout::SkipWords);
    const TextPos next = segment.start + to;
    return segment.text->isValidCursorPosition(to) ? next : NextPosition(next);
}

TextPos QtTextLines::PreviousWord(TextPos position) const {
    const LayoutSegment& segment = SegmentBefore(position);
    const int to =
        segment.text->previousCursorPosition(position - segment.start, QTextLayout::SkipWords);
    const TextPos before = segment.start + to;
    return segment.text->isValidCursorPosition(to) ? before : PreviousPosition(before);
}

CharSpan QtTextLines::WordAt(TextPos position) const {
    const LayoutSegment& segment = SegmentOf(position);
    const QString text = segment.text->text();
    if (text.isEmpty()) return {};
    const std::vector<TextPos> boundaries = WordBoundaries(text.toStdU16String());
    const TextPos at = std::min(position - segment.start, TextPos(text.size()) - 1);
    const auto end = std::upper_bound(boundaries.begin(), boundaries.end(), at);
    return {segment.start + *(end - 1), *end - *(end - 1)};
}

// In bidirectional text QTextLayout ignores trailing spaces, and stops within grapheme clusters. It
// does not move out of a line that consists of a line separator only.
TextPos QtTextLines::VisualStep(TextPos from, Step step, bool forward) const {
    const int line = LineOf(from);
    const TextPos spaces = VisibleEnd(line);
    if (from >= spaces) return forward ? NextPosition(from) : PreviousPosition(from);
    const LayoutSegment& segment = At(line).segment;
    int at = from - segment.start;
    do {
        const int to = (segment.text.get()->*step)(at);
        if (to == at && forward) return line + 1 < Count() ? Line(line).end : from;
        if (to == at) return line > 0 ? LastPosition(line - 1) : from;
        at = to;
    } while (!segment.text->isValidCursorPosition(at));
    const TextPos to = segment.start + at;
    if (to >= Line(line).end) return std::min(to, spaces);
    if (to >= Line(line).start || line == 0) return to;
    return VisibleEnd(line - 1) < from ? LastPosition(line - 1) : to;
}

TextPos QtTextLines::LeftOf(TextPos position) const {
    return VisualStep(position, &QTextLayout::leftCursorPosition, rightToLeft_);
}

TextPos QtTextLines::RightOf(TextPos position) const {
    return VisualStep(position, &QTextLayout::rightCursorPosition, !rightToLeft_);
}
