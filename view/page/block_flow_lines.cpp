// What stands in and beside the lines of the flow: floats, blocks in lines, markers, absolute
// boxes.
#include "view/page/block_flow.h"

#include <algorithm>
#include <utility>

// What follows stands below the result.
double BlockFlow::AddLines(PageBoxId box, InlineEdges room, LinesContent content,
                           InlineLayout layout) {
    const auto add = [&](std::vector<PlacedPart>& parts, const std::vector<InlinePlace>& places) {
        for (std::size_t i = 0; i < parts.size() && i < places.size(); ++i) {
            parts[i].left += places[i].left;
            parts[i].top += places[i].top;
            result_.parts.push_back(std::move(parts[i]));
        }
    };
    add(content.floats, layout.floats);
    add(content.atoms, layout.atoms);
    const double below = AddPositioned(content, layout, room);
    if (layout.lines.empty()) return below;
    AddMarker(layout.lines.front());
    result_.lines.push_back({box, std::move(content.content), std::move(layout)});
    return below;
}

// Beside the first line of a list's item, before its content.
void BlockFlow::AddMarker(const InlineLine& firstLine) {
    if (markerAt_ == 0) return;
    const OpenBlock& item = open_[std::exchange(markerAt_, 0)];
    const auto content = layouter_.Content().MarkerOf(item.box);
    if (!content) return;
    FloatContext none;
    InlineLayout layout = LayOutInline(layouter_.Lines(), *content, {0, 0}, 0, none);
    InlineLine& line = layout.lines.front();
    const double width = layout.pieces.front().lines->Line(0).width;
    const double gap = layouter_.Lines().Metrics(*content->strut).Height() / 3;
    const InlineEdges free = item.room;
    line.left = content->text.rightToLeft ? free.right + gap : free.left - gap - width;
    line.top = firstLine.top;
    line.height = firstLine.height;
    line.baseline = firstLine.baseline;
    result_.lines.push_back({item.box, content, std::move(layout)});
}

// At the top of the line that it stands in, where its style says no other place. Between blocks a
// wide one is above what follows, which it would cover; a page's number is not.
double BlockFlow::AddPositioned(const LinesContent& content, const InlineLayout& layout,
                                InlineEdges room) {
    const InlineEdges page = PositionedRoom();
    double below = layout.bottom;
    for (const LinesText::Place& positioned : content.positioned) {
        double top = below, left = room.left;
        for (const InlineLine& line : layout.lines) {
            if (line.end <= positioned.at && line.end < layout.lines.back().end) continue;
            top = line.top;
            const InlinePiece& piece = layout.pieces[line.piece];
            left = line.left + piece.lines->CaretX(line.line, positioned.at - piece.start);
            break;
        }
        const CssBoxStyle& style = *layouter_.Box(positioned.box).style;
        PageFragmentPtr fragment = layouter_.LayOutShrunk(positioned.box, page.Width());
        const BoxMeasure& measure = layouter_.Measure();
        if (!style.inset[cssLeft].IsAuto())
            left = page.left + measure.Length(style.inset[cssLeft], page.Width());
        else if (!style.inset[cssRight].IsAuto())
            left =
                page.right - measure.Length(style.inset[cssRight], page.Width()) - fragment->width;
        left += measure.Margin(style, cssLeft, page.Width());
        top += measure.Margin(style, cssTop, page.Width());
        const double covered =
            std::min(left + fragment->width, room.right) - std::max(left, room.left);
        if (layout.lines.empty() && covered > room.Width() / 2)
            below = std::max(below, top + fragment->height);
        result_.parts.push_back({left, top, std::move(fragment)});
    }
    return below;
}
