#include "platform/windows/line_layout/win_fonts.h"

#include "platform/windows/base/text.h"
#include "platform/windows/line_layout/installed_families.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

constexpr int maxHeight = 4'000;       // pixels; GDI takes no more for its bitmaps
constexpr std::size_t maxUnused = 256; // fonts kept though no style has them

std::wstring MessageFamily(double dpi) {
    return NonClientMetricsForDpi(static_cast<int>(dpi)).lfMessageFont.lfFaceName;
}

LOGFONTW Describe(const TextFont& font, double dpi) {
    constexpr double pointsPerInch = 72;
    LOGFONTW described = {};
    const long height = std::lround(font.points * dpi / pointsPerInch);
    described.lfHeight = -static_cast<LONG>(std::clamp(height, 1L, long{maxHeight}));
    described.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    described.lfItalic = font.italic;
    described.lfCharSet = DEFAULT_CHARSET;
    described.lfQuality = CLEARTYPE_NATURAL_QUALITY;
    if (font.family.empty()) {
        MessageFamily(dpi).copy(described.lfFaceName, LF_FACESIZE - 1);
    } else {
        const std::size_t length = std::min<std::size_t>(font.family.size(), LF_FACESIZE - 1);
        std::copy_n(font.family.begin(), length, described.lfFaceName);
    }
    return described;
}

// Those that come with Windows first; the others are for systems that stand in for it.
std::span<const wchar_t* const> FamiliesOf(GenericFamily kind) {
    static constexpr const wchar_t* serif[] = {L"Times New Roman", L"Liberation Serif",
                                               L"DejaVu Serif", L"Noto Serif"};
    static constexpr const wchar_t* sans[] = {L"Arial", L"Liberation Sans", L"DejaVu Sans",
                                              L"Noto Sans", L"Tahoma"};
    static constexpr const wchar_t* mono[] = {L"Consolas", L"Courier New", L"Liberation Mono",
                                              L"DejaVu Sans Mono"};
    static constexpr const wchar_t* cursive[] = {L"Comic Sans MS"};
    static constexpr const wchar_t* fantasy[] = {L"Impact"};
    switch (kind) {
    case GenericFamily::Serif: return serif;
    case GenericFamily::SansSerif: return sans;
    case GenericFamily::Monospace: return mono;
    case GenericFamily::Cursive: return cursive;
    case GenericFamily::Fantasy: return fantasy;
    case GenericFamily::SystemUi: break;
    }
    return {};
}

} // namespace

std::u16string WinFonts::FamilyOf(GenericFamily kind) const {
    const std::wstring message = MessageFamily(dpi_);
    if (kind == GenericFamily::SystemUi && IsInstalledFamily(message)) return FromWide(message);
    const auto families = FamiliesOf(kind);
    const auto found = std::find_if(families.begin(), families.end(), IsInstalledFamily);
    if (found != families.end()) return FromWide(*found);
    // GDI opens some font in its place.
    if (kind == GenericFamily::Serif || kind == GenericFamily::SansSerif) return FromWide(message);
    return FamilyOf(kind == GenericFamily::SystemUi ? GenericFamily::SansSerif
                                                    : GenericFamily::Serif);
}

void WinFonts::SetResolution(double dpi) {
    dpi_ = dpi;
    fonts_.clear();
}

std::shared_ptr<const WinStyle> WinFonts::Prepare(const TextStyle& style) {
    auto prepared = std::make_shared<WinStyle>();
    prepared->style = style;
    TextFont font = style.font;
    if (style.baseline != TextBaseline::Normal) font.points *= 2.0 / 3;
    prepared->font = Open(Describe(font, dpi_));
    const int height = prepared->font->ascent + prepared->font->descent;
    if (style.baseline == TextBaseline::Superscript) prepared->rise = height / 2;
    if (style.baseline == TextBaseline::Subscript) prepared->rise = -height / 6;
    prepared->raise = static_cast<int>(std::lround(style.raise));
    return prepared;
}

ShapingFontPtr WinFonts::WithFamily(const ShapingFont& font, const std::wstring& family) {
    LOGFONTW description = font.description;
    std::fill(std::begin(description.lfFaceName), std::end(description.lfFaceName), L'\0');
    family.copy(description.lfFaceName, LF_FACESIZE - 1);
    return Open(description);
}

// A process may have some 10,000 objects of GDI, and a text as many fonts as it likes: those in no
// style are closed.
ShapingFontPtr WinFonts::Open(const LOGFONTW& description) {
    ShapingFontPtr& font = fonts_[Key(description.lfFaceName, description.lfHeight,
                                      description.lfWeight, description.lfItalic)];
    if (font) return font;
    ShapingFontPtr opened = font = OpenShapingFont(context_, description);
    if (fonts_.size() > maxUnused)
        std::erase_if(fonts_, [](const auto& each) { return each.second.use_count() == 1; });
    return opened;
}
