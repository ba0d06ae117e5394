// The fonts of a text, at one resolution.
#pragma once

#include "platform/line_layout.h"
#include "platform/windows/line_layout/font_fallback.h"

#include <map>
#include <tuple>

struct WinStyle : PreparedStyle {
    TextStyle style;
    ShapingFontPtr font;
    // Of the baseline, pixels: of superscript and subscript, which count in a line's height, and
    // of raised text.
    int rise = 0, raise = 0;
};

class WinFonts {
  public:
    MeasuringContext& Context() { return context_; }
    FontFallback& Fallback() { return fallback_; }

    void SetResolution(double dpi);
    std::u16string FamilyOf(GenericFamily) const;
    std::shared_ptr<const WinStyle> Prepare(const TextStyle&);
    // In the size and weight of another one.
    ShapingFontPtr WithFamily(const ShapingFont&, const std::wstring& family);

  private:
    using Key = std::tuple<std::wstring, LONG, LONG, BYTE>; // family, height, weight, italic
    ShapingFontPtr Open(const LOGFONTW&);

    double dpi_ = 96;
    MeasuringContext context_;
    FontFallback fallback_{context_};
    std::map<Key, ShapingFontPtr> fonts_;
};
