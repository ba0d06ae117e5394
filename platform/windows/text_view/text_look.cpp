#include "platform/windows/text_view/text_look.h"

#include "formats/rtf/rtf_writer.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double minFont = 1, maxFont = 1638, usualFont = 10; // points

int Gray(Color color) {
    return int((color & 0xFF) * 11 + (color >> 8 & 0xFF) * 16 + (color >> 16 & 0xFF) * 5) / 32;
}

bool Contrast(Color a, Color b) {
    return std::abs(Gray(a) - Gray(b)) >= 80;
}

double PointSize(const ViewFont& font) {
    return std::clamp(font.size > 0 ? font.size : usualFont, minFont, maxFont);
}

std::u16string FaceName(const ViewFont& font) {
    return font.name.empty() ? u"Segoe UI" : font.name;
}

void GiveFont(CharStyle& style, const ViewFont& font) {
    style.font = 0;
    style.halfPoints = static_cast<std::uint16_t>(std::lround(2 * PointSize(font)));
    style.bold = font.bold;
    style.italic = font.italic;
    style.underline = font.underline;
    style.strikethrough = font.strikethrough;
}

void GiveForeground(CharStyle& style, Color color) {
    style.foreground = color;
    style.autoForeground = false;
}

void GiveColor(CharStyle& style, const TextLook& look) {
    if (!look.autoColor) return GiveForeground(style, look.textColor);
    const Color back = style.autoBackground ? look.backColor : style.background;
    const Color link = GetSysColor(COLOR_HOTLIGHT);
    if (style.link != 0 && Contrast(link, back)) return GiveForeground(style, link);
    if (!style.autoForeground) return;
    if (const auto color = ReadableAutoColor(back)) GiveForeground(style, *color);
}
} // namespace

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

CHARFORMAT2W ColorFormat(const TextLook& look) {
    CHARFORMAT2W format = {};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR;
    const std::optional<Color> color =
        look.autoColor ? ReadableAutoColor(look.backColor) : std::optional(look.textColor);
    if (color)
        format.crTextColor = *color;
    else
        format.dwEffects = CFE_AUTOCOLOR;
    return format;
}

std::optional<Color> ReadableAutoColor(Color background) {
    if (Contrast(GetSysColor(COLOR_WINDOWTEXT), background)) return std::nullopt;
    return Gray(background) < 128 ? 0xFFFFFF : 0x000000;
}

Document Dressed(Document document, const TextLook& look) {
    for (std::u16string& name : document.fonts)
        if (name.empty() || look.fontForAll) name = FaceName(look.font);
    for (CharStyle& style : document.charStyles) {
        GiveColor(style, look);
        if (look.fontForAll)
            GiveFont(style, look.font);
        else if (style.link != 0)
            style.underline = true;
        style.link = 0; // the control would keep the addresses as hidden text
    }
    if (look.alignment)
        for (ParagraphStyle& style : document.paragraphStyles)
            style.alignment = *look.alignment;
    return document;
}

// The view's font has a character set, which our documents do not know.
std::string DressedRtf(const Document& document, const TextLook& look) {
    std::string rtf = WriteRtf(Dressed(document, look));
    if (!look.fontForAll) return rtf;
    constexpr std::string_view family = "\\fnil";
    const std::string charset = "\\fcharset" + std::to_string(look.font.charset);
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
