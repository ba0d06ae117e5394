// The units in which assistive technology reads a page.
#include "common/utf.h"
#include "view/html/readable_page.h"

#include <algorithm>

namespace {
constexpr TextPos maxParagraph = 64 * 1024; // of a longer one the parts are read one by one
} // namespace

const TextSource& ReadablePage::Source() const {
    if (source_) return *source_;
    const std::u16string* text = CountedText();
    return source_.emplace(text ? *text : noText_);
}

TextSpan ReadablePage::ReadingParagraph(TextPos position) {
    const TextSource& text = Source();
    const TextPos length = text.Length(), at = std::clamp(position, 0, length);
    const TextPos start = text.LastBreak(0, at) + 1, lastUnit = text.FirstBreak(at, length);
    const TextPos end = lastUnit < 0 ? length : lastUnit + 1;
    const TextPos part = start + (at - start) / maxParagraph * maxParagraph;
    const auto boundary = [&](TextPos to) {
        const bool splits = to > start && to < end && IsLowSurrogate(text.UnitAt(to));
        return splits ? to + 1 : std::min(to, end);
    };
    return {boundary(part), boundary(end - part > maxParagraph ? part + maxParagraph : end)};
}

// A paragraph may stand in several blocks of lines.
TextSpan ReadablePage::ReadingLine(TextPos position) {
    const TextSpan paragraph = ReadingParagraph(position);
    const auto view = Viewport();
    const auto place = view ? view->PlaceOf(position) : std::nullopt;
    if (!place || paragraph.start == paragraph.end) return paragraph;
    const PagePlaces places = view->Places();
    const auto inParagraph = [&](TextPos unit) {
        return std::clamp(places.PositionOf(place->block.Content(), unit), paragraph.start,
                          paragraph.end);
    };
    const std::size_t next = place->line + 1;
    const bool isLast = next == place->block.lines->layout.lines.size();
    const InlineLine& line = place->block.Line(place->line);
    TextSpan span{std::min(inParagraph(line.start), position), paragraph.end};
    if (!isLast) {
        const TextPos end = inParagraph(place->block.Line(next).start);
        if (end > position) span.end = end;
        return span;
    }
    // A blank may stand between the blocks.
    const TextPos last = inParagraph(line.end);
    for (TextPos end = last; end <= last + 1 && end < paragraph.end; ++end) {
        const auto after = view->PlaceOf(end);
        if (end <= position || !after || after->block.lines == place->block.lines) continue;
        span.end = end;
        break;
    }
    return span;
}

TextSpan ReadablePage::StyleSpan(TextPos position) {
    const auto view = Viewport();
    if (!view || view->page.Counted().pieces.empty()) return {0, Source().Length()};
    const auto& pieces = view->page.Counted().pieces;
    const std::size_t piece = view->page.PieceAt(position);
    return {piece == 0 ? 0 : pieces[piece].start,
            piece + 1 < pieces.size() ? pieces[piece + 1].start : Source().Length()};
}

TextPos ReadablePage::ReadingPageEnd(TextPos position) {
    const auto view = Viewport();
    const auto place = view ? view->PlaceOf(position) : std::nullopt;
    if (!place) return Source().Length();
    const PageScroller::Top top{place->block.zone, place->LineTop()};
    const PageScroller::Top below = view->scroller.Moved(top, view->size.height);
    PageFlow& flow = view->shown.Flow();
    const bool isAfter =
        below.zone + 1 == flow.ZoneCount() && below.y >= flow.LayOut(below.zone)->height;
    PagePlaces places = view->Places();
    const auto line =
        isAfter ? std::nullopt
                : places.NearestLine(below.zone, place->x, below.y, LineChoice::FromThere);
    if (!line || line->LineBottom() <= below.y) return Source().Length();
    return std::max(places.PositionOf(line->block.Content(), line->unit),
                    ReadingLine(position).end);
}

TextPos ReadablePage::ReadingPageStart(TextPos position) {
    const auto view = Viewport();
    const auto place = view && position > 0 ? view->PlaceOf(position) : std::nullopt;
    if (!place) return 0;
    const PageScroller::Top top{place->block.zone, place->LineTop()};
    const PageScroller::Top above = view->scroller.Moved(top, -view->size.height);
    PagePlaces places = view->Places();
    const auto line = places.NearestLine(above.zone, place->x, above.y, LineChoice::FromThere);
    if (!line) return 0;
    const TextPos start = places.PositionOf(line->block.Content(), line->unit);
    const bool isCut = line->block.zone == above.zone && line->LineTop() < above.y;
    return std::min(isCut ? ReadingLine(start).end : start, ReadingLine(position - 1).start);
}
