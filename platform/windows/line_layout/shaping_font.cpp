#include "platform/windows/line_layout/shaping_font.h"

#include <algorithm>
#include <vector>

namespace {

void MeasureRules(HDC context, ShapingFont& font) {
    const int thickness = std::max(1, (font.ascent + font.descent) / 18);
    font.underline = {-std::max(1, font.descent / 3), thickness};
    font.strikeout = {font.ascent * 3 / 10, thickness};
    const UINT size = GetOutlineTextMetricsW(context, 0, nullptr);
    if (size < sizeof(OUTLINETEXTMETRICW)) return; // not an outline font
    std::vector<BYTE> buffer(size);
    auto* const metrics = reinterpret_cast<OUTLINETEXTMETRICW*>(buffer.data());
    if (!GetOutlineTextMetricsW(context, size, metrics)) return;
    font.underline = {metrics->otmsUnderscorePosition,
                      std::max(1, static_cast<int>(metrics->otmsUnderscoreSize))};
    font.strikeout = {static_cast<int>(metrics->otmsStrikeoutPosition),
                      std::max(1, static_cast<int>(metrics->otmsStrikeoutSize))};
}

void Measure(HDC context, ShapingFont& font) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(context, &metrics);
    font.ascent = metrics.tmAscent;
    font.descent = metrics.tmDescent;
    font.leading = metrics.tmExternalLeading;
    SIZE extent = {};
    GetTextExtentPoint32W(context, L" ", 1, &extent);
    font.spaceWidth = extent.cx;
    GetTextExtentPoint32W(context, L"-", 1, &extent);
    font.hyphenWidth = extent.cx;
    MeasureRules(context, font);
    const Uniscribe* const uniscribe = LoadUniscribe();
    SCRIPT_FONTPROPERTIES properties = {};
    properties.cBytes = sizeof properties;
    if (!uniscribe || FAILED(uniscribe->fontProperties(context, &font.cache, &properties))) return;
    font.missingGlyph = properties.wgDefault;
    font.blankGlyph = properties.wgBlank;
}

} // namespace

ShapingFont::~ShapingFont() {
    if (cache) LoadUniscribe()->freeCache(&cache);
}

MeasuringContext::MeasuringContext()
    : context_(CreateCompatibleDC(nullptr)), original_(GetCurrentObject(context_, OBJ_FONT)) {}

MeasuringContext::~MeasuringContext() {
    SelectObject(context_, original_);
    DeleteDC(context_);
}

HDC MeasuringContext::With(const ShapingFontPtr& font) {
    if (font != selected_) {
        SelectObject(context_, font->handle.get());
        selected_ = font;
    }
    return context_;
}

ShapingFontPtr OpenShapingFont(MeasuringContext& context, const LOGFONTW& description) {
    auto font = std::make_shared<ShapingFont>();
    font->description = description;
    font->handle.reset(CreateFontIndirectW(&description));
    Measure(context.With(font), *font);
    return font;
}

bool HasGlyph(MeasuringContext& context, const ShapingFontPtr& font, wchar_t character) {
    constexpr WORD none = 0xFFFF;
    WORD glyph = none;
    return GetGlyphIndicesW(context.With(font), &character, 1, &glyph,
                            GGI_MARK_NONEXISTING_GLYPHS) == 1 &&
           glyph != none;
}
