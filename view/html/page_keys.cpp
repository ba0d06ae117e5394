#include "view/html/page_keys.h"

#include "common/text_clusters.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int maxLineSteps = 40;     // half lines that are looked at for the next one
constexpr TextPos clusterReach = 64; // units around a place in which its character ends

bool IsBlank(char16_t unit) {
    return unit == u' ' || unit == u'\n';
}

TextPos NextCharacter(std::u16string_view text, TextPos position, bool forward) {
    const TextPos from = std::max(0, position - clusterReach);
    const auto starts =
        ClusterStarts(text.substr(std::size_t(from), std::size_t(clusterReach) * 2));
    const auto after = std::ranges::upper_bound(starts, position - from);
    if (forward) return after == starts.end() ? TextPos(text.size()) : from + *after;
    const auto at = std::ranges::lower_bound(starts, position - from);
    return at == starts.begin() ? 0 : from + *std::prev(at);
}

TextPos NextWord(std::u16string_view text, TextPos position, bool forward) {
    auto at = std::size_t(position);
    if (forward) {
        while (at < text.size() && !IsBlank(text[at]))
            ++at;
        while (at < text.size() && IsBlank(text[at]))
            ++at;
    } else {
        while (at > 0 && IsBlank(text[at - 1]))
            --at;
        while (at > 0 && !IsBlank(text[at - 1]))
            --at;
    }
    return TextPos(at);
}

// From a height in the view on, by `step`: across the space between paragraphs, and past pictures.
std::optional<TextPos> InOtherLine(const PageViewport& view, const CharacterPlace& from, double y,
                                   double step) {
    for (int i = 0; i < maxLineSteps; ++i, y += step) {
        const auto line = view.LineAt({int(from.x) - view.scrollX, int(std::floor(y))});
        if (!line) break;
        const bool isSame =
            line->block.zone == from.block.zone && line->LineTop() == from.LineTop();
        if (!isSame) return view.Places().PositionInLine(*line, from.x);
    }
    return std::nullopt;
}
} // namespace

std::optional<TextPos> TargetOfKey(const PageViewport& view, TextPos caret, PaneKey key,
                                   bool control, int lineHeight) {
    const auto place = view.PlaceOf(caret);
    if (!place) return std::nullopt;
    const std::u16string& text = view.page.Text();
    const double half = lineHeight / 2.0;
    const double top = view.scroller.InView(place->block.zone, place->LineTop());
    const double bottom = view.scroller.InView(place->block.zone, place->LineBottom());
    const InlineLine& line = place->block.Line(place->line);
    const int page = view.size.height - 2 * lineHeight;
    const auto vertically = [&](double y, double step) {
        return InOtherLine(view, *place, y, step).value_or(caret);
    };
    const auto inLine = [&](TextPos unit) {
        return view.Places().PositionOf(place->block.Content(), unit);
    };
    switch (key) {
    case PaneKey::Left:
    case PaneKey::Right: {
        const bool forward = key == PaneKey::Right;
        return control ? NextWord(text, caret, forward) : NextCharacter(text, caret, forward);
    }
    case PaneKey::Up: return vertically(top - 1, -half);
    case PaneKey::Down: return vertically(bottom + 1, half);
    case PaneKey::PageUp: return vertically(top - page, -half);
    case PaneKey::PageDown: return vertically(bottom + page, half);
    case PaneKey::Home: return control ? 0 : inLine(line.start);
    case PaneKey::End: return control ? view.page.Length() : inLine(line.end);
    case PaneKey::Space: break;
    }
    return std::nullopt;
}
