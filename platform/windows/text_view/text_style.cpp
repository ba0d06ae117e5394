#include "platform/windows/text_view/text_style.h"

#include "formats/rtf/rtf_writer.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double minFontSize = 1, maxFontSize = 1638, defaultFontSize = 10; // points

int Luminance(Color color) {
    return int((color & 0xFF) * 11 + (color >> 8 & 0xFF) * 16 + (color >> 16 & 0xFF) * 5) / 32;
}

bool HasContrast(Color a, Color b) {
    return std::abs(Luminance(a) - Luminance(b)) >= 80;
}

void ApplyFont(CharStyle& style, const ViewFont& font) {
    style.font = 0;
    style.halfPoints = static_cast<std::uint16_t>(std::lround(2 * PointSize(font)));
    style.bold = font.bold;
    style.italic = font.italic;
    style.underline = font.underline;
    style.strikethrough = font.strikethrough;
}

void SetForeground(CharStyle& style, Color color) {
    style.foreground = color;
    style.autoForeground = false;
}

void ApplyColor(CharStyle& run, const ViewStyle& style) {
    if (!style.autoColor) return SetForeground(run, style.textColor);
    const Color back = run.autoBackground ? style.backColor : run.background;
    const Color link = GetSysColor(COLOR_HOTLIGHT);
    if (run.link != 0 && HasContrast(link, back)) return SetForeground(run, link);
    if (!run.autoForeground) return;
    if (const auto color = ReadableAutoColor(back)) SetForeground(run, *color);
}
} // namespace

double PointSize(const ViewFont& font) {
    return std::clamp(font.size > 0 ? font.size : defaultFontSize, minFontSize, maxFontSize);
}

std::u16string FaceName(const ViewFont& font) {
    return font.name.empty() ? u"Segoe UI" : font.name;
}

CHARFORMAT2W FontFormat(const ViewFont& font) {
    CHARFORMAT2W format = {};
    format.cbSize = sizeof format;
    format.dwMask =
        CFM_FACE | CFM_SIZE | CFM_CHARSET | CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_STRIKEOUT;
    format.dwEffects = (font.bold ? CFE_BOLD : 0) | (font.italic ? CFE_ITALIC : 0) |
                       (font.underline ? CFE_UNDERLINE : 0) |
                       (font.strikethrough ? CFE_STRIKEOUT : 0);
    format.yHeight = static_cast<LONG>(std::lround(20 * PointSize(font)));
    format.bCharSet = static_cast<BYTE>(font.charset);
    const std::u16string name = FaceName(font).substr(0, LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), format.szFaceName);
    return format;
}

CHARFORMAT2W ColorFormat(const ViewStyle& style) {
    CHARFORMAT2W format = {};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR;
    const std::optional<Color> color =
        style.autoColor ? ReadableAutoColor(style.backColor) : std::optional(style.textColor);
    if (color)
        format.crTextColor = *color;
    else
        format.dwEffects = CFE_AUTOCOLOR;
    return format;
}

std::optional<Color> ReadableAutoColor(Color background) {
    if (HasContrast(GetSysColor(COLOR_WINDOWTEXT), background)) return std::nullopt;
    return Luminance(background) < 128 ? 0xFFFFFF : 0x000000;
}

Document WithStyle(Document document, const ViewStyle& style) {
    for (std::u16string& name : document.fonts)
        if (name.empty() || style.fontForAll) name = FaceName(style.font);
    for (CharStyle& run : document.charStyles) {
        ApplyColor(run, style);
        if (style.fontForAll)
            ApplyFont(run, style.font);
        else if (run.link != 0)
            run.underline = true;
        run.link = 0; // the control would keep the addresses as hidden text
    }
    // The control would play a stranger's metafile by the system, unbounded.
    for (Picture& picture : document.pictures) {
        if (picture.format != PictureFormat::Wmf && picture.format != PictureFormat::Emf) continue;
        picture.format = PictureFormat::Other;
        picture.bytes.clear();
    }
    if (style.alignment)
        for (ParagraphStyle& paragraph : document.paragraphStyles)
            paragraph.alignment = *style.alignment;
    return document;
}

// The view's font has a character set; the documents of `formats` do not.
std::string StyledRtf(const Document& document, const ViewStyle& style) {
    std::string rtf = WriteRtf(WithStyle(document, style));
    if (!style.fontForAll) return rtf;
    constexpr std::string_view family = "\\fnil";
    const std::string charset = "\\fcharset" + std::to_string(style.font.charset);
    const std::size_t tableEnd = rtf.find("{\\colortbl");
    for (std::size_t at = rtf.rfind(family, tableEnd); at != rtf.npos && at > 0;
         at = rtf.rfind(family, at - 1))
        rtf.insert(at + family.size(), charset);
    return rtf;
}

bool NamesOwnFonts(const Document& document) {
    const auto ownFont = [&](const CharStyle& style) {
        return style.font < document.fonts.size() && !document.fonts[style.font].empty();
    };
    return std::all_of(document.charStyles.begin(), document.charStyles.end(), ownFont);
}
