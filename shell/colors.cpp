#include "shell/colors.h"

#include "common/text.h"

std::u16string ColorToComponentsText(std::int64_t value, ColorComponents& components) {
    if (value < 0 || value >= 1 << 24) return u"";
    components.first = static_cast<std::uint8_t>(value >> 16);
    components.second = static_cast<std::uint8_t>(value >> 8 & 0xFF);
    components.third = static_cast<std::uint8_t>(value & 0xFF);
    return NumberText(components.first) + u',' + NumberText(components.second) + u',' +
           NumberText(components.third);
}

Color SwapColorOrder(Color value) {
    ColorComponents components;
    ColorToComponentsText(value & 0xFFFFFF, components);
    return components.first | Color{components.second} << 8 | Color{components.third} << 16;
}
