#include "platform/windows/line_layout/win_line_layout.h"

#include "platform/windows/base/text.h"
#include "platform/windows/line_layout/installed_families.h"
#include "platform/windows/line_layout/win_text_lines.h"

FontMetrics WinLineLayout::Metrics(const PreparedStyle& style) const {
    const ShapingFont& font = *static_cast<const WinStyle&>(style).font;
    FontMetrics metrics;
    metrics.ascent = font.ascent;
    metrics.descent = font.descent;
    metrics.leading = font.leading;
    metrics.spaceWidth = font.spaceWidth;
    return metrics;
}

bool WinLineLayout::IsInstalled(std::u16string_view family) {
    return IsInstalledFamily(ToWide(family));
}

std::unique_ptr<TextLines> WinLineLayout::BreakLines(const ParagraphText& paragraph) {
    return std::make_unique<WinTextLines>(fonts_, paragraph);
}
