#include "platform/windows/line_layout/line_breaker.h"
#include "platform/windows/line_layout/soft_hyphen.h"

#include <algorithm>

namespace {

void Include(TextLine& line, const ShapingFont& font, int rise) {
    line.ascent = std::max(line.ascent, static_cast<double>(font.ascent + rise));
    line.descent = std::max(line.descent, static_cast<double>(font.descent - rise));
    line.leading = std::max(line.leading, static_cast<double>(font.leading));
}

} // namespace

// Also of the fonts that stand in for a style's: their marks reach further up and down.
void MeasureLine(const ParagraphText& paragraph, const ShapedText& shaped, BrokenLine& broken) {
    TextLine& line = broken.line;
    const WinStyle& first = StyleAt(paragraph, static_cast<std::size_t>(line.start));
    Include(line, *first.font, first.rise);
    auto style = std::upper_bound(paragraph.runs.begin(), paragraph.runs.end(), line.start,
                                  [](TextPos at, const StyledRun& run) { return at < run.start; });
    for (; style != paragraph.runs.end() && style->start < line.end; ++style) {
        const auto& own = static_cast<const WinStyle&>(*style->style);
        Include(line, *own.font, own.rise);
    }
    auto run = std::upper_bound(shaped.runs.begin(), shaped.runs.end(),
                                static_cast<std::size_t>(line.start),
                                [](std::size_t at, const GlyphRun& each) { return at < each.end; });
    for (; run != shaped.runs.end() && run->start < static_cast<std::size_t>(line.end); ++run)
        Include(line, *run->font, StyleAt(paragraph, run->start).rise);
}
