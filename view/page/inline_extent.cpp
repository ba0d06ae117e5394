// The narrowest and the widest a block of lines can be.
#include "common/text_words.h"
#include "view/page/break_width.h"
#include "view/page/inline_layout.h"

#include <algorithm>
#include <cmath>

namespace {
// Units that are shaped in one go, because asking where a word is takes the time of its line. Of a
// longer line spaces where slices meet are missing, in a width of thousands of pixels.
constexpr std::size_t maxSlice = 1024;
constexpr char16_t lineSeparator = u'\u2028';

double Width(const std::vector<TextExtent>& extents) {
    double width = 0;
    for (const TextExtent& extent : extents)
        width += extent.right - extent.left;
    return width;
}

// The widest stretch of a slice between two places where a line could break.
double WidestWord(const TextLines& lines, std::u16string_view slice,
                  const std::vector<bool>& breaks) {
    double widest = 0;
    for (std::size_t start = 0; start < slice.size();) {
        std::size_t end = start + 1;
        while (end < slice.size() && !breaks[end])
            ++end;
        std::size_t visible = end;
        while (visible > start && IsBreakingSpace(slice[visible - 1]))
            --visible;
        widest = std::max(widest, Width(lines.Extents(0, TextPos(start), TextPos(visible))));
        start = end;
    }
    return widest;
}

// Of a text of more than a slice.
std::size_t SliceLength(const std::vector<bool>& breaks) {
    for (std::size_t length = maxSlice - 1; length > 0; --length)
        if (breaks[length]) return length;
    return maxSlice;
}

// Of a stretch without line separators.
WidthExtent LineExtent(LineLayout& system, const InlineContent& content, TextPos start,
                       TextPos end) {
    WidthExtent extent;
    const std::u16string_view text = content.text.text;
    while (start < end) {
        std::u16string_view slice =
            text.substr(std::size_t(start), std::min(std::size_t(end - start), maxSlice));
        const auto breaks = LineBreaks(slice);
        if (start + TextPos(slice.size()) < end) slice = slice.substr(0, SliceLength(breaks));
        ParagraphText unbroken = TextFrom(content, start, start + TextPos(slice.size()));
        unbroken.width = maxBreakWidth;
        const auto lines = system.BreakLines(unbroken);
        extent.max += lines->Line(0).width;
        extent.min = std::max(extent.min, WidestWord(*lines, slice, breaks));
        start += TextPos(slice.size());
    }
    return extent;
}
} // namespace

WidthExtent ExtentOf(LineLayout& system, const InlineContent& content) {
    WidthExtent extent;
    const std::u16string& text = content.text.text;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(lineSeparator, start), text.size());
        const WidthExtent line = LineExtent(system, content, TextPos(start), TextPos(end));
        const double indent = start == 0 ? content.textIndent : 0;
        // Lines break at whole pixels.
        extent.min = std::max(extent.min, std::ceil(line.min + indent));
        extent.max = std::max(extent.max, std::ceil(line.max + indent));
        start = end + 1;
    }
    if (!content.wraps) extent.min = extent.max;
    for (const InlineFloat& box : content.floats) {
        extent.max += box.width;
        extent.min = std::max(extent.min, box.width);
    }
    return extent;
}
