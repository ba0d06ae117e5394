#include "view/page/covered_area.h"

#include <algorithm>

namespace {
// Edges may be a part of a pixel apart that was rounded.
constexpr double touching = 1;

bool Intersect(const FloatRect& a, const FloatRect& b) {
    return a.left + touching < b.Right() && b.left + touching < a.Right() &&
           a.top + touching < b.Bottom() && b.top + touching < a.Bottom();
}
} // namespace

double CoveredBottom(const InlineLayout& lines, const FloatRect& area) {
    double bottom = area.top;
    for (const InlineLine& line : lines.lines) {
        const double width = lines.pieces[line.piece].lines->Line(line.line).width;
        const FloatRect box{line.left, line.top, width, line.height};
        if (Intersect(box, area)) bottom = std::max(bottom, box.Bottom());
    }
    return bottom;
}

double CoveredBottom(const PageFragment& fragment, const FloatRect& area) {
    double bottom = area.top;
    for (const PlacedLines& lines : fragment.lines)
        bottom = std::max(bottom, CoveredBottom(lines.layout, area));
    for (const PlacedImage& picture : fragment.pictures) {
        const FloatRect box{picture.left, picture.top, picture.width, picture.height};
        if (Intersect(box, area)) bottom = std::max(bottom, box.Bottom());
    }
    for (const PlacedPart& part : fragment.parts) {
        const FloatRect box{part.left, part.top, part.fragment->width, part.fragment->height};
        if (!Intersect(box, area)) continue;
        FloatRect within = area;
        within.left -= part.left;
        within.top -= part.top;
        bottom = std::max(bottom, part.top + CoveredBottom(*part.fragment, within));
    }
    return bottom;
}
