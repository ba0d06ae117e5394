#include "view/text_paint.h"

namespace {
// Three parts of the first colour and two of the second. Opaque, so that borders are no darker
// where they overlap.
Color Blend(Color a, Color b) {
    const auto mix = [&](int shift) {
        return (3 * (a >> shift & 0xFF) + 2 * (b >> shift & 0xFF)) / 5 << shift;
    };
    return mix(0) | mix(8) | mix(16);
}
} // namespace

Color TextPaint::Line() const {
    return Blend(text, context.viewStyle.backColor);
}

Color TextPaint::MissingPicture() const {
    return Blend(context.viewStyle.backColor, text);
}
