// What the style of a view changes of the styles of its text: for a copy of what is shown.
#pragma once

#include "formats/style_overrides.h"
#include "view/view_style.h"

#include <cmath>
#include <utility>

// `family` and `points` are what the view's font comes to where it gives none. The background is
// the view's own, as the margins are: a copy has none of it.
inline StyleOverrides OverridesOf(const ViewStyle& style, bool isPlainText, std::u16string family,
                                  double points) {
    StyleOverrides overrides;
    overrides.fontName = std::move(family);
    if (isPlainText || style.fontForAll) {
        CharStyle& font = overrides.font.emplace();
        font.halfPoints = static_cast<std::uint16_t>(std::lround(2 * points));
        font.bold = style.font.bold;
        font.italic = style.font.italic;
        font.underline = style.font.underline;
        font.strikethrough = style.font.strikethrough;
    }
    if (!style.autoColor) overrides.textColor = style.textColor;
    overrides.alignment = style.alignment;
    return overrides;
}
