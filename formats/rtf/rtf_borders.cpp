#include "formats/rtf/rtf_borders.h"

#include "formats/rtf/rtf_limits.h"

#include <algorithm>

namespace {

constexpr std::int32_t wholeShare = 10'000;

Color Mixed(Color a, Color b, std::int32_t shareOfB) {
    Color mixed = 0;
    for (const int shift : {0, 8, 16}) {
        const std::int32_t from = static_cast<std::int32_t>(a >> shift & 0xFF);
        const std::int32_t to = static_cast<std::int32_t>(b >> shift & 0xFF);
        mixed |= static_cast<Color>(from + (to - from) * shareOfB / wholeShare) << shift;
    }
    return mixed;
}

void ApplyToSide(ParagraphBorder& border, const RtfWordEntry& entry, std::int32_t parameter,
                 const RtfColorTable& colors) {
    if (border.width == 0 && entry.word != RtfWord::BorderStyle) return;
    switch (entry.word) {
    case RtfWord::BorderStyle: border = {.width = static_cast<std::uint16_t>(entry.value)}; break;
    case RtfWord::BorderWidth:
        border.width = static_cast<std::uint16_t>(std::clamp(parameter, 1, maxRtfBorderWidth));
        break;
    case RtfWord::BorderSpace:
        border.space = static_cast<std::uint16_t>(std::clamp(parameter, 0, maxRtfBorderSpace));
        break;
    case RtfWord::BorderColor: {
        const RtfColor color = colors.At(parameter);
        border.color = color.value;
        border.autoColor = color.isAutomatic;
        break;
    }
    default: break;
    }
}

} // namespace

void RtfShading::Apply(const RtfWordEntry& entry, std::int32_t parameter,
                       const RtfColorTable& colors, ParagraphStyle& style) {
    constexpr Color black = 0x000000, white = 0xFFFFFF;
    switch (entry.word) {
    case RtfWord::ParagraphBackground: background_ = colors.At(parameter); break;
    case RtfWord::ShadingPattern: pattern_ = colors.At(parameter); break;
    case RtfWord::Shading: share_ = std::clamp(parameter, 0, wholeShare); break;
    default: break;
    }
    style.autoBackground = background_.isAutomatic && share_ == 0;
    style.background = style.autoBackground
                           ? 0
                           : Mixed(background_.isAutomatic ? white : background_.value,
                                   pattern_.isAutomatic ? black : pattern_.value, share_);
}

void ApplyBorderWord(RtfBorderSide& side, ParagraphBorders& borders, const RtfWordEntry& entry,
                     std::int32_t parameter, const RtfColorTable& colors) {
    if (entry.word == RtfWord::BorderSide) {
        side = static_cast<RtfBorderSide>(entry.value);
        return;
    }
    const auto apply = [&](ParagraphBorder& border) {
        ApplyToSide(border, entry, parameter, colors);
    };
    switch (side) {
    case RtfBorderSide::ParagraphLeft: return apply(borders.left);
    case RtfBorderSide::ParagraphTop: return apply(borders.top);
    case RtfBorderSide::ParagraphRight: return apply(borders.right);
    case RtfBorderSide::ParagraphBottom: return apply(borders.bottom);
    case RtfBorderSide::ParagraphBetween: return apply(borders.between);
    case RtfBorderSide::ParagraphBox:
        for (ParagraphBorder* border :
             {&borders.left, &borders.top, &borders.right, &borders.bottom})
            apply(*border);
        return;
    default: return;
    }
}
