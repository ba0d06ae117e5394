#include "platform/none/none_line_layout.h"

#include "platform/none/none_clusters.h"
#include "platform/none/none_line_breaker.h"
#include "platform/none/none_text_lines.h"

void NoneLineLayout::SetResolution(double dpi) {
    dpi_ = dpi;
    ++resolution_;
}

StyleHandle NoneLineLayout::Prepare(const TextStyle& style) {
    ++prepared;
    return std::make_shared<NoneStyle>(style, dpi_, resolution_);
}

FontMetrics NoneLineLayout::Metrics(const PreparedStyle& handle) const {
    const auto& style = static_cast<const NoneStyle&>(handle);
    return {style.Ascent(), style.Descent(), 0, style.CharacterWidth()};
}

std::unique_ptr<TextLines> NoneLineLayout::BreakLines(const ParagraphText& paragraph) {
    ++paragraphs;
    for (const StyledRun& run : paragraph.runs)
        staleStyles += static_cast<const NoneStyle&>(*run.style).Resolution() != resolution_;
    NoneClusters clusters = ShapeClusters(paragraph);
    std::vector<NoneLine> lines = BreakIntoLines(paragraph, clusters);
    return std::make_unique<NoneTextLines>(paragraph, std::move(clusters), std::move(lines));
}
