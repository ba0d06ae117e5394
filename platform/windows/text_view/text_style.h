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
    bool fontForAll = false; // over what the file says
    bool autoColor = false;
    Color textColor = 0x000000, backColor = 0xFFFFFF;
    std::optional<Alignment> alignment; // none: what the file says
    int rightMargin = 0;                // twips, 0 wraps at the view's edge
};

CHARFORMAT2W FontFormat(const ViewFont& font);
// Of a text without colours of its own.
CHARFORMAT2W ColorFormat(const TextStyle& style);

// The text colour where the file gives none: the system's, unless it cannot be read on this
// background; none for the system's.
std::optional<Color> ReadableAutoColor(Color background);

// The document with the reader's font and colours over its own. Links become plain text.
Document WithStyle(Document document, const TextStyle& style);
std::string StyledRtf(const Document& document, const TextStyle& style); // as RTF for the control
bool NamesOwnFonts(const Document& document); // no run is in the reader's default font
