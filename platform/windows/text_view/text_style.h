// The reader's style of a text, and the control's formats for it.
#pragma once

#include "formats/document.h"
#include "platform/text_view.h"
#include "platform/windows/base/win32.h"

#include <richedit.h>

#include <optional>
#include <string>

struct TextStyle {
    ViewFont font;
    bool fontForAll = false; // overrides the file
    bool autoColor = false;
    Color textColor = 0x000000, backColor = 0xFFFFFF;
    std::optional<Alignment> alignment; // none: as in the file
    int rightMargin = 0;                // twips, 0 wraps at the view's edge
};

CHARFORMAT2W FontFormat(const ViewFont& font);
// For text without colours of its own.
CHARFORMAT2W ColorFormat(const TextStyle& style);

// The automatic text colour on this background: none for the system's, else black or white where
// the system's lacks contrast.
std::optional<Color> ReadableAutoColor(Color background);

// The document with the reader's font and colours over its own. Links become plain text.
Document WithStyle(Document document, const TextStyle& style);
std::string StyledRtf(const Document& document, const TextStyle& style); // as RTF for the control
bool NamesOwnFonts(const Document& document); // no run is in the reader's default font
