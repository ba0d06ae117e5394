#include "platform/none/none_line_layout.h"

#include "platform/none/none_clusters.h"
#include "platform/none/none_line_breaker.h"
#include "platform/none/none_text_lines.h"

#include "common/text.h"

#include <algorithm>
#include <iterator>

namespace {
// In the order of GenericFamily.
constexpr const char16_t* families[] = {u"None Serif",   u"None Sans",    u"None Mono",
                                        u"None Cursive", u"None Fantasy", u"None Interface"};
} // namespace

void NoneLineLayout::SetResolution(double dpi) {
    dpi_ = dpi;
    ++resolution_;
}

bool NoneLineLayout::IsInstalled(std::u16string_view family) {
    return std::any_of(std::begin(families), std::end(families), [&](std::u16string_view each) {
        return std::equal(each.begin(), each.end(), family.begin(), family.end(),
                          [](char16_t a, char16_t b) { return FoldCase(a) == FoldCase(b); });
    });
}

std::u16string NoneLineLayout::FamilyOf(GenericFamily family) {
    return families[static_cast<int>(family)];
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
