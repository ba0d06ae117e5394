#include "view/html/page_viewport.h"

#include <cmath>

// A line of which less than a quarter is seen is none that is read.
std::optional<CharacterPlace> PageViewport::FirstLine() const {
    const int margin = Rounded(shown.TopMargin());
    auto line = LineAt({0, margin + 1}, LineChoice::FromThere);
    if (!line) return std::nullopt;
    const double bottom = scroller.InView(line->block.zone, line->LineBottom());
    if (bottom - margin > (line->LineBottom() - line->LineTop()) / 4) return line;
    const auto next = LineAt({0, int(std::ceil(bottom)) + 1}, LineChoice::FromThere);
    return next ? next : line;
}

TextPos PageViewport::StartAtTop() const {
    const auto line = FirstLine();
    return line ? PositionOf(*line) : 0;
}
