#include "platform/qt/text_view/line_layout/qt_text_lines.h"

#include "platform/qt/text_view/line_layout/qt_canvas.h"

#include <QFontMetricsF>

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

QTextLine QtTextLines::At(int line) const {
    return SegmentAt(line).text->lineAt(places_[std::size_t(line)].line);
}

const LinePlaces& QtTextLines::PlacesIn(int line) const {
    const LayoutSegment& segment = SegmentAt(line);
    if (!cached_ || cached_->index != line)
        cached_.emplace(CachedLine{line, {*segment.text, At(line), segment.isUnidirectional}});
    return cached_->places;
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

double QtTextLines::CaretX(int line, TextPos position) const {
    const TextPos within = std::clamp(position, Line(line).start, Line(line).end);
    return PlacesIn(line).CaretX(within - SegmentAt(line).start);
}

TextExtent QtTextLines::CharacterExtent(int line, TextPos position) const {
    const TextPos within = std::clamp(position, Line(line).start, Line(line).end);
    return PlacesIn(line).ExtentOf(within - SegmentAt(line).start);
}

std::vector<TextExtent> QtTextLines::Extents(int line, TextPos start, TextPos end) const {
    const TextPos from = std::max(start, Line(line).start), to = std::min(end, Line(line).end);
    const TextPos origin = SegmentAt(line).start;
    if (from >= to) return {};
    return PlacesIn(line).Extents(from - origin, to - origin);
}

TextPos QtTextLines::PositionAt(int line, double x) const {
    const TextPos last = std::max(Line(line).start, LastPosition(line));
    return std::min(last, SegmentAt(line).start + PlacesIn(line).CaretAt(x));
}

TextPos QtTextLines::CharacterAt(int line, double x) const {
    return SegmentAt(line).start + PlacesIn(line).CharacterAt(x);
}

void QtTextLines::Draw(Canvas& canvas, int line, int left, int baseline,
                       const LinePaint& paint) const {
    QPainter& painter = static_cast<QtCanvas&>(canvas).Painter();
    if (paint.within.empty() && paint.without.empty())
        return DrawText(painter, line, left, baseline, paint);
    QRegion region(ToQRect(paint.clip));
    for (const Rect& box : paint.without)
        region -= ToQRect(box);
    QRegion within;
    for (const Rect& box : paint.within)
        within += ToQRect(box);
    painter.save();
    painter.setClipRegion(paint.within.empty() ? region : region & within);
    DrawText(painter, line, left, baseline, paint);
    painter.restore();
}

void QtTextLines::DrawText(QPainter& painter, int line, int left, int baseline,
                           const LinePaint& paint) const {
    const QTextLine laidOut = At(line);
    // It is drawn at its own position in the layout.
    const QPointF place(left - laidOut.x(), baseline - laidOut.ascent() - laidOut.y());
    painter.setPen(ToQColor(paint.text));
    QTextLayout& layout = *SegmentAt(line).text;
    const QTextOption normal = layout.textOption();
    if (paint.oneColor) {
        QTextOption oneColor = normal;
        oneColor.setFlags(normal.flags() | QTextOption::SuppressColors);
        layout.setTextOption(oneColor);
    }
    laidOut.draw(&painter, place);
    if (paint.oneColor) layout.setTextOption(normal);
    for (const SegmentLeader& leader : SegmentAt(line).leaders)
        if (leader.at >= Line(line).start && leader.at < Line(line).end)
            DrawLeader(painter, line, leader, left, baseline, paint);
}

void QtTextLines::DrawLeader(QPainter& painter, int line, const SegmentLeader& leader, int left,
                             int baseline, const LinePaint& paint) const {
    const TextExtent gap = CharacterExtent(line, leader.at);
    const double startEdge = rightToLeft_ ? Line(line).width + leader.indent : -leader.indent;
    const QString character(leader.character);
    const double advance = QFontMetricsF(leader.font).horizontalAdvance(character);
    const LeaderSpan span = LeaderIn(gap.left, gap.right, advance, startEdge);
    painter.setFont(leader.font);
    painter.setPen(leader.color && !paint.oneColor ? *leader.color : ToQColor(paint.text));
    painter.drawText(QPointF(left + span.left, baseline), character.repeated(span.count));
}
