// Keys of a page.
#include "view/html/page_pane.h"

#include "common/text_clusters.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int maxLineSteps = 40;     // half lines that are looked at for the next one
constexpr TextPos clusterReach = 64; // units around a place in which its character ends

bool IsBlank(char16_t unit) {
    return unit == u' ' || unit == u'\n';
}
} // namespace

bool PagePane::Press(PaneKey key, bool extend, bool control) {
    if (!UpdateLayout()) return false;
    if (key == PaneKey::Space) {
        if (control) return false;
        ScrollPage(!extend);
        return true;
    }
    if (extend) {
        const auto target = KeyTarget(key, control);
        if (!target) return false;
        Select(anchor_, *target);
        Reveal(*target);
        return true;
    }
    switch (key) {
    case PaneKey::Up: ScrollLines(-2); break;
    case PaneKey::Down: ScrollLines(2); break;
    case PaneKey::Left: ScrollBy({-2 * LineHeight(), 0}); break;
    case PaneKey::Right: ScrollBy({2 * LineHeight(), 0}); break;
    case PaneKey::PageUp: ScrollPage(false); break;
    case PaneKey::PageDown: ScrollPage(true); break;
    case PaneKey::Home: ScrollToPercent(0); break;
    case PaneKey::End: ScrollToPercent(100); break;
    case PaneKey::Space: break;
    }
    return true;
}

// Where a key with Shift moves the selection's end.
std::optional<TextPos> PagePane::KeyTarget(PaneKey key, bool control) {
    const auto place = PlaceOf(caret_);
    if (!place) return std::nullopt;
    // Another line: across the space between paragraphs, and past pictures.
    const auto vertically = [&](double y, double step) {
        for (int i = 0; i < maxLineSteps; ++i, y += step) {
            const auto line = LineAt({int(place->x) - scrollX_, int(std::floor(y))}, false);
            if (!line) break;
            const bool isSame =
                line->block.zone == place->block.zone && line->LineTop() == place->LineTop();
            if (!isSame) return PagePlaces(*page_, *shown_).PositionInLine(*line, place->x);
        }
        return caret_;
    };
    const double half = LineHeight() / 2.0;
    const double top = scroller_.InView(place->block.zone, place->LineTop());
    const double bottom = scroller_.InView(place->block.zone, place->LineBottom());
    const InlineLine& line = place->block.Line(place->line);
    const PagePlaces places(*page_, *shown_);
    const int page = options_.viewport.height - 2 * LineHeight();
    switch (key) {
    case PaneKey::Left:
    case PaneKey::Right: {
        const bool forward = key == PaneKey::Right;
        return control ? NextWord(caret_, forward) : NextCharacter(caret_, forward);
    }
    case PaneKey::Up: return vertically(top - 1, -half);
    case PaneKey::Down: return vertically(bottom + 1, half);
    case PaneKey::PageUp: return vertically(top - page, -half);
    case PaneKey::PageDown: return vertically(bottom + page, half);
    case PaneKey::Home: return control ? 0 : places.PositionOf(place->block.Content(), line.start);
    case PaneKey::End:
        return control ? page_->Length() : places.PositionOf(place->block.Content(), line.end);
    case PaneKey::Space: break;
    }
    return std::nullopt;
}

TextPos PagePane::NextCharacter(TextPos position, bool forward) const {
    const std::u16string_view text = page_->Text();
    const TextPos from = std::max(0, position - clusterReach);
    const auto starts =
        ClusterStarts(text.substr(std::size_t(from), std::size_t(clusterReach) * 2));
    const auto after = std::ranges::upper_bound(starts, position - from);
    if (forward) return after == starts.end() ? page_->Length() : from + *after;
    const auto at = std::ranges::lower_bound(starts, position - from);
    return at == starts.begin() ? 0 : from + *std::prev(at);
}

TextPos PagePane::NextWord(TextPos position, bool forward) const {
    const std::u16string& text = page_->Text();
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
