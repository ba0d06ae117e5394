// Places of the caret, one after the other.
#include "common/text_words.h"
#include "platform/qt/text_view/line_layout/line_edges.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include <algorithm>

TextPos QtTextLines::NextPosition(TextPos position) const {
    const LayoutSegment& segment = SegmentOf(position);
    return segment.start + NextCharacter(*segment.text, position - segment.start);
}

TextPos QtTextLines::PreviousPosition(TextPos position) const {
    const LayoutSegment& segment = SegmentBefore(position);
    return segment.start + PreviousCharacter(*segment.text, position - segment.start);
}

// A word boundary may be within a grapheme cluster (a space with a mark): then the cluster's end.
TextPos QtTextLines::NextWord(TextPos position) const {
    const LayoutSegment& segment = SegmentOf(position);
    const int to =
        segment.text->nextCursorPosition(position - segment.start, QTextLayout::SkipWords);
    const TextPos next = segment.start + to;
    return IsCharacterStart(*segment.text, to) ? next : NextPosition(next);
}

TextPos QtTextLines::PreviousWord(TextPos position) const {
    const LayoutSegment& segment = SegmentBefore(position);
    const int to =
        segment.text->previousCursorPosition(position - segment.start, QTextLayout::SkipWords);
    const TextPos before = segment.start + to;
    return IsCharacterStart(*segment.text, to) ? before : PreviousPosition(before);
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

// The places in a line from left to right. Trailing spaces follow the text, as they would in the
// direction of the paragraph.
std::vector<TextPos> QtTextLines::CaretOrder(int line) const {
    const TextPos origin = SegmentAt(line).start, last = LastPosition(line);
    std::vector<TextPos> places;
    for (const int at : PlacesIn(line).CaretOrder())
        places.push_back(origin + at);
    std::vector<TextPos> after;
    for (TextPos at = origin + PlacesIn(line).TextEnd(); at <= last; at = NextPosition(at)) {
        after.push_back(at);
        if (NextPosition(at) == at) break;
    }
    if (rightToLeft_)
        places.insert(places.begin(), after.rbegin(), after.rend());
    else
        places.insert(places.end(), after.begin(), after.end());
    return places;
}

TextPos QtTextLines::Beside(TextPos position, bool right) const {
    const int line = LineOf(position);
    const bool forward = right != rightToLeft_;
    if (PlacesIn(line).IsUnidirectional()) {
        const TextPos to = forward ? NextPosition(position) : PreviousPosition(position);
        if (LineOf(to) == line) return to;
    } else {
        const std::vector<TextPos> places = CaretOrder(line);
        const auto here = std::find(places.begin(), places.end(), position);
        if (here != places.end() && here != (right ? places.end() - 1 : places.begin()))
            return right ? *(here + 1) : *(here - 1);
    }
    const int beyond = forward ? line + 1 : line - 1;
    if (beyond < 0 || beyond >= Count()) return position;
    const std::vector<TextPos> places = CaretOrder(beyond);
    if (places.empty()) return position;
    return right ? places.front() : places.back();
}
