#include "platform/windows/line_layout/soft_hyphen.h"

#include <algorithm>

const WinStyle& StyleAt(const ParagraphText& paragraph, std::size_t unit) {
    const auto after = std::upper_bound(
        paragraph.runs.begin() + 1, paragraph.runs.end(), static_cast<TextPos>(unit),
        [](TextPos at, const StyledRun& run) { return at < run.start; });
    return static_cast<const WinStyle&>(*(after - 1)->style);
}

int HyphenWidth(const ParagraphText& paragraph, std::size_t unit) {
    return StyleAt(paragraph, unit).font->hyphenWidth;
}
