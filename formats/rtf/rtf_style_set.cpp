#include "formats/rtf/rtf_style_set.h"

#include <initializer_list>

namespace {

std::size_t Mix(std::initializer_list<std::int64_t> values) {
    std::uint64_t hash = 0x9E3779B97F4A7C15;
    for (const std::int64_t value : values) {
        hash = (hash ^ static_cast<std::uint64_t>(value)) * 0xBF58476D1CE4E5B9;
        hash ^= hash >> 31;
    }
    return static_cast<std::size_t>(hash);
}

} // namespace

std::size_t HashOf(const CharStyle& style) {
    const int flags = style.autoForeground | style.autoBackground << 1 | style.bold << 2 |
                      style.italic << 3 | style.underline << 4 | style.strikethrough << 5 |
                      style.rightToLeft << 6 | static_cast<int>(style.script) << 7 |
                      static_cast<int>(style.capitals) << 9;
    return Mix(
        {style.font, style.halfPoints, style.foreground, style.background, flags, style.link});
}

std::size_t HashOf(const ParagraphStyle& style) {
    const int flags = static_cast<int>(style.alignment) | style.rightToLeft << 2 |
                      style.lineSpacingIsMultiple << 3 | style.autoBackground << 4 |
                      style.outlineLevel << 5;
    std::size_t hash =
        Mix({flags, style.leftIndent, style.rightIndent, style.firstLineIndent, style.spaceBefore,
             style.spaceAfter, style.lineSpacing, style.background});
    const ParagraphBorders& borders = style.borders;
    for (const ParagraphBorder* border :
         {&borders.left, &borders.top, &borders.right, &borders.bottom, &borders.between})
        if (border->width != 0)
            hash = Mix({static_cast<std::int64_t>(hash), border->width, border->space,
                        border->color, border->autoColor});
    for (const TabStop& stop : style.tabStops)
        hash = Mix({static_cast<std::int64_t>(hash), stop.position,
                    static_cast<int>(stop.alignment), static_cast<int>(stop.leader)});
    return hash;
}
