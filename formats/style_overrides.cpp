#include "formats/style_overrides.h"

namespace {
void ApplyFont(CharStyle& style, const CharStyle& font) {
    style.font = 0;
    style.halfPoints = font.halfPoints;
    style.bold = font.bold;
    style.italic = font.italic;
    style.underline = font.underline;
    style.strikethrough = font.strikethrough;
}
} // namespace

DocumentStyles WithOverrides(const Document& document, const StyleOverrides& overrides) {
    DocumentStyles styles{document.fonts, document.charStyles, document.paragraphStyles};
    for (std::u16string& name : styles.fonts)
        if (overrides.font || name.empty()) name = overrides.fontName;
    for (CharStyle& style : styles.charStyles) {
        if (overrides.font) ApplyFont(style, *overrides.font);
        if (!overrides.textColor) continue;
        style.foreground = *overrides.textColor;
        style.autoForeground = false;
    }
    if (overrides.alignment)
        for (ParagraphStyle& style : styles.paragraphStyles)
            style.alignment = *overrides.alignment;
    return styles;
}
