#include "common/contrast.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {
constexpr Color black = 0x000000, white = 0xFFFFFF;
constexpr double readable = 3; // of contrast
constexpr Color steps = 16;    // from a colour to black or white

double Linear(Color component) {
    const double share = (component & 0xFF) / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Color color) {
    return 0.2126 * Linear(color) + 0.7152 * Linear(color >> 8) + 0.0722 * Linear(color >> 16);
}

// From 0 to 255, as the eye weighs the components.
int Brightness(Color color) {
    const int red = int(color & 0xFF), green = int(color >> 8 & 0xFF),
              blue = int(color >> 16 & 0xFF);
    return (red * 11 + green * 16 + blue * 5) / 32;
}

bool IsGrey(Color color) {
    return (color & 0xFF) == (color >> 8 & 0xFF) && (color & 0xFF) == (color >> 16 & 0xFF);
}

Color Mixed(Color from, Color to, Color step) {
    const auto mix = [&](int shift) {
        const Color a = from >> shift & 0xFF, b = to >> shift & 0xFF;
        return ((steps - step) * a + step * b) / steps << shift;
    };
    return mix(0) | mix(8) | mix(16);
}
} // namespace

double Contrast(Color a, Color b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

bool IsReadable(Color text, Color background) {
    return Contrast(text, background) >= readable;
}

bool CanBeSeen(Color line, Color background) {
    constexpr int minDifference = 80; // in brightness
    return std::abs(Brightness(line) - Brightness(background)) >= minDifference;
}

Color LegibleOn(Color background) {
    return Contrast(black, background) > Contrast(white, background) ? black : white;
}

Color ReadableOn(Color background, Color text) {
    if (IsReadable(text, background)) return text;
    const Color end = LegibleOn(background);
    for (Color step = 1; step < steps && !IsGrey(text); ++step)
        if (const Color mixed = Mixed(text, end, step); IsReadable(mixed, background)) return mixed;
    return end;
}
