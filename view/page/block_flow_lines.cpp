// What stands in and beside the lines of the flow: floats, blocks in lines, markers.
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
