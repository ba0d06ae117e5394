#include "view/page/text_raise.h"

namespace {
constexpr double xHeight = 1.0 / 2; // of the font's size

// A line height without one of its own: what most fonts have, for a percentage of it.
constexpr double normalLineHeight = 1.2;

double LineHeight(const CssInheritedStyle& text, PageFonts& fonts) {
    return fonts.LineHeight(text).value_or(fonts.Pixels(text.fontSize) * normalLineHeight);
}

double Raise(CssStyle element, CssStyle parent, PageFonts& fonts) {
    const double around = fonts.Pixels(parent.inherited->fontSize);
    const auto own = [&] { return fonts.Metrics(*element.inherited); };
    const auto outer = [&] { return fonts.Metrics(*parent.inherited); };
    switch (element.box->verticalAlign) {
    case CssVerticalAlign::Super: return Superscript(around, fonts.Pixels(1));
    case CssVerticalAlign::Sub: return -Subscript(around, fonts.Pixels(1));
    case CssVerticalAlign::Middle: return around * xHeight / 2 - (own().ascent - own().descent) / 2;
    case CssVerticalAlign::TextTop: return outer().ascent - own().ascent;
    case CssVerticalAlign::TextBottom: return own().descent - outer().descent;
    case CssVerticalAlign::Length: break;
    default: return 0;
    }
    const CssLength& shift = element.box->verticalShift;
    if (shift.kind == CssLength::Kind::Percent)
        return LineHeight(*element.inherited, fonts) * shift.value / 100;
    return fonts.Pixels(shift.Of(0));
}

// Of `position: relative`, upwards.
double Shift(const CssBoxStyle& box, PageFonts& fonts) {
    if (box.position != CssPosition::Relative) return 0;
    const auto pixels = [&](CssSide side) {
        return box.inset[side].kind == CssLength::Kind::Pixels ? fonts.Pixels(box.inset[side].value)
                                                               : 0;
    };
    return box.inset[cssTop].IsAuto() ? pixels(cssBottom) : -pixels(cssTop);
}
} // namespace

void AddOwnPlace(CssStyle element, CssStyle parent, PageFonts& fonts, TextPlace& place) {
    place.raise += Raise(element, parent, fonts);
    place.shift += Shift(*element.box, fonts);
}
