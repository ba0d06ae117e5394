#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include "platform/qt/text_view/line_layout/line_positions.h"
#include "platform/qt/text_view/line_layout/qt_canvas.h"

#include <algorithm>

QtTextLines::QtTextLines(const ParagraphText& paragraph, QPaintDevice& device)
    : segments_(LayOutSegments(paragraph, device)), rightToLeft_(paragraph.rightToLeft) {
    for (std::size_t i = 0; i < segments_.size(); ++i)
        for (int line = 0; line < std::ssize(segments_[i].metrics); ++line)
            places_.push_back({i, line});
}

const TextLine& QtTextLines::Line(int index) const {
    const Place& place = places_[std::size_t(index)];
    return segments_[place.segment].metrics[std::size_t(place.line)];
}

QtTextLines::LaidOut QtTextLines::At(int index) const {
    const Place& place = places_[std::size_t(index)];
    const LayoutSegment& segment = segments_[place.segment];
    return {segment, *segment.text, segment.text->lineAt(place.line),
            rightToLeft_ ? double(roomForSpaces) : 0.0};
}

const LayoutSegment& QtTextLines::SegmentOf(TextPos position) const {
    const auto after = std::upper_bound(
        segments_.begin() + 1, segments_.end(), position,
        [](TextPos at, const LayoutSegment& segment) { return at < segment.start; });
    return *(after - 1);
}

const LayoutSegment& QtTextLines::SegmentBefore(TextPos position) const {
    return SegmentOf(std::max(0, position - 1));
}

int QtTextLines::LineOf(TextPos position) const {
    const auto after = std::upper_bound(
        places_.begin() + 1, places_.end(), position, [&](TextPos at, const Place& place) {
            return at < segments_[place.segment].metrics[std::size_t(place.line)].start;
        });
    return int(after - places_.begin()) - 1;
}

TextPos QtTextLines::LastPosition(int line) const {
    return line + 1 == Count() ? Line(line).end : PreviousPosition(Line(line).end);
}

TextPos QtTextLines::VisibleEnd(int index) const {
    const LaidOut at = At(index);
    return at.segment.start + TextEnd(at.layout, at.line);
}

double QtTextLines::CaretX(int index, TextPos position) const {
    const TextPos within = std::clamp(position, Line(index).start, Line(index).end);
    const LaidOut at = At(index);
    return ::CaretX(at.layout, at.line, within - at.segment.start) - at.shift;
}

TextExtent QtTextLines::CharacterExtent(int index, TextPos position) const {
    const LaidOut at = At(index);
    const TextPos visibleEnd = VisibleEnd(index);
    const TextPos within = std::clamp(position, Line(index).start, visibleEnd);
    const double leading = CaretX(index, within);
    if (within == visibleEnd) return {leading, leading};
    const double trailing = TrailingX(at.layout, at.line, within - at.segment.start) - at.shift;
    return {std::min(leading, trailing), std::max(leading, trailing)};
}

void QtTextLines::Draw(Canvas& canvas, int index, int left, int baseline,
                       const LinePaint& paint) const {
    const LaidOut at = At(index);
    QPainter& painter = static_cast<QtCanvas&>(canvas).Painter();
    const QPointF origin(left - at.shift, baseline - at.line.ascent());
    // A line is drawn at its own position, which is the shift.
    const QPointF place(origin.x() + at.shift - at.line.x(), origin.y() - at.line.y());
    painter.setPen(ToQColor(paint.text));
    if (paint.within.empty() && paint.without.empty()) return at.line.draw(&painter, place);
    QRegion region(ToQRect(paint.clip));
    for (const Rect& box : paint.without)
        region -= ToQRect(box);
    QRegion within;
    for (const Rect& box : paint.within)
        within += ToQRect(box);
    painter.save();
    painter.setClipRegion(paint.within.empty() ? region : region & within);
    QTextLayout& layout = *at.segment.text;
    const QTextOption normal = layout.textOption();
    if (paint.oneColor) {
        QTextOption oneColor = normal;
        oneColor.setFlags(normal.flags() | QTextOption::SuppressColors);
        layout.setTextOption(oneColor);
    }
    at.line.draw(&painter, place);
    if (paint.oneColor) layout.setTextOption(normal);
    painter.restore();
}
