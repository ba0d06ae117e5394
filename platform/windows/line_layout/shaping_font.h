// A font of GDI, opened for shaping.
#pragma once

#include "platform/windows/line_layout/uniscribe.h"
#include "platform/windows/window/dpi.h"

#include <memory>
#include <string>

// Distances from the baseline in pixels, upwards; thickness downwards from there.
struct TextRule {
    int top = 0, thickness = 1;
};

struct ShapingFont {
    WinFont handle;
    LOGFONTW description = {};
    SCRIPT_CACHE cache = nullptr; // what Uniscribe knows of it, for every call with this font
    int ascent = 0, descent = 0, leading = 0, spaceWidth = 0, hyphenWidth = 0;
    TextRule underline, strikeout;
    WORD missingGlyph = 0, blankGlyph = 0;

    ShapingFont() = default;
    ShapingFont(const ShapingFont&) = delete;
    ShapingFont& operator=(const ShapingFont&) = delete;
    ~ShapingFont();
    std::wstring Family() const { return description.lfFaceName; }
};
using ShapingFontPtr = std::shared_ptr<ShapingFont>;

// A device context to measure with. It keeps the font that is selected: GDI does not delete that.
class MeasuringContext {
  public:
    MeasuringContext();
    ~MeasuringContext();
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;

    HDC With(const ShapingFontPtr& font);

  private:
    HDC context_;
    HGDIOBJ original_;
    ShapingFontPtr selected_;
};

// Never null; a family that is not installed gives the nearest.
ShapingFontPtr OpenShapingFont(MeasuringContext&, const LOGFONTW&);

// Of the basic plane only: GDI knows no others.
bool HasGlyph(MeasuringContext&, const ShapingFontPtr&, wchar_t character);
