// What a reader sets for a whole text, over what its document says.
#pragma once

#include "formats/document.h"

#include <optional>

struct StyleOverrides {
    std::u16string fontName;       // where the document names none, and with `font` everywhere
    std::optional<CharStyle> font; // size, bold, italic, underline and strikethrough of it
    std::optional<Color> textColor;
    std::optional<Alignment> alignment;
};

// The styles of a document, by their indexes in it.
struct DocumentStyles {
    std::vector<std::u16string> fonts;
    std::vector<CharStyle> charStyles;
    std::vector<ParagraphStyle> paragraphStyles;
};
DocumentStyles WithOverrides(const Document&, const StyleOverrides&);
