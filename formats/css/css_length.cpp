#include "formats/css/css_length.h"

#include "formats/css/css_limits.h"

#include <algorithm>
#include <cmath>

namespace {

struct UnitEntry {
    std::u16string_view name;
    CssUnit unit;
    float factor;
};

// An inch is 96 pixels, whatever the screen.
constexpr UnitEntry units[] = {
    {u"px", CssUnit::Px, 1},          {u"em", CssUnit::Em, 1},
    {u"pt", CssUnit::Px, 96.0f / 72}, {u"rem", CssUnit::Rem, 1},
    {u"ex", CssUnit::Ex, 1},          {u"ch", CssUnit::Ch, 1},
    {u"lh", CssUnit::Lh, 1},          {u"rlh", CssUnit::Rlh, 1},
    {u"in", CssUnit::Px, 96},         {u"cm", CssUnit::Px, 96 / 2.54f},
    {u"mm", CssUnit::Px, 96 / 25.4f}, {u"q", CssUnit::Px, 96 / 101.6f},
    {u"pc", CssUnit::Px, 16},         {u"vw", CssUnit::Vw, 1},
    {u"vh", CssUnit::Vh, 1},          {u"vmin", CssUnit::Vmin, 1},
    {u"vmax", CssUnit::Vmax, 1},      {u"__qem", CssUnit::QuirkyEm, 1},
    {u"vi", CssUnit::Vw, 1},          {u"vb", CssUnit::Vh, 1},
    {u"dvw", CssUnit::Vw, 1},         {u"dvh", CssUnit::Vh, 1},
    {u"svw", CssUnit::Vw, 1},         {u"svh", CssUnit::Vh, 1},
    {u"lvw", CssUnit::Vw, 1},         {u"lvh", CssUnit::Vh, 1},
};

// Of fonts whose measures are not known here; CSS gives half an em for both.
constexpr float exOfEm = 0.5f, chOfEm = 0.5f;
constexpr float normalLineHeight = 1.15f; // of those that most pages are shown in

float OneOf(CssUnit unit, const CssLengthBase& base) {
    const float width = base.medium ? base.medium->viewportWidth / 100 : 0;
    const float height = base.medium ? base.medium->viewportHeight / 100 : 0;
    switch (unit) {
    case CssUnit::Px: return 1;
    case CssUnit::Em:
    case CssUnit::QuirkyEm: return base.fontSize;
    case CssUnit::Rem: return base.rootFontSize;
    case CssUnit::Ex: return base.fontSize * exOfEm;
    case CssUnit::Ch: return base.fontSize * chOfEm;
    case CssUnit::Lh: return base.lineHeight;
    case CssUnit::Rlh: return base.rootLineHeight;
    case CssUnit::Vw: return width;
    case CssUnit::Vh: return height;
    case CssUnit::Vmin: return std::min(width, height);
    case CssUnit::Vmax: return std::max(width, height);
    }
    return 1;
}

} // namespace

std::optional<CssValue> CssLengthOf(const CssToken& token, bool quirks) {
    if (token.Is(CssToken::Kind::Number) && (token.number == 0 || quirks))
        return CssValue::Pixels(token.number);
    if (!token.Is(CssToken::Kind::Dimension)) return std::nullopt;
    for (const UnitEntry& entry : units) {
        if (!CssEqual(token.unit, entry.name)) continue;
        CssValue value = CssValue::Pixels(token.number * entry.factor);
        value.unit = entry.unit;
        return value;
    }
    return std::nullopt;
}

float ClampCssPixels(float pixels) {
    if (std::isnan(pixels)) return 0; // none of a number without end
    return std::clamp(pixels, -maxCssPixels, maxCssPixels);
}

float CssPixels(const CssValue& length, const CssLengthBase& base) {
    return ClampCssPixels(length.number * OneOf(length.unit, base));
}

float CssLineHeightPixels(const CssLength& lineHeight, float fontSize) {
    switch (lineHeight.kind) {
    case CssLength::Kind::Number: return lineHeight.value * fontSize;
    case CssLength::Kind::Pixels: return lineHeight.value;
    default: return normalLineHeight * fontSize;
    }
}
