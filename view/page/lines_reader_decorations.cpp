// Backgrounds, borders and sides of the elements within lines.
#include "view/page/lines_reader.h"
#include "view/page/page_background.h"

#include <algorithm>
#include <cmath>

namespace {
// Something to be drawn after its text.
bool HasDecoration(CssStyle style) {
    const CssBoxStyle& box = *style.box;
    if (box.display != CssDisplay::Inline) return false;
    if (style.inherited->visibility != CssVisibility::Visible) return false;
    return IsDrawn(box.background) || std::any_of(box.borderWidth.begin(), box.borderWidth.end(),
                                                  [](float width) { return width > 0; });
}
} // namespace

// What an element takes on a side in its line: margin, border and padding.
void LinesReader::AddSide(const CssBoxStyle& style, CssSide side) {
    if (style.display != CssDisplay::Inline || !lines_.hasText) return;
    const float css =
        style.margin[side].Of(0) + style.borderWidth[side] + style.padding[side].Of(0);
    const int width = int(std::lround(fonts_.Pixels(css)));
    if (width > 0) writer_.AddGap(width, side == cssLeft);
}

// The elements that the first of these lines continues with.
void LinesReader::OpenAround(HtmlNodeId node) {
    std::vector<HtmlNodeId> around;
    while ((node = tree_[node].parent) != container_ && node != noHtmlNode)
        around.push_back(node);
    for (auto element = around.rbegin(); element != around.rend(); ++element)
        if (tree_[*element].IsElement())
            OpenDecoration(*element, styles_.Of(*element), InlineEdge::Elsewhere,
                           PlaceOf(*element));
}

void LinesReader::OpenDecoration(HtmlNodeId element, CssStyle style, InlineEdge start,
                                 const TextPlace& place) {
    if (!HasDecoration(style) || !lines_.hasText) return;
    const FontMetrics metrics = fonts_.Metrics(*style.inherited);
    auto& decorations = writer_.Content().decorations;
    open_.push_back({element, decorations.size()});
    decorations.push_back({writer_.Length(), writer_.Length(), style.box, metrics.ascent,
                           metrics.descent, place.raise + place.shift, start == InlineEdge::Here,
                           false});
}

void LinesReader::CloseDecoration(HtmlNodeId element, InlineEdge end) {
    if (open_.empty() || open_.back().element != element) return;
    InlineDecoration& decoration = writer_.Content().decorations[open_.back().decoration];
    decoration.end = writer_.Length();
    decoration.ends = end == InlineEdge::Here;
    open_.pop_back();
}
