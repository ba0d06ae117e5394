#include "view/selected_region.h"

#include <algorithm>
#include <cmath>

namespace {
Rect Band(const ParagraphLayout& paragraph, int line, double left, double right) {
    const int shift = paragraph.lines[std::size_t(line)].left;
    const int from = int(std::floor(left)), to = int(std::ceil(right));
    const int top = paragraph.TopWithoutSpace(line);
    return {shift + from, top, to - from, paragraph.BottomWithoutSpace(line) - top};
}

Rect SelectedBreak(const ParagraphLayout& paragraph, int line) {
    const TextLine& metrics = paragraph.text->Line(line);
    const double width = (metrics.ascent + metrics.descent) / 4;
    const double x = paragraph.text->CaretX(line, paragraph.end - paragraph.start);
    return paragraph.rightToLeft ? Band(paragraph, line, x - width, x)
                                 : Band(paragraph, line, x, x + width);
}
} // namespace

std::vector<Rect> SelectedRegion(const ParagraphLayout& paragraph, TextPos start, TextPos end,
                                 const Rect& clip) {
    std::vector<Rect> region;
    if (end <= paragraph.start || start > paragraph.end) return region;
    const int lines = paragraph.LineCount();
    for (int i = 0; i < lines && paragraph.LineTop(i) < Bottom(clip); ++i) {
        if (paragraph.LineBottom(i) <= clip.top) continue;
        const TextPos from = std::max(start, paragraph.LineStart(i));
        const TextPos to = std::min(end, paragraph.LineEnd(i));
        if (from < to)
            for (const TextExtent& extent :
                 paragraph.text->Extents(i, from - paragraph.start, to - paragraph.start))
                region.push_back(Band(paragraph, i, extent.left, extent.right));
        const bool breakSelected = start <= paragraph.end && paragraph.end < end;
        if (i + 1 == lines && breakSelected && !paragraph.continues)
            region.push_back(SelectedBreak(paragraph, i));
    }
    return region;
}
