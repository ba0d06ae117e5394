#include "view/page/covered_area.h"

#include <algorithm>
#include <vector>

namespace {
// Edges may be a part of a pixel apart that was rounded.
constexpr double touching = 1;

bool Intersect(const FloatRect& a, const FloatRect& b) {
    return a.left + touching < b.Right() && b.left + touching < a.Right() &&
           a.top + touching < b.Bottom() && b.top + touching < a.Bottom();
}

FloatRect RectOf(const InlineLayout& lines, const InlineLine& line) {
    const double width = lines.pieces[line.piece].lines->Line(line.line).width;
    return {line.left, line.top, width, line.height};
}

// What is seen between the sides of an area, at its top or below.
class ObstacleList {
  public:
    explicit ObstacleList(const FloatRect& area) : area_(area) {}

    void Add(const PageFragment& fragment, double left, double top) {
        for (const PlacedLines& lines : fragment.lines)
            for (const InlineLine& line : lines.layout.lines)
                Add(RectOf(lines.layout, line), left, top);
        for (const PlacedImage& picture : fragment.pictures)
            Add(FloatRect{picture.left, picture.top, picture.width, picture.height}, left, top);
        for (const PlacedPart& part : fragment.parts)
            if (IsBelow({part.left + left, part.top + top, part.fragment->width,
                         part.fragment->height}))
                Add(*part.fragment, part.left + left, part.top + top);
    }
    // From the top one down; mostly they are found so.
    const std::vector<FloatRect>& Sorted() {
        if (!std::ranges::is_sorted(found_, {}, &FloatRect::top))
            std::ranges::sort(found_, {}, &FloatRect::top);
        return found_;
    }

  private:
    bool IsBelow(const FloatRect& rect) const {
        return rect.left + touching < area_.Right() && area_.left + touching < rect.Right() &&
               area_.top + touching < rect.Bottom();
    }
    void Add(FloatRect rect, double left, double top) {
        rect.left += left;
        rect.top += top;
        if (IsBelow(rect)) found_.push_back(rect);
    }

    const FloatRect& area_;
    std::vector<FloatRect> found_;
};
} // namespace

double CoveredBottom(const InlineLayout& lines, const FloatRect& area) {
    double bottom = area.top;
    for (const InlineLine& line : lines.lines) {
        const FloatRect box = RectOf(lines, line);
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

double FreeTop(const PageFragment& fragment, const FloatRect& area) {
    ObstacleList obstacles(area);
    obstacles.Add(fragment, 0, 0);
    FloatRect box = area;
    for (const FloatRect& each : obstacles.Sorted()) {
        if (each.top + touching >= box.Bottom()) break; // and so are all below
        if (Intersect(each, box)) box.top = each.Bottom();
    }
    return box.top;
}
